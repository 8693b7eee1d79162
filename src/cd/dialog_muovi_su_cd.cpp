#include "cd/dialog_muovi_su_cd.h"

#include <algorithm>

#include "archive/catalogue_file.h"
#include "archive/level_store.h"
#include "cd/cd_copy_check.h"
#include "cd/cd_drives.h"
#include "cd/cd_images.h"
#include "cd/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr const char* kCrLf = "\r\n";

std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}

// A device string's vendor and model: fields 5 and 7 when split at "'".
std::string WriterName(const std::string& device) {
  std::vector<std::string> fields(1);
  for (char ch : device) {
    if (ch == '\'')
      fields.emplace_back();
    else
      fields.back() += ch;
  }
  const auto field = [&](std::size_t n) { return n < fields.size() ? Trim(fields[n]) : ""; };
  return Trim(field(5) + " " + field(7));
}

// An image name in `folder` that no file has taken: "<cd>.iso", then "<cd> (2).iso" ...
fs::path FreeImageName(const fs::path& folder, const std::string& cd, const std::string& ext) {
  fs::path candidate = folder / (cd + "." + ext);
  for (int n = 2; FileExists(candidate) || FolderExists(candidate); ++n)
    candidate = folder / (cd + " (" + std::to_string(n) + ")." + ext);
  return candidate;
}

}  // namespace

std::string LevelCdStartFile(const Program& program, bool editor, bool installer,
                             const std::string& catalogue_file_name) {
  std::string text;
  if (editor) text += program.GetText(text::MuoviStartEditorLine, {"\""}) + "\"" + kCrLf;
  if (installer) text += program.GetText(text::MuoviStartVardolinLine, {"\""}) + "\"" + kCrLf;
  if (!catalogue_file_name.empty())
    text +=
        program.GetText(text::MuoviStartArchiveLine) + "\"\\" + catalogue_file_name + "\"" + kCrLf;
  return text;
}

Dialog_MuoviSuCd::Dialog_MuoviSuCd(Program& program)
    : Form(program, "Dialog_MuoviSuCd", " Create Vardolin CD"), engine_(program) {}

void Dialog_MuoviSuCd::Pul_Help_Click() {
  ShowHelp(program(), help::MuoviSuCd);
}

void Dialog_MuoviSuCd::Set_Caption_Texts() {
  CaptionFromText(text::MuoviCaption);
  CaptionFromText(Frame_Comandi, text::MuoviFrameComandi);
  CaptionFromText(Label_Unita, text::MuoviLabelUnita);
  CaptionFromText(Label_Lettera, text::MuoviLabelLettera);
  CaptionFromText(Label_Mb, text::MuoviLabelMb);
  CaptionFromText(Label_Speed, text::MuoviLabelSpeed);
  CaptionFromText(Check_Archivio, text::MuoviCheckArchivio);
  CaptionFromText(Check_CreaImage, text::MuoviCheckCreaImage);
  CaptionFromText(Check_Vardolin, text::MuoviCheckVardolin);
  CaptionFromText(Check_Trle, text::MuoviCheckTrle);
  CaptionFromText(Check_EncloseFolder, text::MuoviCheckEncloseFolder);
  CaptionFromText(Pul_SfogliaFolder, text::MuoviBrowse);
  CaptionFromText(Pul_Start, running_ ? text::MuoviStop : text::MuoviStart);
  CaptionFromText(Pul_Cancel, text::MuoviCancel);
  CaptionFromText(Pul_Help, text::MuoviHelp);
}

bool Dialog_MuoviSuCd::ImageMode() const {
  const int row = Combo_Unita.ListIndex();
  return row >= 0 && Combo_Unita.ItemData(row) == kImageFilesRow;
}

