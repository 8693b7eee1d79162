#include "intake/dialog_cerca_livelli.h"

#include <chrono>
#include <filesystem>
#include <system_error>

#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/ole_date.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/search_history.h"
#include "intake/text_ids.h"
#include "intake/zip_search.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// The folders the dialog keeps of its own; a seventh replaces the oldest.
constexpr std::size_t kMaxFolders = 6;

// Days in one unit of a calendar interval code of the language file.
double IntervalDays(const std::string& code) {
  if (code == "h") return 1.0 / 24;
  if (code == "n") return 1.0 / (24 * 60);
  if (code == "d" || code == "y" || code == "w") return 1;
  if (code == "ww") return 7;
  if (code == "m") return 30;
  if (code == "q") return 91;
  if (code == "yyyy") return 365;
  return 1;
}

std::vector<std::string> SplitWords(const std::string& text) {
  std::vector<std::string> words;
  std::size_t start = 0;
  while (start <= text.size()) {
    std::size_t blank = text.find(' ', start);
    if (blank == std::string::npos) blank = text.size();
    if (blank > start) words.push_back(text.substr(start, blank - start));
    start = blank + 1;
  }
  return words;
}

}  // namespace

Dialog_CercaLivelli::Dialog_CercaLivelli(Program& program)
    : Form(program, "Dialog_CercaLivelli", "Search custom level in zip files on your PC") {
  Check_CercaDentroZip.SetCaption(" Search also in names inside zip files");
  List_Trovati.SetDblClickHandler([this] { Pul_OpenZip_Click(); });
}

void Dialog_CercaLivelli::Set_Caption_Texts() {
  CaptionFromText(text::SearchCaption);
  CaptionFromText(Label1, text::SearchFolderLabel);
  CaptionFromText(Pul_Sfoglia, text::SearchBrowse);
  CaptionFromText(Label2, text::SearchKindLabel);
  CaptionFromText(Pul_Search, text::SearchByName);
  CaptionFromText(Check_CercaDentroZip, text::SearchInsideZips);
  CaptionFromText(Pul_CercaLastFiles, text::SearchLastFiles);
  CaptionFromText(Pul_SearchAll, text::SearchAll);
  CaptionFromText(Frame1, text::SearchFoundFrame);
  CaptionFromText(Pul_Find, text::SearchInFound);
  CaptionFromText(Pul_OpenZip, text::SearchOpen);
  CaptionFromText(Pul_RenameZip, text::SearchRename);
  CaptionFromText(Pul_CopyZip, text::SearchCopy);
  CaptionFromText(Pul_DeleteZip, text::SearchDelete);
  CaptionFromText(Pul_Ok, text::SearchAddLevel);
  CaptionFromText(Command1, text::SearchCancel);
  CaptionFromText(Pul_Help, text::SearchHelp);
}

void Dialog_CercaLivelli::ImpostaValori() {
  Program& p = program();
  ExitValue = false;
  Chosen.clear();
  LoadSearchHistory(p);
  // Until the user chooses a folder for downloads, the search starts in the desktop's own.
  if (p.SearchHistory.empty()) p.SearchHistory.push_back({FirstSearchFolder(p), OleDateNow()});

  Combo_TipoFile.Clear();
  for (std::int32_t id : {text::SearchKindPackages, text::SearchKindPrograms, text::SearchKindAll})
    Combo_TipoFile.AddItem(p.GetText(id));
  Combo_TipoFile.SetListIndex(0);

  // Of equal dates the first stands.
  int newest = -1;
  double newest_date = 0;
  for (std::size_t i = 0; i < p.SearchHistory.size(); ++i)
    if (p.SearchHistory[i].LastUsed > newest_date) {
      newest_date = p.SearchHistory[i].LastUsed;
      newest = static_cast<int>(i);
    }
  FillFolders(newest);

  Combo_LastFiles.Clear();
  for (std::int32_t id : {text::SearchAge24Hours, text::SearchAgeWeek, text::SearchAgeMonth})
    Combo_LastFiles.AddItem(p.GetText(id));
  Combo_LastFiles.SetListIndex(0);
  ShowSelection();
}

