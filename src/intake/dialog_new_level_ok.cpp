// Done of the level properties: the checks that leave the form open for the user to mend the
// folder, then the level's files moved into the store.

#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "audio/dialog_converti_mp3.h"
#include "audio/wave_header.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "intake/completeness.h"
#include "intake/dialog_new_level.h"
#include "intake/level_file_list.h"
#include "intake/store_level.h"
#include "intake/text_ids.h"

#include <tuple>

namespace vardolin {

namespace fs = std::filesystem;

namespace {

bool AnyMatch(const fs::path& folder, const std::string& fragment) {
  return !ListFiles(folder, WithoutLeadingSeparators(fragment)).empty();
}

}  // namespace

// Steps that fail leave the form open with the work folder as it is, so the user can mend it
// and press Done again.
bool Dialog_NewLevel::PassesChecks() {
  Program& p = program();
  const std::string name = Trim(Text_NameLevel.Text());
  if (name.empty()) {
    AskUser(p, p.GetText(text::LevelNameMissing), msg::kError);
    return false;
  }
  LevelRecord& r = Record();
  r.Name = name;
  if (!ConvertAudioFiles(false, false)) return false;

  if (HoldsSources()) {
    if (AskUser(p, p.GetText(text::CompileTomQuestion), msg::kOkCancel) == msg::kCancel)
      return false;
    CompileTom();
    Refresh();
    if (HoldsSources()) return false;
  }

  if (!AnyMatch(WorkFolder, p.GetText(text::LevelFilePattern)) &&
      !AnyMatch(WorkFolder, p.GetText(text::PackedLevelFilePattern)) && r.CdNumber == 0 &&
      LevelIndex != 0) {
    AskUser(p, p.GetText(text::NoLevelFile, {"\r\n", "\r\n"}), msg::kError);
    return false;
  }

  std::string standard;
  if (!CheckLevelFileName(p, WorkFolder, standard) && r.CdNumber == 0) {
    AskUser(p, p.GetText(text::LevelFileNameUnsettled), msg::kError);
    return false;
  }
  if (!standard.empty() &&
      AskUser(p, p.GetText(text::StandardNameNoteQuestion, {"\r\n\"" + standard + "\"", "\r\n"}),
              msg::kYesNo) == msg::kYes)
    Text_Note.SetText(p.GetText(text::PlaysAsNote) + standard);

  FixScriptFiles(p, WorkFolder);
  CompleteScriptLevels(p, WorkFolder);
  r.Note = Trim(Text_Note.Text());
  return true;
}

namespace {

// While Done works, the windows it opens and its long steps let events through: the form's own
// buttons take no press then, so that Cancel can't give the record back under Done's hands.
class ButtonsHeld {
 public:
  explicit ButtonsHeld(Form& form) {
    for (Control* c : form.Controls())
      if (c->Kind() == ControlKind::Button && c->Enabled()) {
        c->SetEnabled(false);
        held_.push_back(c);
      }
  }
  ~ButtonsHeld() {
    for (Control* c : held_) c->SetEnabled(true);
  }
  ButtonsHeld(const ButtonsHeld&) = delete;
  ButtonsHeld& operator=(const ButtonsHeld&) = delete;