bool Dialog_MuoviSuCd::PrepareForm() {
  Program& p = program();
  engine_.HideToolWindows = true;
  // Without a writer (or without the burning tool) the CDs become image files: a failed search
  // is no reason to refuse, it goes to the log.
  if (!engine_.BurnCommand(cw_ScanBus))
    WriteLog(p, p.GetText(text::MuoviScanFailed) + engine_.ErrorMessage());
  Combo_Unita.Clear();
  for (std::size_t i = 0; i < engine_.FoundWriters.size(); ++i)
    Combo_Unita.AddItem(WriterName(engine_.FoundWriters[i]), static_cast<std::int64_t>(i));
  Combo_Unita.AddItem(p.GetText(text::MuoviImageRow), kImageFilesRow);
  Combo_Lettera.Clear();
  for (const CdDrive& drive : ListCdDrives(p.platform())) Combo_Lettera.AddItem(CdDriveUnit(drive));
  if (!engine_.ChosenUnit.empty())
    Combo_Lettera.SetListIndex(Combo_Lettera.FindText(engine_.ChosenUnit));
  Combo_Mb.Clear();
  for (int row = 0; row < static_cast<int>(std::size(kCdCapacitiesMb)); ++row)
    Combo_Mb.AddItem(p.GetText(text::MuoviCapacity650 + row), kCdCapacitiesMb[row]);
  Combo_Mb.SetListIndex(0);
  Combo_Speed.Clear();
  for (int row = 0; row < kSpeedRows; ++row)
    Combo_Speed.AddItem(std::to_string((row + 1) * 2) + p.GetText(text::MuoviSpeedSuffix),
                        (row + 1) * 2);
  ShowProgressDialog(p, p.GetText(text::MuoviMeasuringLevels));
  levels_ = MeasureLevelsToMove(p);
  HideProgressDialog(p);
  // Taken behind the measuring: a cancel or a failure goes back to the archive as it is, with
  // its levels' sizes as they are now.
  saved_ = p.catalogue;
  saved_last_archive_ = p.prefs.LastArchive;

  Check_CreaImage.SetValue(true);
  Check_Archivio.SetValue(true);
  Combo_Speed.SetListIndex(1);
  if (engine_.FoundWriters.size() == 1)
    Combo_Unita.SetListIndex(0);
  else if (engine_.FoundWriters.empty()) {
    Combo_Unita.SetListIndex(0);
    Label_Info.SetCaption(p.GetText(text::MuoviNoWriterFound));
  }
  return true;
}

void Dialog_MuoviSuCd::Combo_Unita_Click() {
  // Image files are the intermediate image kept: the choice is fixed while they are chosen.
  const bool images = ImageMode();
  if (images) Check_CreaImage.SetValue(true);
  Check_CreaImage.SetEnabled(!images);
  Combo_Lettera.SetEnabled(!images);
  Combo_Speed.SetEnabled(!images);
}

void Dialog_MuoviSuCd::Check_EncloseFolder_Click() {
  if (!Check_EncloseFolder.Value()) Label_Folder.SetCaption({});
}

void Dialog_MuoviSuCd::Pul_SfogliaFolder_Click() {
  Program& p = program();
  std::error_code ec;
  const std::string chosen =
      p.ui().AskFolder(fs::current_path(ec).string(), p.GetText(text::MuoviFolderTitle));
  if (chosen.empty()) return;
  Label_Folder.SetCaption(chosen);
  Check_EncloseFolder.SetValue(true);
}

void Dialog_MuoviSuCd::SetRunning(bool running) {
  running_ = running;
  Frame_Comandi.SetEnabled(!running);
  Pul_Cancel.SetEnabled(!running);
  Pul_Help.SetEnabled(!running);
  Pul_Start.SetCaption(program().GetText(running ? text::MuoviStop : text::MuoviStart));
}

void Dialog_MuoviSuCd::PutSavedCopyBack() {
  program().catalogue = saved_;
  program().prefs.LastArchive = saved_last_archive_;
}

void Dialog_MuoviSuCd::Pul_Cancel_Click() {
  Program& p = program();
  PutSavedCopyBack();
  SaveCatalogueFile(p, p.prefs.LastArchive);
  Unload();
}