void Dialog_CercaLivelli::FillFolders(int select) {
  Combo_Folder.Clear();
  const std::vector<SearchedFolder>& history = program().SearchHistory;
  for (std::size_t i = 0; i < history.size(); ++i)
    Combo_Folder.AddItem(history[i].Path, static_cast<std::int64_t>(i));
  Combo_Folder.SetListIndex(select < Combo_Folder.ListCount() ? select : -1);
}

void Dialog_CercaLivelli::Form_Unload() {
  stop_ = true;
  SaveSearchHistory(program());
}

void Dialog_CercaLivelli::Pul_Sfoglia_Click() {
  Program& p = program();
  const std::string folder =
      p.ui().AskFolder(FirstSearchFolder(p), p.GetText(text::SearchChooseFolder));
  if (folder.empty()) return;
  for (int i = 0; i < Combo_Folder.ListCount(); ++i)
    if (Combo_Folder.List(i) == folder) {
      Combo_Folder.SetListIndex(i);
      return;
    }
  std::vector<SearchedFolder>& history = p.SearchHistory;
  const double now = OleDateNow();
  std::size_t slot = history.size();
  if (history.size() >= kMaxFolders) {
    // The oldest goes; of equal dates the first, and the last when every date lies ahead of
    // the clock.
    slot = history.size() - 1;
    double reference = now;
    for (std::size_t i = 0; i < history.size(); ++i)
      if (history[i].LastUsed < reference) {
        reference = history[i].LastUsed;
        slot = i;
      }
  } else {
    history.emplace_back();
  }
  history[slot] = {folder, now};
  FillFolders(static_cast<int>(slot));
}

void Dialog_CercaLivelli::SetSearching(bool searching) {
  searching_ = searching;
  stop_ = false;
  for (Button* b : {&Pul_Sfoglia, &Pul_Search, &Pul_CercaLastFiles, &Pul_SearchAll, &Pul_Find,
                    &Pul_FindDopo, &Pul_FindPrima, &Pul_OpenZip, &Pul_CopyZip, &Pul_Ok})
    b->SetEnabled(!searching);
  if (searching) {
    Pul_DeleteZip.SetEnabled(false);
    Pul_RenameZip.SetEnabled(false);
    Command1.SetCaption(program().GetText(text::SearchStop));
  } else {
    Set_Caption_Texts();
  }
}

