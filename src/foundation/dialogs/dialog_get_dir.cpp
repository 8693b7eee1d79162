#include "foundation/dialogs/dialog_get_dir.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;
namespace {

constexpr std::int64_t kParentRow = -1;
const char* const kParentText = "..";

// True when `folder` lies on the mount point, compared by whole path components.
bool IsOnMount(const fs::path& folder, const fs::path& mount) {
  auto f = folder.begin();
  for (auto m = mount.begin(); m != mount.end(); ++m, ++f) {
    if (m->empty()) continue;  // a trailing separator of the mount point
    if (f == folder.end() || *f != *m) return false;
  }
  return true;
}

}  // namespace

std::string NormalizeChosenFolder(const std::string& path) {
  std::string out;
  for (char c : path)
    if (!(c == '/' && !out.empty() && out.back() == '/')) out += c;
  if (out.size() > 1 && out.back() == '/') out.pop_back();
  return out;
}

Dialog_GetDir::Dialog_GetDir(Program& program) : Form(program, "Dialog_GetDir") {
  Dir1.SetDblClickHandler([this] { Dir1_DblClick(); });
}

void Dialog_GetDir::Set_Caption_Texts() {
  SetCaption(title_.empty() ? program().GetText(text::GetDirTitle) : title_);
  CaptionFromText(OKButton, text::GetDirOk);
  CaptionFromText(CancelButton, text::GetDirCancel);
  CaptionFromText(Pul_NuovaCartella, text::GetDirNewFolder);
}

void Dialog_GetDir::ImpostaValori(const std::string& start, const std::string& title) {
  title_ = title;
  if (!title_.empty()) SetCaption(title_);
  FillDrives();
  std::error_code ec;
  fs::path from = start;
  if (!from.empty() && !fs::is_directory(from, ec)) {
    // A proposal not made yet: its parent is shown, its name waits to be taken with Ok.
    fs::path above = from.parent_path();
    while (!above.empty() && above != above.parent_path() && !fs::is_directory(above, ec))
      above = above.parent_path();
    if (above == from.parent_path()) Text_Path.SetText(from.filename().string());
    from = above;
  }
  const char* home = std::getenv("HOME");
  if ((from.empty() || !EnterFolder(from)) && !(home && *home && EnterFolder(home)))
    EnterFolder(fs::current_path(ec));
}

void Dialog_GetDir::FillDrives() {
  drives_ = program().platform().ListDrives();
  if (drives_.empty()) {
    DriveInfo root;
    root.letter = "/";
    root.type = kDriveFixed;
    root.ready = true;
    drives_.push_back(root);
  }
  // The root heads the list; a folder's own drive is found by the longest mount point.
  std::stable_sort(drives_.begin(), drives_.end(), [](const DriveInfo& a, const DriveInfo& b) {
    return a.letter.size() < b.letter.size();
  });
  syncing_ = true;
  Drive1.Clear();
  for (size_t i = 0; i < drives_.size(); ++i) {
    const DriveInfo& d = drives_[i];
    std::string row = d.letter;
    if (!Trim(d.volume_name).empty()) row += "  [" + Trim(d.volume_name) + "]";
    Drive1.AddItem(row, static_cast<std::int64_t>(i));
  }
  syncing_ = false;
}

void Dialog_GetDir::SelectDriveOfFolder() {
  int best = -1;
  size_t best_len = 0;
  for (int i = 0; i < Drive1.ListCount(); ++i) {
    const DriveInfo& d = drives_[static_cast<size_t>(Drive1.ItemData(i))];
    if (IsOnMount(folder_, d.letter) && (best < 0 || d.letter.size() > best_len)) {
      best = i;
      best_len = d.letter.size();
    }
  }
  syncing_ = true;
  Drive1.SetListIndex(best);
  syncing_ = false;
}