void Dialog_MuoviSuCd::Pul_Start_Click() {
  Program& p = program();
  if (running_) {
    engine_.StopRequested = true;
    return;
  }
  const struct {
    const ComboBox& combo;
    std::int32_t text;
  } required[] = {{Combo_Mb, text::MuoviNoCapacity},
                  {Combo_Speed, text::MuoviNoSpeed},
                  {Combo_Unita, text::MuoviNoWriter}};
  for (const auto& r : required) {
    if (r.combo.ListIndex() < 0) {
      AskUser(p, p.GetText(r.text), msg::kError);
      return;
    }
  }
  if (!ImageMode()) {
    if (Combo_Lettera.ListIndex() < 0) {
      AskUser(p, p.GetText(text::MuoviNoDrive), msg::kError);
      return;
    }
    engine_.ChosenUnit = Combo_Lettera.SelectedText();
  }
  if (Check_Trle.Value() && !Check_Vardolin.Value() &&
      AskUser(p, p.GetText(text::MuoviAddVardolinToo, {std::string(kCrLf) + kCrLf}),
              msg::kYesNo | msg::kQuestion) == msg::kYes)
    Check_Vardolin.SetValue(true);
  if (!Check_Archivio.Value() && !Check_Vardolin.Value() && !Check_Trle.Value()) {
    AskUser(p, p.GetText(text::MuoviNothingChosen), msg::kWarning);
    return;
  }
  SetRunning(true);
  if (!MakeCds()) {
    Label_Info.SetCaption({});
    ProgressBar1.SetValue(0);
    SetRunning(false);
    return;
  }
  Made = true;
  int moved = 0;
  for (const LevelRecord& r : p.catalogue.levels) {
    const auto old = std::find_if(saved_.levels.begin(), saved_.levels.end(),
                                  [&r](const LevelRecord& s) { return s.Code == r.Code; });
    if (r.CdNumber != 0 && old != saved_.levels.end() && old->CdNumber == 0) ++moved;
  }
  p.prefs.LastArchive = saved_last_archive_;
  CatalogueChanged(p);
  if (moved > 0) {
    if (AskUser(p, p.GetText(text::MuoviRemoveMoved, {std::to_string(moved), kCrLf, kCrLf}),
                msg::kYesNo | msg::kQuestion) != msg::kNo) {
      p.catalogue.header.OnCd = true;
    } else {
      p.catalogue.header = saved_.header;
      p.catalogue.levels = saved_.levels;
    }
    CatalogueChanged(p);
  }
  SetRunning(false);
  Unload();
}

std::string Dialog_MuoviSuCd::CapacityText() const {
  return Combo_Mb.SelectedText();
}

bool Dialog_MuoviSuCd::Failed(std::int32_t text_id) {
  Program& p = program();
  AskUser(p, (text_id ? p.GetText(text_id) : std::string()) + engine_.ErrorMessage(), msg::kError);
  return false;
}

bool Dialog_MuoviSuCd::ChooseInstaller(const fs::path& temp, std::vector<std::string>& files) {
  Program& p = program();
  if (AskUser(p, p.GetText(text::MuoviChooseInstaller), msg::kOkCancel | msg::kInformation) !=
      msg::kOk)
    return false;
  FileRequest request;
  request.title = p.GetText(text::MuoviInstallerTitle);
  request.filter = p.GetText(text::MuoviInstallerFilter);
  const std::string chosen = p.ui().AskOpenFile(request);
  if (chosen.empty()) return false;
  if (!FileExists(chosen)) {
    AskUser(p, p.GetText(text::MuoviInstallerMissing, {Quoted(chosen)}) + Quoted(chosen),
            msg::kError);
    return false;
  }
  // The program ships as one Debian package; a zip brings it with whatever lies beside it.
  if (!EqualsNoCase(ExtractExtension(chosen), p.GetText(text::MuoviInstallerZip))) {
    files = {chosen};
    return true;
  }
  Label_Info.SetCaption(p.GetText(text::MuoviUnpackingInstaller, {ExtractFileName(chosen)}));
  if (!ExtractZip(p, chosen, temp, &ProgressBar1, false, true)) {
    AskUser(p, p.GetText(text::MuoviInstallerUnzipFailed), msg::kError);
    return false;
  }
  for (const fs::path& f : ListFiles(temp, "*.*")) files.push_back(f.string());
  return true;
}

bool Dialog_MuoviSuCd::AddFolderToCd(const std::string& folder) {
  const std::string name = ExtractFileName(folder);
  const std::string target = folder.size() < 4 || name.empty()
                                 ? program().GetText(text::MuoviRootFolderTarget)
                                 : "\\" + name;
  if (engine_.BurnCommand(cw_AddItem, target + "\\=" + folder)) return true;
  return Failed(0);
}