void Dialog_CercaLivelli::SearchFiles(bool byName, bool all) {
  Program& p = program();
  const int row = Combo_Folder.ListIndex();
  if (row < 0) {
    AskUser(p, p.GetText(text::SearchNoFolder), msg::kError);
    return;
  }
  std::string folder = Combo_Folder.List(row);
  const double now = OleDateNow();
  for (SearchedFolder& entry : p.SearchHistory)
    if (Trim(entry.Path) == folder) {
      entry.LastUsed = now;
      if (Trim(p.prefs.DefaultLoadDir) == Trim(p.GetText(text::SearchDefaultUnset2)))
        p.prefs.DefaultLoadDir = folder;
      break;
    }
  if (folder.size() > 1 && (folder.back() == '/' || folder.back() == '\\')) folder.pop_back();

  ZipSearchQuery query = MakeZipSearchQuery(p);
  query.kind = Combo_TipoFile.ListIndex();
  query.inside_zips = Check_CercaDentroZip.Value();
  if (byName) {
    const std::string typed = Trim(Text_Search.Text());
    if (typed.empty()) {
      AskUser(p, p.GetText(text::SearchNoWords), msg::kError);
      return;
    }
    words_ = SplitWords(typed);
    query.mode = ZipSearchQuery::Mode::ByName;
    query.words = words_;
  } else if (all) {
    query.mode = ZipSearchQuery::Mode::All;
  } else {
    static constexpr std::int32_t kIntervals[] = {text::SearchInterval24, text::SearchInterval7,
                                                  text::SearchInterval1};
    static constexpr double kUnits[] = {24, 7, 1};
    const int age = std::max(0, Combo_LastFiles.ListIndex());
    query.mode = ZipSearchQuery::Mode::ByDate;
    query.earliest = now - kUnits[age] * IntervalDays(Trim(p.GetText(kIntervals[age])));
  }

  List_Trovati.Clear();
  ShowSelection();
  Label_Info.SetCaption(p.GetText(text::SearchReading));
  SetSearching(true);
  Refresh();

  // The list is refilled in batches a few times a second, so that a search that finds
  // thousands of files doesn't refill it for each one.
  using Clock = std::chrono::steady_clock;
  auto last_shown = Clock::now();
  std::vector<std::string> pending;
  std::size_t found_count = 0;
  auto show = [&] {
    List_Trovati.AddItems(std::move(pending));
    pending.clear();
    Label_Info.SetCaption(p.GetText(text::SearchFoundCount) + std::to_string(found_count));
    p.ui().DoEvents();
    last_shown = Clock::now();
  };
  ZipSearchProgress progress;
  progress.found = [&](const fs::path& file) {
    pending.push_back(file.string());
    ++found_count;
  };
  progress.step = [&](std::size_t done, std::size_t total) {
    if (done == 1) Label_Info.SetCaption(p.GetText(text::SearchSearching));
    if (done % 16 != 0 && done != total) return;
    SetProgressPercent(ProgressBar1, static_cast<double>(total), static_cast<double>(done));
    if (Clock::now() - last_shown > std::chrono::milliseconds(200)) show();
  };
  progress.stop = [this] { return stop_; };
  SearchFolderTree(query, folder, progress, &p.ui());
  show();

  const bool closed = !IsLoaded();
  SetSearching(false);
  if (closed) return;
  Label_Info.SetCaption({});
  ProgressBar1.SetValue(0);
  if (List_Trovati.ListCount() > 0)
    List_Trovati.SetListIndex(0);
  else
    AskUser(p, p.GetText(text::SearchNothingFound), msg::kError);
  // A file on a CD can't be renamed or deleted.
  const bool on_cd = DriveTypeOfPath(p.platform(), folder) == kDriveCdRom;
  Pul_DeleteZip.SetEnabled(!on_cd);
  Pul_RenameZip.SetEnabled(!on_cd);
}

bool Dialog_CercaLivelli::QueryUnload() {
  // The close box of a running search stops it first.
  if (!searching_) return true;
  stop_ = true;
  return false;
}

void Dialog_CercaLivelli::ShowSelection() {
  const int row = List_Trovati.ListIndex();
  if (row < 0) {
    Label_InfoTrovate.SetCaption({});
    List_Trovati.SetToolTip({});
    return;
  }
  Label_InfoTrovate.SetCaption(std::to_string(row + 1) + " / " +
                               std::to_string(List_Trovati.ListCount()));
  const fs::path file = List_Trovati.List(row);
  std::error_code ec;
  const auto bytes = fs::file_size(file, ec);
  List_Trovati.SetToolTip(
      file.filename().string() + "  (" + FormatFileSize(ec ? 0.0 : static_cast<double>(bytes)) +
      ")  " + FormatOleDate(FileOleDate(file), program().GetText(text::SearchDateFormat)));
}

