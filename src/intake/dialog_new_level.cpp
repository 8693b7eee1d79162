#include "intake/dialog_new_level.h"

#include <system_error>

#include "archive/catalogue_ops.h"
#include "archive/level_files.h"
#include "archive/level_store.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/ole_date.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "intake/add_files.h"
#include "intake/apply_level_info.h"
#include "intake/dialog_cerca_livelli.h"
#include "intake/level_language.h"
#include "intake/packed_level_expand.h"
#include "intake/self_installer.h"
#include "intake/setup_program.h"
#include "intake/store_level.h"
#include "intake/text_ids.h"
#include "play/active_level.h"
#include "web/dialog_siti.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"
#include "web/text_ids.h"
#include "web/zip_layer.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// Archives inside archives are unpacked again on each pass; a package that keeps yielding new
// archives past this depth is taken to be hostile and left as it is.
constexpr int kMaxUnpackRounds = 8;

// The name a package suggests for its level: its file name without the archive's endings
// ("Desert Gate.tar.gz" names "Desert Gate") and without the words that name the installer
// rather than the level ("Frozen Keep Setup.exe" names "Frozen Keep").
std::string PackageName(const std::string& path) {
  std::string name = ExtractBaseName(path);
  if (EndsWithNoCase(name, ".tar")) name.resize(name.size() - 4);
  for (;;) {
    const std::size_t cut = name.find_last_of(" _-.");
    if (cut == std::string::npos) break;
    const std::string last = name.substr(cut + 1);
    if (!EqualsNoCase(last, "setup") && !EqualsNoCase(last, "installer") &&
        !EqualsNoCase(last, "install"))
      break;
    const std::string rest = Trim(name.substr(0, cut));
    if (rest.empty()) break;
    name = rest;
  }
  return name;
}

std::int64_t FileSize(const fs::path& file) {
  std::error_code ec;
  const auto size = fs::file_size(file, ec);
  return ec ? 0 : static_cast<std::int64_t>(size);
}

}  // namespace

Dialog_NewLevel::Dialog_NewLevel(Program& program)
    : Form(program, "Dialog_NewLevel", " Level properties") {
  List_Files.SetDblClickHandler([this] { List_Files_DblClick(); });
  Pul_SetMyLanguage.SetHandler([this] { Pul_SetMyLanguage_Click(); });
  Pul_Help.SetHandler([this] { ShowHelp(this->program(), help::NewLevel); });
}

Dialog_NewLevel::~Dialog_NewLevel() {
  if (!closed_ && WorkFolderIsTemporary) DeleteLevelTree(program(), WorkFolder, nullptr, nullptr);
}

void Dialog_NewLevel::Set_Caption_Texts() {}

LevelRecord& Dialog_NewLevel::Record() const {
  Catalogue& c = program().catalogue;
  if (LevelIndex >= 0 && static_cast<std::size_t>(LevelIndex) < c.levels.size())
    return c.levels[LevelIndex];
  return program().PendingLevel;
}

void Dialog_NewLevel::ImpostaValori(std::int32_t IndiceLivello, const std::string& NomeZipLivello) {
  Program& p = program();
  p.LastPackagePath.clear();
  p.InfoFileFlag = false;
  FilesChangedFlag = InstallerFound = PatchApplied = false;
  Failed = ExitValue = false;
  LevelIndex = IndiceLivello;
  IsNewLevel = static_cast<std::size_t>(LevelIndex) == p.catalogue.levels.size();
  RecordBackup = Record();

  const LevelRecord& r = Record();
  const fs::path level = GetLevelFolder(p, r.Code, true);
  if (p.CdRefused) {
    AskUser(p, p.GetText(text::LevelCdMissing), msg::kError);
    FilesFolder = JoinFragment(HardDiskLevelFolder(p, r.Code), p.GetText(text::FilesFolderOnCd));
  } else {
    FilesFolder = JoinFragment(level, p.GetText(text::FilesFolderOfLevel));
  }
  WorkFolder = FilesFolder;
  if (!p.prefs.NoDecompress) {
    fs::path temporary;
    if (!PrepareLevelFiles(p, FilesFolder, temporary, false)) {
      AskUser(p, p.GetText(text::CannotExpandForViewing), msg::kError);
      Failed = true;
      return;
    }
    if (!temporary.empty()) {
      WorkFolder = temporary;
      WorkFolderIsTemporary = true;
    }
  }

  Snapshot.clear();
  for (const fs::path& f : ListFiles(WorkFolder, "*"))
    Snapshot.push_back({f.filename().string(), FileOleDate(f), FileSize(f)});
  FilesChangedFlag = IsNewLevel;
  RefreshFiles();

  Text_NameLevel.SetText(Trim(r.Name));
  Text_Note.SetText(Trim(r.Note));
  if (!Trim(r.MoreInfoFile).empty()) SelectMoreInfo(ExtractFileName(Trim(r.MoreInfoFile)));
  Label_Info.SetCaption(p.GetText(text::PropertiesSizes) + FormatFileSize(r.FilesSize) + " + " +
                        FormatFileSize(r.UserSize) + " = " +
                        FormatFileSize(static_cast<double>(r.FilesSize) + r.UserSize));
  if (!NomeZipLivello.empty()) AddPackage(NomeZipLivello, true);
}