bool Dialog_MuoviSuCd::AddSharedItems(const std::vector<std::string>& installer,
                                      const fs::path& start, const fs::path& catalogue_copy) {
  Program& p = program();
  for (const std::string& file : installer)
    if (!engine_.BurnCommand(cw_AddItem, p.GetText(text::MuoviInstallerTarget) + file))
      return Failed(text::MuoviInstallerItemFailed);
  if (Check_Trle.Value() && !engine_.BurnCommand(cw_AddItem, p.GetText(text::MuoviEditorTarget) +
                                                                 Trim(p.prefs.EditorFolder)))
    return Failed(text::MuoviEditorItemFailed);
  if (FileExists(start)) {
    if (!engine_.BurnCommand(cw_AddItem, "\\=" + start.string()))
      return Failed(text::MuoviStartFileItemFailed);
    const fs::path program_file = JoinFragment(p.Home(), p.GetText(text::MuoviStartProgram));
    if (!engine_.BurnCommand(cw_AddAutoRun_Inf, "\\=" + program_file.string()))
      return Failed(text::MuoviAutorunFailed);
  }
  if (Check_Archivio.Value() && !engine_.BurnCommand(cw_AddItem, "\\=" + catalogue_copy.string()))
    return Failed(text::MuoviCatalogueItemFailed);
  return true;
}

