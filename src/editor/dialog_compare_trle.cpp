#include "editor/dialog_compare_trle.h"

#include <chrono>
#include <system_error>
#include <unordered_map>

#include "archive/editor_backup.h"
#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr std::size_t kTagWidth = 11;

std::string NameBelow(const fs::path& file, const fs::path& base) {
  fs::path relative = file.lexically_relative(base);
  std::string folder = ToLower(ReplaceAll(relative.parent_path().generic_string(), "/", "\\"));
  return (folder.empty() ? "\\" : "\\" + folder + "\\") + ToUpper(relative.filename().string());
}

bool HasExtensionOf(const fs::path& file, const std::vector<std::string>& left_out) {
  std::string name = file.filename().string();
  std::string last = name.size() >= 4 ? name.substr(name.size() - 4) : name;
  for (const std::string& ext : left_out)
    if (!ext.empty() && EqualsNoCase(last, ext)) return true;
  return false;
}

// The file's time as the folder listing shows it: to the second.
std::int64_t SecondsOf(const fs::path& file) {
  std::error_code ec;
  auto when = fs::last_write_time(file, ec);
  if (ec) return -1;
  return std::chrono::duration_cast<std::chrono::seconds>(when.time_since_epoch()).count();
}

std::uintmax_t SizeOf(const fs::path& file) {
  std::error_code ec;
  std::uintmax_t size = fs::file_size(file, ec);
  return ec ? static_cast<std::uintmax_t>(-1) : size;
}

}  // namespace

Dialog_CompareTrle::Dialog_CompareTrle(Program& program)
    : Form(program, "Dialog_CompareTrle", " Compare TRLE mirror folders") {
  Frame1.SetCaption(" Target TRLE folder to compare ");
  Frame2.SetCaption(" Kind comparison ");
  Frame3.SetCaption(" Source  TRLE folder with (sure) original files  ");
  Pul_SfogliaSorg.SetCaption("Browse");
  Pul_SfogliaDest.SetCaption("Browse");
  Opt_Compact.SetCaption("Compact (only main, graphics\\wads  and data folders)");
  Opt_Full.SetCaption("Full (if you  have a full backup)");
  Check_NotOk.SetCaption("Don't show correct files");
  Pul_Compare.SetCaption("Compare");
  Pul_Print.SetCaption("Print");
  Pul_Copy.SetCaption("Copy");
  Pul_Close.SetCaption("Close");
}

void Dialog_CompareTrle::Set_Caption_Texts() {
  CaptionFromText(text::CompareCaption);
  CaptionFromText(Frame1, text::CompareTargetFrame);
  CaptionFromText(Frame2, text::CompareKindFrame);
  CaptionFromText(Frame3, text::CompareSourceFrame);
  CaptionFromText(Pul_SfogliaSorg, text::CompareBrowse);
  CaptionFromText(Pul_SfogliaDest, text::CompareBrowse);
  CaptionFromText(Opt_Compact, text::CompareCompact);
  CaptionFromText(Opt_Full, text::CompareFull);
  CaptionFromText(Check_NotOk, text::CompareHideOk);
  CaptionFromText(Pul_Compare, text::CompareRun);
  CaptionFromText(Pul_Print, text::ComparePrint);
  CaptionFromText(Pul_Copy, text::CompareCopy);
  CaptionFromText(Pul_Close, text::CompareClose);
}

void Dialog_CompareTrle::ImpostaValori() {
  Program& p = program();
  Label_DirDest.SetCaption(Trim(p.prefs.EditorFolder));
  Label_Sorg.SetCaption(EditorBackupFolder(p).string());
  (p.prefs.FullBackupDone ? Opt_Full : Opt_Compact).SetValue(true);
}

std::string Dialog_CompareTrle::ChooseFolder(std::int32_t title, std::int32_t needed,
                                             std::int32_t refused) {
  Program& p = program();
  std::string chosen = p.ui().AskFolder({}, p.GetText(title));
  if (chosen.empty()) return {};
  if (FolderExists(JoinFragment(chosen, p.GetText(needed)))) return chosen;
  AskUser(p, p.GetText(refused, {kLineEnd}), msg::kError);
  return {};
}

void Dialog_CompareTrle::Pul_SfogliaSorg_Click() {
  std::string chosen =
      ChooseFolder(text::CompareSourceTitle, text::CompareSourceNeeds, text::CompareSourceRefused);
  if (!chosen.empty()) Label_Sorg.SetCaption(chosen);
}

void Dialog_CompareTrle::Pul_SfogliaDest_Click() {
  std::string chosen =
      ChooseFolder(text::CompareTargetTitle, text::CompareTargetNeeds, text::CompareTargetRefused);
  if (!chosen.empty()) Label_DirDest.SetCaption(chosen);
}