 private:
  std::vector<Control*> held_;
};

}  // namespace

void Dialog_NewLevel::Pul_Ok_Click() {
  if (done_running_) return;
  done_running_ = true;
  {
    ButtonsHeld held(*this);
    Done();
  }
  done_running_ = false;
}

void Dialog_NewLevel::Done() {
  Program& p = program();
  if (!PassesChecks()) return;
  LevelRecord& r = Record();

  if (p.prefs.CheckEqualLevels && IsNewLevel) {
    Label_Info.SetCaption(p.GetText(text::LookingForEqualLevel));
    Refresh();
    std::string file;
    const std::int32_t equal =
        FindEqualLevel(p, WorkFolder, LevelIndex, &ProgressBar1, file, true, false);
    if (equal >= 0 &&
        AskUser(p,
                p.GetText(text::EqualLevelQuestion,
                          {"\"" + file + "\"", "\"" + Trim(p.catalogue.levels[equal].Name) + "\""}),
                msg::kYesNo) == msg::kNo) {
      Pul_Cancel_Click();
      return;
    }
  }

  r.MoreInfoFile.clear();
  const int chosen = Combo_MoreInfo.ListIndex();
  if (chosen >= 0 && Combo_MoreInfo.ItemData(chosen) != -1)
    r.MoreInfoFile = Combo_MoreInfo.List(chosen);

  const fs::path level = HardDiskLevelFolder(p, r.Code);
  CopyMatchingFiles(p, WorkFolder, JoinFragment(level, p.GetText(text::LevelPlayFolder)), false,
                    p.GetText(text::SavegamePattern));
  DeleteMatchingFiles(WorkFolder, p.GetText(text::SavegamePatternDeleted));

  // The loading picture is a level file, not a screenshot of the player's.
  const std::string load_jpeg = WithoutLeadingSeparators(p.GetText(text::LoadJpegTarget));
  const fs::path shots = JoinFragment(level, p.GetText(text::LevelShotFolder));
  for (const fs::path& f : ListFiles(WorkFolder, p.GetText(text::ShotPattern)))
    if (!EqualsNoCase(f.filename().string(), load_jpeg)) {
      MakeFolder(shots);
      CopyFileOver(f, shots / f.filename());
    }

  DeleteFileForced(ResolveCase(JoinFragment(WorkFolder, p.GetText(text::JunkFile1))));
  DeleteFileForced(ResolveCase(JoinFragment(WorkFolder, p.GetText(text::JunkFile2))));

  if (FolderChanged() && r.CdNumber == 0 && !StoreFiles()) return;
  DeleteTemporaryFolder(text::RemovingTemporaryFolder);
  Close(true);
}

bool Dialog_NewLevel::ConvertAudioFiles(bool force, bool keepSources) {
  Program& p = program();
  if (!force && p.catalogue.header.WavInMp3) return true;
  std::vector<fs::path> music, samples;
  const std::string wave = p.GetText(text::WaveExtension);
  for (const fs::path& f : FileList) {
    if (!EndsWithNoCase(f.filename().string(), wave)) continue;
    bool refused = false;
    if (!NeedsWaveConversion(p, f, refused) || refused) continue;
    // The game's music tracks are named by their number; any other wave is a sound sample.
    const std::string base = ExtractBaseName(f.filename().string());
    const bool track = !base.empty() && base.find_first_not_of("0123456789") == std::string::npos;
    (track ? music : samples).push_back(f);
  }
  if (music.empty() && samples.empty()) return true;
  const fs::path work = JoinFragment(p.Home(), p.GetText(text::UnpackFolder));
  for (auto [files, kind, error] :
       {std::tuple{&music, wave_kind::kMusic, text::MusicNotConverted},
        std::tuple{&samples, wave_kind::kSample, text::SamplesNotConverted}}) {
    if (files->empty()) continue;
    std::string message;
    const bool ok = keepSources
                        ? RunAudioConversionOnCopies(p, *files, WorkFolder, kind, work, message)
                        : RunAudioConversion(p, *files, WorkFolder, kind, message);
    if (!ok) {
      AskUser(p, p.GetText(error) + message, msg::kError);
      RefreshFiles();
      return false;
    }
  }
  FilesChangedFlag = true;
  RefreshFiles();
  return true;
}

bool Dialog_NewLevel::StoreFiles() {
  Program& p = program();
  LevelRecord& r = Record();
  const fs::path level = HardDiskLevelFolder(p, r.Code);
  FilesFolder = JoinFragment(level, p.GetText(text::StoredFilesFolder));
  const CatalogueHeader& h = p.catalogue.header;
  // Whether the files go in as they are, and whether the level-file list is still to be written:
  // the packed store writes its own once it stands.
  bool plain = true, list_due = true;
  if (h.CompressFiles || h.WavInMp3) {
    Label_Info.SetCaption(p.GetText(text::StoringPacked));
    Refresh();
    plain = list_due = false;
    if (!StoreCompressedLevel(p, WorkFolder, r, ZlibTool1, &Label_Info, &ProgressBar1) &&
        AskUser(p, p.GetText(text::StorePlainQuestion), msg::kYesNo) == msg::kYes) {
      Label_Info.SetCaption(p.GetText(text::CopyingFiles));
      plain = WorkFolderIsTemporary;
      list_due = true;
    }
  }
  if (plain && WorkFolderIsTemporary) {
    Label_Info.SetCaption(p.GetText(text::StoringPlain));
    Refresh();
    if (!ReplaceStoredFiles(p, WorkFolder, FilesFolder)) {
      Label_Info.SetCaption({});
      AskUser(p, p.GetText(text::StoreKeptOldFiles, {FilesFolder.string()}), msg::kError);
      return false;
    }
  }
  if (list_due) {
    const LevelFileList list = BuildLevelFileList(p, WorkFolder);
    if (!list.empty()) WriteLevelFileList(p, r.Code, list);
  }
  UpdateSizes();
  return true;
}

void Dialog_NewLevel::UpdateSizes() {
  Program& p = program();
  LevelRecord& r = Record();
  const fs::path level = HardDiskLevelFolder(p, r.Code);
  const double files = FolderSizeBytes(FilesFolder, "*");
  double user = 0;
  for (std::int32_t id : {text::UserSizeFolder1, text::UserSizeFolder2, text::UserSizeFolder3})
    user += FolderSizeBytes(JoinFragment(level, p.GetText(id)), "*");
  if (static_cast<std::size_t>(LevelIndex) < p.catalogue.levels.size()) {
    AddLevelSize(p, files - r.FilesSize, LevelIndex, SizeKind::Files);
    AddLevelSize(p, user - r.UserSize, LevelIndex, SizeKind::User);
  } else {
    // A level being added enters the totals when it enters the table.
    r.FilesSize = ToRecordSize(files);
    r.UserSize = ToRecordSize(user);
  }
}

}  // namespace vardolin