void Dialog_CercaLivelli::FindInList(int step, int start) {
  Program& p = program();
  const std::string wanted = Trim(Text_Find.Text());
  if (wanted.empty()) {
    AskUser(p, p.GetText(text::SearchFindEmpty), msg::kError);
    return;
  }
  if (List_Trovati.ListCount() == 0) {
    AskUser(p, p.GetText(text::SearchFindNoList), msg::kError);
    return;
  }
  for (int i = start; i >= 0 && i < List_Trovati.ListCount(); i += step)
    if (ContainsNoCase(List_Trovati.List(i), wanted)) {
      List_Trovati.SetListIndex(i);
      return;
    }
  AskUser(p, p.GetText(text::SearchFindNone), msg::kError);
}

std::string Dialog_CercaLivelli::SelectedFile(int no_selection) {
  const int row = List_Trovati.ListIndex();
  if (row >= 0) return List_Trovati.List(row);
  AskUser(program(), program().GetText(no_selection), msg::kError);
  return {};
}

void Dialog_CercaLivelli::Pul_OpenZip_Click() {
  const std::string file = SelectedFile(text::SearchOpenNoSelection);
  if (!file.empty()) program().platform().ShellOpen(file, {}, fs::path(file).parent_path());
}

void Dialog_CercaLivelli::Pul_CopyZip_Click() {
  Program& p = program();
  const std::string file = SelectedFile(text::SearchCopyNoSelection);
  if (file.empty()) return;
  const std::string name = ExtractFileName(file);
  const std::string ext = ExtractExtension(file);
  FileRequest request;
  request.title = p.GetText(text::SearchCopyTitle) + name;
  request.filter = p.GetText(text::SearchCopyFilter) + ext + " (*" + ext + ")|*" + ext;
  request.file_name = name;
  const std::string target = p.ui().AskSaveFile(request);
  if (target.empty()) return;
  std::error_code ec;
  if (fs::equivalent(file, target, ec)) return;  // a copy onto itself would lose the file
  CopyFileOver(file, target);
}

void Dialog_CercaLivelli::Pul_DeleteZip_Click() {
  Program& p = program();
  const std::string file = SelectedFile(text::SearchDeleteNoSelection);
  if (file.empty()) return;
  const int answer =
      AskUser(p, p.GetText(text::SearchDeleteAsk) + ExtractFileName(file) + " ?", msg::kYesNo);
  if (answer == msg::kNo || !DeleteFileForced(file)) return;
  List_Trovati.RemoveItem(List_Trovati.ListIndex());
  ShowSelection();
}

void Dialog_CercaLivelli::Pul_RenameZip_Click() {
  Program& p = program();
  const std::string file = SelectedFile(text::SearchRenameNoSelection);
  if (file.empty()) return;
  const std::string name = ExtractFileName(file);
  const std::string answer =
      AskInput(p, p.GetText(text::SearchRenamePrompt) + name,
               p.GetText(text::SearchRenameTitle) + "\"" + name + "\"", name);
  if (answer.empty()) return;
  const fs::path target = fs::path(file).parent_path() / answer;
  std::error_code ec;
  // A name is one name in the same folder, and never one that stands: nothing is replaced.
  const bool plain = answer.find('/') == std::string::npos && answer != "." && answer != "..";
  const bool taken = plain && fs::exists(fs::symlink_status(target, ec));
  if (plain && !taken) fs::rename(file, target, ec);
  if (!plain || taken || ec) {
    AskUser(p, p.GetText(text::SearchRenameFailed) + file, msg::kError);
    return;
  }
  List_Trovati.SetList(List_Trovati.ListIndex(), target.string());
  ShowSelection();
}

void Dialog_CercaLivelli::Pul_Ok_Click() {
  const std::string file = SelectedFile(text::SearchAddNoSelection);
  if (file.empty()) return;
  Chosen = file;
  ExitValue = true;
  Unload();
}

void Dialog_CercaLivelli::Command1_Click() {
  if (searching_) {
    stop_ = true;
    return;
  }
  ExitValue = false;
  Unload();
}

void Dialog_CercaLivelli::Pul_Help_Click() {
  ShowHelp(program(), help::CercaLivelli);
}

}  // namespace vardolin