bool Dialog_MuoviSuCd::MakeCds() {
  Program& p = program();
  const fs::path temp = JoinFragment(p.Home(), p.GetText(text::MuoviTempFolder));
  plans_.clear();
  images_.clear();
  if (!MakeEmptyFolder(temp)) return false;
  // Whatever ends the run, the temporary folder goes with it.
  struct TempGuard {
    Program& program;
    fs::path folder;
    ~TempGuard() { DeleteLevelTree(program, folder, nullptr, nullptr); }
  } guard{p, temp};
  const bool images = ImageMode();
  if (images && ImageFolder.empty()) {
    ImageFolder = p.ui().AskFolder(Trim(p.catalogue.header.SecondaryDir),
                                   p.GetText(text::MuoviImageFolderTitle));
    if (ImageFolder.empty()) return false;
  }
  if (images && !MakeFolder(ImageFolder)) return false;

  std::vector<std::string> installer;
  if (Check_Vardolin.Value() && !ChooseInstaller(temp, installer)) return false;
  if (Check_Trle.Value() && !(MakeEditorClean && MakeEditorClean(p))) return false;
  // A second run starts from the archive as the form found it.
  p.catalogue.header = saved_.header;
  p.catalogue.levels = saved_.levels;
  const fs::path catalogue_copy = JoinFragment(temp, p.GetText(text::MuoviCatalogueCopy));

  const std::string folder = Trim(Label_Folder.Caption());
  double folder_bytes = 0;
  if (Check_EncloseFolder.Value()) {
    if (folder.empty()) {
      AskUser(p, p.GetText(text::MuoviNoFolder), msg::kError);
      return false;
    }
    Label_Info.SetCaption(p.GetText(text::MuoviMeasuringFolder) + ExtractFileName(folder));
    folder_bytes = FolderSizeBytes(folder, "*");
  }
  const double capacity =
      CdCapacityBytes(static_cast<int>(Combo_Mb.ItemData(Combo_Mb.ListIndex())));
  double room = capacity - (Check_Archivio.Value() ? 2 * kCdMegabyte : 0);
  if (folder_bytes > capacity) {
    AskUser(p,
            p.GetText(text::MuoviFolderTooBig) + Quoted(folder) + " (" +
                FormatFileSize(folder_bytes) + ")",
            msg::kError);
    return false;
  }
  for (const std::string& file : installer)
    room -= FolderSizeBytes(ExtractFolder(file), ExtractFileName(file));
  if (Check_Trle.Value()) {
    Label_Info.SetCaption(p.GetText(text::MuoviMeasuringEditor));
    room -= FolderSizeBytes(Trim(p.prefs.EditorFolder), "*");
  }

  const std::string archive_name = CdArchiveName(p);
  std::int32_t first_number = Check_Archivio.Value() ? NextCdNumber(p) : 1;
  double left = 0;
  if (Check_Archivio.Value()) {
    std::vector<std::int32_t> codes;
    for (int i : levels_.indices) codes.push_back(p.catalogue.levels[i].Code);
    const CdSplit split =
        SplitLevelsOnCds(codes, levels_.sizes, room, capacity, first_number, archive_name);
    for (std::size_t n = 0; n < levels_.indices.size(); ++n)
      p.catalogue.levels[levels_.indices[n]].CdNumber = split.cd_of_level[n];
    plans_ = split.plans;
    left = split.left;
  }
  const bool folder_on_own_cd = Check_EncloseFolder.Value() && folder_bytes > left;

  const int speed = (Combo_Speed.ListIndex() + 1) * 2;
  std::string letter;
  if (images) {
    engine_.BurnCommand(cw_ClearItems);
    letter = ImageFolder;
  } else {
    const std::string device = engine_.FoundWriters[Combo_Unita.ItemData(Combo_Unita.ListIndex())];
    if (!engine_.BurnCommand(cw_Init, device, std::to_string(speed)))
      return Failed(text::MuoviWriterFailed);
    letter = engine_.WriterUnit;
  }
  CatalogueHeader& h = p.catalogue.header;
  h.MainDir = (fs::path(letter) / archive_name).string();
  h.OnCd = false;
  h.CdCount = plans_.empty() ? first_number : plans_.back().number;
  if (Check_Archivio.Value() && !SaveCatalogueFile(p, catalogue_copy)) {
    AskUser(p, p.GetText(text::MuoviCatalogueCopyFailed) + Quoted(catalogue_copy.string()),
            msg::kError);
    return false;
  }
  const fs::path start = JoinFragment(temp, p.GetText(text::MuoviStartFile));
  if ((Check_Vardolin.Value() || Check_Trle.Value()) &&
      !WriteTextFile(
          start, LevelCdStartFile(p, Check_Trle.Value(), Check_Vardolin.Value(),
                                  Check_Archivio.Value() ? ExtractFileName(catalogue_copy.string())
                                                         : std::string())))
    return false;

  engine_.ProgressLabel = &Label_Info;
  engine_.ProgressBar = &ProgressBar1;
  engine_.ProgressEnabled = true;
  if (!AddSharedItems(installer, start, catalogue_copy)) return false;
  const bool use_iso = Check_CreaImage.Value();

  if (!plans_.empty()) {
    const int count = static_cast<int>(plans_.size()) + (folder_on_own_cd ? 1 : 0);
    if (AskUser(p, p.GetText(text::MuoviHowManyCds, {std::to_string(count)}) + CapacityText() + "?",
                msg::kYesNo | msg::kQuestion) != msg::kYes)
      return false;
    for (std::size_t i = 0; i < plans_.size(); ++i) {
      const CdPlan& plan = plans_[i];
      bool burn = true;
      if (!images) {
        const int answer = AskUser(
            p,
            p.GetText(text::MuoviInsertBlank, {std::to_string(i + 1), letter + kCrLf + kCrLf,
                                               std::to_string(i + 1), std::to_string(i + 2)}),
            msg::kYesNoCancel | msg::kQuestion);
        if (answer == msg::kCancel) return false;
        burn = answer == msg::kYes;
      }
      engine_.VolumeId = p.GetText(text::MuoviVolumeId) + std::to_string(plan.number);
      for (std::int32_t code : plan.codes) {
        const std::string item = plan.folder + LevelFolderName(p, code) +
                                 "\\=" + GetLevelFolder(p, code, false).string();
        if (!engine_.BurnCommand(cw_AddItem, item)) return Failed(0);
      }
      if (i + 1 == plans_.size() && Check_EncloseFolder.Value() && !folder_on_own_cd &&
          !AddFolderToCd(folder))
        return false;
      if (burn && !MakeOneCd(use_iso, letter, plan.number, &plan)) return false;
      engine_.BurnCommand(cw_ClearItems);
      if (!images) engine_.BurnCommand(cw_DeleteIso);
    }
    if (folder_on_own_cd) {
      if (!images &&
          AskUser(p, p.GetText(text::MuoviFolderOwnCd) + letter, msg::kOkCancel) != msg::kOk)
        return false;
      engine_.BurnCommand(cw_ClearItems);
      if (!AddFolderToCd(folder) || !MakeOneCd(use_iso, letter, plans_.back().number + 1, nullptr))
        return false;
    }
  } else {
    if (!Check_Vardolin.Value() && !Check_Trle.Value()) {
      AskUser(p, p.GetText(text::MuoviNothingToMove), msg::kInformation);
      return false;
    }
    if (AskUser(
            p,
            p.GetText(text::MuoviHowManyCds, {folder_on_own_cd ? "2" : "1"}) + CapacityText() + "?",
            msg::kYesNo | msg::kQuestion) != msg::kYes)
      return false;
    if (!images && AskUser(p, p.GetText(text::MuoviSingleCd) + letter, msg::kOkCancel) != msg::kOk)
      return false;
    if (Check_EncloseFolder.Value() && !folder_on_own_cd && !AddFolderToCd(folder)) return false;
    engine_.VolumeId = p.GetText(text::MuoviVolumeIdShared) + std::to_string(first_number);
    if (!MakeOneCd(use_iso, letter, first_number, nullptr)) return false;
    if (folder_on_own_cd) {
      if (!images &&
          AskUser(p, p.GetText(text::MuoviFolderSecondCd) + letter, msg::kOkCancel) != msg::kOk)
        return false;
      engine_.BurnCommand(cw_ClearItems);
      if (!AddFolderToCd(folder) || !MakeOneCd(use_iso, letter, first_number + 1, nullptr))
        return false;
    }
  }
  if (!images) engine_.BurnCommand(cw_DeleteIso);
  engine_.ProgressEnabled = false;
  if (images)
    AskUser(p, p.GetText(text::MuoviImagesDone, {Quoted(ImageFolder)}), msg::kInformation);
  else
    AskUser(p, p.GetText(text::MuoviDone), msg::kOkOnly);
  return true;
}

