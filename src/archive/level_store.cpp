#include "archive/level_store.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <system_error>
#include <vector>

#include "archive/catalogue_ops.h"
#include "archive/catalogue_sizes.h"
#include "archive/level_folder_name.h"
#include "archive/text_ids.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// "LEVEL_" as folder names on a CD begin, without the leading backslash of the fragment.
constexpr std::string_view kLevelNameStart = kLevelFolderPrefix.substr(1);

std::vector<fs::path> SortedSubfolders(const fs::path& folder) {
  std::vector<fs::path> out = ListSubfolders(folder);
  std::sort(out.begin(), out.end());
  return out;
}

void MakeWritable(const fs::path& folder) {
  std::error_code ec;
  fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ec);
}

// Links and other non-folders the walk doesn't list as files (a link to a folder) would keep
// their folder from going: remove them without following them.
void RemoveLinksIn(const fs::path& folder) {
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code type_ec;
    if (it->is_symlink(type_ec)) fs::remove(it->path(), type_ec);
  }
}

}  // namespace

bool IsLevelFolderName(std::string_view name) {
  return StartsWithNoCase(name, kLevelNameStart);
}

// The number behind LEVEL_; false when anything but digits follows. Codes of more than four
// digits are written in full, so the whole run of digits counts, not just the last four.
bool LevelNumberOf(std::string_view name, std::int64_t& number) {
  std::string_view digits = name.substr(kLevelNameStart.size());
  if (digits.empty() || digits.size() > 12) return false;
  auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return ec == std::errc() && end == digits.data() + digits.size();
}

fs::path HardDiskLevelFolder(const Program& program, std::int32_t code) {
  fs::path base =
      code == 0 ? program.Home() : fs::path(Trim(program.catalogue.header.SecondaryDir));
  return JoinFragment(base, LevelFolderName(program, code));
}

std::string LevelFolderName(const Program& program, std::int32_t code) {
  std::string prefix = program.GetText(text::LevelFolderPrefix);
  return LevelFolderName(code, prefix.empty() ? kLevelFolderPrefix : std::string_view(prefix));
}

fs::path GetLevelFolder(Program& program, std::int32_t code, bool use_cd) {
  program.CdRefused = false;
  program.CdFetchedCopy = false;
  if (code == 0) return JoinFragment(program.Home(), LevelFolderName(program, 0));
  int index = FindLevelIndex(program.catalogue, code);
  if (use_cd && index >= 0 &&
      program.catalogue.levels[static_cast<std::size_t>(index)].CdNumber > 0) {
    fs::path folder;
    if (program.level_folder_on_cd) folder = program.level_folder_on_cd(program, code);
    program.CdRefused = folder.empty();
    return folder;
  }
  // Without an archive folder the level's folder would lie wherever the program happens to
  // run; callers stop on an empty answer instead of making or deleting folders there.
  fs::path folder = HardDiskLevelFolder(program, code);
  return folder.is_absolute() ? folder : fs::path();
}

fs::path GetLevelFilesFolder(Program& program, std::int32_t code, bool use_cd) {
  fs::path folder = GetLevelFolder(program, code, use_cd);
  if (folder.empty()) return {};
  return JoinFragment(folder, program.GetText(text::FilesFolder));
}

bool CreateLevelFolders(Program& program, const fs::path& level_folder) {
  if (level_folder.empty() || !MakeFolder(level_folder)) return false;
  for (std::int32_t id = text::LevelSubfolderFiles; id <= text::LevelSubfolderScreenshots; ++id)
    if (!MakeFolder(JoinFragment(level_folder, program.GetText(id)))) return false;
  return true;
}

bool DeleteLevelTree(Program& program, const fs::path& folder, Label* label, ProgressBar* bar,
                     std::int32_t deleting_text) {
  if (folder.empty()) return false;
  fs::path real = ResolveCase(folder);
  std::error_code ec;
  auto status = fs::symlink_status(real, ec);
  if (!fs::exists(status)) return true;
  if (!fs::is_directory(status)) return false;

  if (label) label->SetCaption(program.GetText(text::DeleteTreeListing));
  program.ui().DoEvents();
  FolderTreeWalker walker(&program.ui());
  walker.WalkFolderTree(real);

  if (label)
    label->SetCaption(program.GetText(deleting_text ? deleting_text : text::DeleteTreeDeleting));
  if (bar) bar->SetValue(0);
  program.ui().DoEvents();
  MakeWritable(real);
  for (const fs::path& f : walker.Folders()) MakeWritable(f);
  for (const fs::path& f : walker.Files()) DeleteFileForced(f);

  // Deepest first, so that each folder is empty when its turn comes.
  std::vector<fs::path> folders = walker.Folders();
  std::stable_sort(folders.begin(), folders.end(), [](const fs::path& a, const fs::path& b) {
    return std::distance(a.begin(), a.end()) > std::distance(b.begin(), b.end());
  });
  folders.push_back(real);
  for (std::size_t i = 0; i < folders.size(); ++i) {
    RemoveLinksIn(folders[i]);
    DeleteFolderTree(folders[i]);
    if (bar) bar->SetValue(static_cast<int>((i + 1) * 100 / folders.size()));
    program.ui().DoEvents();
  }
  if (label) label->SetCaption({});
  if (bar) bar->SetValue(0);
  return !fs::exists(fs::symlink_status(real, ec));
}

fs::path FindCdRootWithLevels(const fs::path& drive) {
  if (drive.empty()) return {};
  for (const fs::path& sub : SortedSubfolders(drive))
    for (const fs::path& inner : SortedSubfolders(sub))
      if (IsLevelFolderName(inner.filename().string())) return sub;
  return {};
}

fs::path FindLevelOnCd(std::int32_t code, const fs::path& drive) {
  fs::path root = FindCdRootWithLevels(drive);
  if (root.empty()) return {};
  for (const fs::path& sub : SortedSubfolders(root)) {
    std::string name = sub.filename().string();
    std::int64_t number = -1;
    if (IsLevelFolderName(name) && LevelNumberOf(name, number) && number == code) return sub;
  }
  return {};
}

fs::path FindLevelOnAnyCd(Program& program, std::int32_t code, std::string* drive) {
  for (const DriveInfo& info : program.platform().ListDrives()) {
    if (info.type != kDriveCdRom || !info.ready) continue;
    fs::path found = FindLevelOnCd(code, info.letter);
    if (found.empty()) continue;
    if (drive) *drive = info.letter;
    return found;
  }
  return {};
}

}  // namespace vardolin