void Dialog_NewLevel::SelectMoreInfo(const std::string& name) {
  const int i = Combo_MoreInfo.FindText(name);
  if (i >= 0) Combo_MoreInfo.SetListIndex(i);
}

void Dialog_NewLevel::UnpackArchivesInFolder() {
  Program& p = program();
  for (int round = 0; round < kMaxUnpackRounds; ++round) {
    std::vector<fs::path> archives;
    for (const fs::path& f : ListFiles(WorkFolder, "*"))
      if (IsArchiveToUnpack(p, f.filename().string())) archives.push_back(f);
    if (archives.empty()) return;
    for (const fs::path& archive : archives) {
      const std::string name = archive.filename().string();
      Label_Info.SetCaption(p.GetText(text::UnpackingArchiveNamed, {name}));
      Refresh();
      // The archive's own copy goes first, so an entry of the same name can take its place.
      const fs::path aside = WorkFolder / (".unpacking-" + name);
      std::error_code ec;
      fs::rename(archive, aside, ec);
      const fs::path from = ec ? archive : aside;
      std::string why;
      const bool ok =
          IsZipPackage(p, name)
              ? AddFileToFolder(p, from, WorkFolder, true, &Label_Info, &ProgressBar1, &why)
              : ExtractWithTool(p, from, WorkFolder, false, &ProgressBar1, false, &why);
      if (!ok)
        AskUser(p, WithReason(name + p.GetText(text::CannotUnpackArchive), why), msg::kError);
      DeleteFileForced(from);
    }
    Label_Info.SetCaption({});
  }
  // Archives still inside archives this deep are left as they are, and the user is told why the
  // level may lack its files.
  for (const fs::path& f : ListFiles(WorkFolder, "*"))
    if (IsArchiveToUnpack(p, f.filename().string())) {
      AskUser(p,
              p.GetText(text::ArchivesNestedTooDeep,
                        {f.filename().string(), std::to_string(kMaxUnpackRounds)}),
              msg::kWarning);
      return;
    }
}

void Dialog_NewLevel::TakeTravellingProgram() {
  Program& p = program();
  const fs::path carried = JoinFragment(WorkFolder, p.GetText(text::TravellingProgram));
  if (!FileExists(carried)) return;
  const fs::path editors =
      JoinFragment(p.prefs.EditorFolder, p.GetText(text::EditorTravellingProgram));
  if (!p.prefs.EditorFolder.empty() &&
      CompareFileVersions(ResolveCase(carried), ResolveCase(editors)) > 0)
    CopyFileOver(ResolveCase(carried), ResolveCase(editors));
  DeleteFileForced(ResolveCase(carried));
}

void Dialog_NewLevel::RefreshFiles() {
  Program& p = program();
  UnpackSelfInstallers(p, WorkFolder, &Label_Info);
  UnpackArchivesInFolder();
  ExpandPackedLevel(p, WorkFolder, &Label_Info, &ProgressBar1);
  TakeTravellingProgram();
  // The steps above leave their last words and value behind when they end.
  Label_Info.SetCaption({});
  ProgressBar1.SetValue(0);

  FileList = ListFiles(WorkFolder, "*");
  double total = 0;
  List_Files.Clear();
  for (std::size_t i = 0; i < FileList.size(); ++i) {
    total += static_cast<double>(FileSize(FileList[i]));
    List_Files.AddItem(FileList[i].filename().string(), static_cast<std::int64_t>(i));
  }

  std::string remembered = Combo_MoreInfo.SelectedText();
  if (remembered.empty()) remembered = p.GetText(text::MoreInfoDefault);
  Combo_MoreInfo.Clear();
  Combo_MoreInfo.AddItem(p.GetText(text::MoreInfoNoneEntry), -1);
  for (std::size_t i = 0; i < FileList.size(); ++i)
    Combo_MoreInfo.AddItem(FileList[i].filename().string(), static_cast<std::int64_t>(i));
  SelectMoreInfo(remembered);

  bool tom = false;
  for (const fs::path& f : FileList)
    tom = tom || WildcardMatch(f.filename().string(), p.GetText(text::UncompiledPattern));
  Pul_CompileTom.SetVisible(tom);
  Label_Size.SetCaption(p.GetText(text::FileCountLabel) + std::to_string(FileList.size()) + ", " +
                        FormatFileSize(total) + ")");
  std::string why;
  fs::path mine;
  Pul_SetMyLanguage.SetVisible(!FileList.empty() && Record().CdNumber == 0 && Record().Code != 0 &&
                               IsLevelLanguageOk(p, WorkFolder, why, mine));
  Pul_SearchLevel.SetVisible(FileList.empty());
  Pul_RimuoviTutti.SetVisible(!FileList.empty());
}