bool Dialog_MuoviSuCd::MakeOneCd(bool use_iso, const std::string& letter, int number,
                                 const CdPlan* plan) {
  if (ImageMode()) return WriteImage(number, plan);
  return BurnOneCd(use_iso, letter, number);
}

bool Dialog_MuoviSuCd::WriteImage(int number, const CdPlan* plan) {
  Program& p = program();
  const fs::path image =
      FreeImageName(ImageFolder, CdName(p, number), p.GetText(text::MuoviImageExtension));
  engine_.IsoPath = image.string();
  Label_Info.SetCaption(p.GetText(text::MuoviWritingImage, {std::to_string(number)}));
  if (!engine_.BurnCommand(cw_CreateIso)) return Failed(0);
  // The image is the level's only other copy once its files leave the disk: each level must be
  // in it whole.
  const std::string files = WithoutLeadingSeparators(p.GetText(text::RemoveMovedCdFolder));
  for (std::int32_t code : plan ? plan->codes : std::vector<std::int32_t>{}) {
    const std::string inside =
        ReplaceAll(plan->folder + LevelFolderName(p, code) + "/" + files, "\\", "/");
    const CopyCheck check = CheckFolderInImage(
        image, inside, JoinFragment(GetLevelFolder(p, code, false), "\\" + files));
    if (!check.whole) {
      AskUser(p, p.GetText(text::MuoviImageBroken, {Quoted(image.string()), check.difference}),
              msg::kError);
      return false;
    }
  }
  images_.push_back(image.string());
  return RememberCdImage(p, number, image);
}

bool Dialog_MuoviSuCd::BurnOneCd(bool use_iso, const std::string& letter, int number) {
  Program& p = program();
  if (use_iso && !engine_.BurnCommand(cw_CreateIso)) return Failed(0);
  for (;;) {
    bool good = engine_.BurnCommand(use_iso ? cw_BurnIso : cw_BurnWithoutIso);
    if (!good) {
      Failed(0);
    } else if (AskUser(p, p.GetText(text::MuoviAskVerify), msg::kYesNo | msg::kQuestion) ==
               msg::kYes) {
      good = engine_.BurnCommand(cw_VerifyCd, p.GetText(text::MuoviVerifyKind));
      if (!good) Failed(0);
    }
    if (good) return true;
    const int answer = AskUser(p, p.GetText(text::MuoviBurnFailed, {std::to_string(number), kCrLf}),
                               msg::kAbortRetryIgnore | msg::kWarning);
    if (answer == msg::kAbort) return false;
    if (answer == msg::kIgnore) {
      if (!use_iso) {
        AskUser(p, p.GetText(text::MuoviIgnoreWithoutImage), msg::kError);
        return false;
      }
      return AskUser(p,
                     p.GetText(text::MuoviIgnoreWithImage,
                               {Quoted(engine_.IsoPath), std::string(kCrLf) + kCrLf}),
                     msg::kOkCancel) == msg::kOk;
    }
    engine_.Speed = std::max(2, engine_.Speed / 2);
    AskUser(p, p.GetText(text::MuoviRetrySlower, {std::to_string(number)}) + letter,
            msg::kInformation);
  }
}

}  // namespace vardolin