std::vector<ComparedFile> Dialog_CompareTrle::CatturaFile(const std::string& BaseDir) {
  Program& p = program();
  fs::path base = ResolveCase(fs::path(Trim(BaseDir)));
  std::vector<fs::path> files;
  if (!Opt_Full.Value()) {
    std::vector<std::string> left_out = {p.GetText(text::CompactLeftOut1),
                                         p.GetText(text::CompactLeftOut2),
                                         p.GetText(text::CompactLeftOut3)};
    for (const fs::path& file : ListFiles(base, "*"))
      if (!HasExtensionOf(file, left_out)) files.push_back(file);
    for (std::int32_t id : {text::CompactWadsPattern, text::CompactDataPattern}) {
      std::string pattern = p.GetText(id);
      fs::path folder = ResolveCase(JoinFragment(base, ExtractFolder(pattern)));
      for (const fs::path& file : ListFiles(folder, ExtractFileName(pattern)))
        files.push_back(file);
    }
  } else {
    std::vector<std::string> left_out = {p.GetText(text::FullLeftOut1),
                                         p.GetText(text::FullLeftOut2),
                                         p.GetText(text::FullLeftOut3)};
    FolderTreeWalker walker(&p.ui());
    walker.WalkFolderTree(base);
    for (const fs::path& file : walker.Files())
      if (!HasExtensionOf(file, left_out)) files.push_back(file);
  }
  std::vector<ComparedFile> entries;
  entries.reserve(files.size());
  for (const fs::path& file : files) entries.push_back({NameBelow(file, base), file});
  return entries;
}

void Dialog_CompareTrle::CompareFolders() {
  Program& p = program();
  // Reading the two folders is the long part: a quarter of the bar each, the comparison the rest.
  ProgressBar1.SetValue(0);
  std::vector<ComparedFile> source = CatturaFile(Label_Sorg.Caption());
  SetProgressPercent(ProgressBar1, 4, 1);
  std::vector<ComparedFile> target = CatturaFile(Label_DirDest.Caption());
  SetProgressPercent(ProgressBar1, 4, 2);
  List_Prospetto.Clear();
  CountOk = CountChanged = CountMissing = CountNew = 0;

  // Where each name stands in `target`; kept true as matched entries leave it.
  std::unordered_map<std::string, std::size_t> where;
  for (std::size_t i = target.size(); i-- > 0;) where[ToLower(target[i].name)] = i;
  const std::string ok_mark = p.GetText(text::CompareOkMark);
  for (std::size_t i = 0; i < source.size(); ++i) {
    const ComparedFile& file = source[i];
    const char* tag = kTagMissing;
    auto found = where.find(ToLower(file.name));
    if (found != where.end()) {
      std::size_t at = found->second;
      const fs::path& other = target[at].path;
      bool same = SizeOf(file.path) == SizeOf(other) && SecondsOf(file.path) == SecondsOf(other);
      tag = same ? kTagOk : kTagChanged;
      ++(same ? CountOk : CountChanged);
      where.erase(found);
      // The last entry takes the place of the matched one, as the report's order of new files
      // has always come out.
      if (at + 1 != target.size()) {
        target[at] = std::move(target.back());
        where[ToLower(target[at].name)] = at;
      }
      target.pop_back();
    } else {
      ++CountMissing;
    }
    if (!(Check_NotOk.Value() && std::string(tag).substr(0, 5) == ok_mark))
      List_Prospetto.AddItem(tag + file.name + " ");
    SetProgressPercent(ProgressBar1, 2.0 * static_cast<double>(source.size()),
                       static_cast<double>(source.size() + i + 1));
  }
  SetProgressPercent(ProgressBar1, 1, 1);
  for (const ComparedFile& file : target) {
    ++CountNew;
    List_Prospetto.AddItem(kTagNew + file.name);
  }
  List_Prospetto.AddItem("|                        ");
  List_Prospetto.AddItem(p.GetText(text::CompareSummary));
  List_Prospetto.AddItem(p.GetText(text::CompareCountOk) + std::to_string(CountOk));
  List_Prospetto.AddItem(p.GetText(text::CompareCountNew) + std::to_string(CountNew));
  List_Prospetto.AddItem(p.GetText(text::CompareCountMissing) + std::to_string(CountMissing));
  List_Prospetto.AddItem(p.GetText(text::CompareCountChanged) + std::to_string(CountChanged));
  ProgressBar1.SetValue(0);
}

std::vector<std::string> Dialog_CompareTrle::ListChangedFiles(const std::string& target,
                                                              bool full) {
  Label_DirDest.SetCaption(target);
  Check_NotOk.SetValue(true);
  (full ? Opt_Full : Opt_Compact).SetValue(true);
  CompareFolders();
  std::vector<std::string> names;
  for (const ListItem& row : List_Prospetto.Items()) {
    if (row.text.empty() || row.text[0] == '|' || row.text.size() < kTagWidth) continue;
    std::string tag = row.text.substr(0, kTagWidth);
    if (tag == kTagChanged || tag == kTagNew) names.push_back(Trim(row.text.substr(kTagWidth)));
  }
  return names;
}

void Dialog_CompareTrle::StampaProspetto(bool TestAppunti) {
  Program& p = program();
  if (List_Prospetto.ListCount() == 0) {
    AskUser(p, p.GetText(text::CompareNothingToPrint), msg::kInformation);
    return;
  }
  std::string report = p.GetText(text::CompareReportTitle) + kLineEnd +
                       p.GetText(text::CompareReportSource) + Label_Sorg.Caption() + kLineEnd +
                       p.GetText(text::CompareReportTarget) + Trim(Label_DirDest.Caption()) +
                       kLineEnd + kLineEnd;
  for (const ListItem& row : List_Prospetto.Items()) report += row.text + kLineEnd;
  if (!TestAppunti) {
    PrintReport(p, Caption(), report);
    return;
  }
  p.ui().ClearClipboard();
  p.ui().SetClipboardText(report);
  AskUser(p, p.GetText(text::CompareCopied), msg::kInformation);
}

}  // namespace vardolin