void Dialog_NewLevel::AddPackage(const std::string& path, bool showProgressDialog) {
  Program& p = program();
  Label* label = &Label_Info;
  ProgressBar* bar = &ProgressBar1;
  if (showProgressDialog) {
    ShowProgressDialog(p, " ");
    if (Dialog_Progress* d = ProgressDialog(p)) {
      label = &d->Label_Info;
      bar = &d->ProgressBar1;
    }
  }
  p.LastPackagePath = path;
  std::string why;
  if (!AddFileToFolder(p, path, WorkFolder, false, label, bar, &why))
    AskUser(p, WithReason(path + p.GetText(text::CannotUnpackArchive), why), msg::kError);
  Text_NameLevel.SetText(PackageName(path));
  if (showProgressDialog) HideProgressDialog(p);
  FilesChangedFlag = true;
  RefreshFiles();
  if (IsNewLevel) ApplyLevelInfo(*this);
  SuggestNameAndInfo();
}

void Dialog_NewLevel::SuggestNameAndInfo() {
  Program& p = program();
  // An info file or install script named the level; a readme it didn't name is still proposed.
  if (!p.InfoFileFlag && Trim(Text_NameLevel.Text()).empty() && !p.LastPackagePath.empty())
    Text_NameLevel.SetText(PackageName(p.LastPackagePath));
  if (Combo_MoreInfo.ListIndex() > 0) return;
  for (const char* word : {"walkth", "read", "note", "Solu", "Instal"})
    for (int i = 1; i < Combo_MoreInfo.ListCount(); ++i)
      if (ContainsNoCase(Combo_MoreInfo.List(i), word)) {
        Combo_MoreInfo.SetListIndex(i);
        return;
      }
}

void Dialog_NewLevel::AfterAdd(bool added) {
  if (!added) return;
  FilesChangedFlag = true;
  RefreshFiles();
  if (!IsNewLevel) return;
  ApplyLevelInfo(*this);
  if (!IsLoaded()) return;  // a wad the level can't do without was refused
  RunSetup({});
  SuggestNameAndInfo();
}

void Dialog_NewLevel::Pul_AddFile_Click() {
  if (Record().CdNumber != 0 && CheckLevelNotOnCd(program(), LevelIndex)) return;
  AfterAdd(AddFromFile(program(), WorkFolder, &ProgressBar1, &Label_Info, false, {}));
}

void Dialog_NewLevel::Pul_SearchLevel_Click() {
  if (Record().CdNumber != 0 && CheckLevelNotOnCd(program(), LevelIndex)) return;
  Dialog_CercaLivelli search(program());
  search.ImpostaValori();
  program().ui().ShowModal(search);
  if (search.ExitValue) AddPackage(search.Chosen, false);
}

void Dialog_NewLevel::Pul_AddFolder_Click() {
  if (Record().CdNumber != 0 && CheckLevelNotOnCd(program(), LevelIndex)) return;
  AfterAdd(AddFromFolder(program(), WorkFolder, &ProgressBar1, &Label_Info, false, ".*"));
}

bool Dialog_NewLevel::AddSource(const fs::path& source) {
  if (FolderExists(source)) {
    AfterAdd(AddFromFolder(program(), WorkFolder, &ProgressBar1, &Label_Info, false, ".*", source));
    return true;
  }
  program().LastPackagePath = source.string();
  std::string why;
  const bool added =
      AddFileToFolder(program(), source, WorkFolder, false, &Label_Info, &ProgressBar1, &why);
  if (!added)
    AskUser(program(),
            WithReason(source.filename().string() + program().GetText(text::FileNotAdded), why),
            msg::kError);
  AfterAdd(added);
  return added;
}