bool Dialog_GetDir::EnterFolder(const fs::path& folder) {
  std::error_code ec;
  fs::path target = fs::weakly_canonical(fs::absolute(folder, ec), ec);
  if (ec || !fs::is_directory(target, ec)) return false;
  std::vector<std::string> names;
  for (fs::directory_iterator it(target, fs::directory_options::skip_permission_denied, ec), end;
       !ec && it != end; it.increment(ec)) {
    std::error_code type_ec;
    if (it->is_directory(type_ec)) names.push_back(it->path().filename().string());
  }
  if (ec) return false;
  std::sort(names.begin(), names.end(),
            [](const std::string& a, const std::string& b) { return LessNoCase(a, b); });
  folder_ = target;
  syncing_ = true;
  Dir1.Clear();
  if (folder_.has_relative_path()) Dir1.AddItem(kParentText, kParentRow);
  for (size_t i = 0; i < names.size(); ++i) Dir1.AddItem(names[i], static_cast<std::int64_t>(i));
  syncing_ = false;
  Label_Folder.SetCaption(folder_.string());
  if (Drive1.ListCount() == 0) FillDrives();
  SelectDriveOfFolder();
  return true;
}

void Dialog_GetDir::Drive1_Change() {
  if (syncing_ || Drive1.ListIndex() < 0) return;
  const DriveInfo& d = drives_[static_cast<size_t>(Drive1.ItemData(Drive1.ListIndex()))];
  if (!d.ready || !EnterFolder(d.letter)) {
    AskUser(program(), program().GetText(text::DriveNotReady), msg::kError);
    SelectDriveOfFolder();
  }
}

void Dialog_GetDir::Dir1_DblClick() {
  int row = Dir1.ListIndex();
  if (row < 0) return;
  if (Dir1.ItemData(row) == kParentRow)
    EnterFolder(folder_.parent_path());
  else
    EnterFolder(folder_ / Dir1.List(row));
}

void Dialog_GetDir::Pul_NuovaCartella_Click() {
  std::string name = Trim(Text_Path.Text());
  if (name.empty()) {
    AskUser(program(), program().GetText(text::NewFolderNameEmpty), msg::kError);
    return;
  }
  fs::path target = folder_ / name;
  std::string quoted = "\"" + target.string() + "\"";
  std::error_code ec;
  if (fs::is_directory(target, ec)) {
    AskUser(program(), program().GetText(text::NewFolderExists, {quoted}), msg::kError);
    return;
  }
  if (!fs::create_directory(target, ec) || !EnterFolder(target)) {
    AskUser(program(), program().GetText(text::NewFolderFailed, {quoted}), msg::kError);
    return;
  }
  Text_Path.SetText({});
}

bool Dialog_GetDir::TakeTypedFolder() {
  std::string typed = Trim(Text_Path.Text());
  if (typed.empty()) return true;
  const char* home = std::getenv("HOME");
  if (home && (typed == "~" || typed.starts_with("~/"))) typed = home + typed.substr(1);
  const fs::path target = fs::path(typed).is_absolute() ? fs::path(typed) : folder_ / typed;
  std::error_code ec;
  if (!fs::is_directory(target, ec)) fs::create_directories(target, ec);
  if (!EnterFolder(target)) {
    AskUser(program(), program().GetText(text::NewFolderFailed, {"\"" + target.string() + "\""}),
            msg::kError);
    return false;
  }
  Text_Path.SetText({});
  return true;
}

void Dialog_GetDir::OKButton_Click() {
  // A typed folder comes first; else a highlighted sub-folder is the one chosen; with none (or
  // the parent's row) the folder in view is.
  const bool typed = !Trim(Text_Path.Text()).empty();
  if (!TakeTypedFolder()) return;
  const int row = typed ? -1 : Dir1.ListIndex();
  fs::path chosen = folder_;
  if (row >= 0 && Dir1.ItemData(row) != kParentRow) chosen /= Dir1.List(row);
  Path = NormalizeChosenFolder(chosen.string());
  ExitValue = true;
  Unload();
}

void Dialog_GetDir::CancelButton_Click() {
  ExitValue = false;
  Unload();
}

}  // namespace vardolin