void Dialog_NewLevel::Pul_SetMyLanguage_Click() {
  Program& p = program();
  std::string why;
  if (!SetLevelLanguage(p, WorkFolder, why, Record().Code == GetActiveLevelCode(p))) {
    AskUser(p, p.GetText(text::LanguageFormFailed) + "\r\n" + why, msg::kError);
    return;
  }
  RefreshFiles();
  AskUser(p, p.GetText(text::LanguageFormDone), msg::kInformation);
}

void Dialog_NewLevel::Pul_Refresh_Click() {
  RefreshFiles();
  if (!IsNewLevel) return;
  ApplyLevelInfo(*this);
  if (IsLoaded()) RunSetup({});
}

void Dialog_NewLevel::RunSetup(std::string destination) {
  // While a setup runs, Cancel stops it instead of closing the form.
  setup_running_ = true;
  stop_setup_ = false;
  const SetupOutcome outcome = RunSetupIfAny(program(), WorkFolder, destination, InstallerFound,
                                             {&Label_Info, &ProgressBar1, [this] {
                                                program().ui().DoEvents();
                                                return stop_setup_;
                                              }});
  setup_running_ = false;
  if (outcome == SetupOutcome::Collected) {
    FilesChangedFlag = true;
    RefreshFiles();
  }
}

void Dialog_NewLevel::Pul_Remove_Click() {
  Program& p = program();
  const int row = List_Files.ListIndex();
  if (row < 0) {
    AskUser(p, p.GetText(text::NoFileChosen), msg::kError);
    return;
  }
  const fs::path file = FileList[static_cast<std::size_t>(List_Files.ItemData(row))];
  if (AskUser(p, p.GetText(text::RemoveFileQuestion, {file.filename().string()}), msg::kYesNo) ==
      msg::kNo)
    return;
  DeleteFileForced(file);
  FilesChangedFlag = true;
  RefreshFiles();
}

void Dialog_NewLevel::Pul_RimuoviTutti_Click() {
  DeleteMatchingFiles(WorkFolder, "*");
  RefreshFiles();
}

void Dialog_NewLevel::List_Files_DblClick() {
  Program& p = program();
  const int row = List_Files.ListIndex();
  if (row < 0) return;
  fs::path file = FileList[static_cast<std::size_t>(List_Files.ItemData(row))];
  if (EndsWithNoCase(file.filename().string(), p.GetText(text::PackedSuffixThree))) {
    file = ExpandFileForViewing(p, file, true);
    if (file.empty()) return;
  }
  p.platform().ShellOpen(file.string(), {}, file.parent_path());
}

void Dialog_NewLevel::DeleteTemporaryFolder(std::int32_t message) {
  if (!WorkFolderIsTemporary) return;
  Label_Info.SetCaption(program().GetText(message));
  Refresh();
  DeleteLevelTree(program(), WorkFolder, nullptr, nullptr);
  WorkFolderIsTemporary = false;
}

void Dialog_NewLevel::Pul_Cancel_Click() {
  Program& p = program();
  if (setup_running_) {
    stop_setup_ = true;
    return;
  }
  Record() = RecordBackup;
  DeleteTemporaryFolder(text::DeletingTemporaryFolder);
  // A user with no level of their own yet is shown where levels are found.
  if (p.catalogue.levels.size() == 1 &&
      AskUser(p, p.GetText(text::OnlyOneLevelOfferSites), msg::kYesNo) == msg::kYes)
    ShowUrlListWindow(p, url_type::kLevels, false);
  Close(false);
}

void Dialog_NewLevel::Close(bool ok) {
  ExitValue = ok;
  closed_ = true;
  Unload();
}

void Dialog_NewLevel::Form_Unload() {
  // The close box gives up the changes as Cancel does.
  if (closed_) return;
  closed_ = true;
  Record() = RecordBackup;
  DeleteTemporaryFolder(text::DeletingTemporaryFolder);
  ExitValue = false;
}

bool Dialog_NewLevel::FolderChanged() const {
  if (FilesChangedFlag) return true;
  const std::vector<fs::path> now = ListFiles(WorkFolder, "*");
  if (now.size() != Snapshot.size()) return true;
  for (const fs::path& f : now) {
    const std::string name = f.filename().string();
    bool same = false;
    for (const SnapshotEntry& s : Snapshot)
      if (EqualsNoCase(s.name, name)) {
        same = s.size == FileSize(f) && s.date == FileOleDate(f);
        break;
      }
    if (!same) return true;
  }
  return false;
}

}  // namespace vardolin
