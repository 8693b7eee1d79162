#include "startup/startup.h"

#include <algorithm>
#include <filesystem>

#include "archive/catalogue_file.h"
#include "archive/catalogue_sizes.h"
#include "archive/dialog_new_arc.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/message_styles.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/forms/form.h"
#include "foundation/platform/desktop_integration.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "startup/base_level.h"
#include "startup/command_line.h"

#include "archive/editor_backup.h"
#include "archive/store_repair.h"
#include "editor/find_editor.h"
#include "editor/install_editor.h"
#include "foundation/dialogs/dialog_progress.h"
#include "play/editor_restore.h"
#include "play/engine_patch.h"
#include "play/text_ids.h"
#include "savegames/savegame_sets.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr std::int32_t kMaxCheckTenths = 10;

void GiveUp(Program& program) {
  program.ClosingDown = true;
  if (program.main.form) program.main.form->Unload();
}

// Step 1: a file that an earlier version named otherwise takes its present name.
void RenameEarlierFile(Program& program) {
  fs::path present = JoinFragment(program.Home(), program.GetText(text::RenamedFileNew));
  fs::path earlier = JoinFragment(program.Home(), program.GetText(text::RenamedFileOld));
  if (FileExists(present) || !FileExists(earlier)) return;
  std::error_code ec;
  fs::rename(earlier, present, ec);
}

// Step 7: values that this version no longer accepts, and a joystick that isn't there.
void SettleSettings(Program& program) {
  Preferences& p = program.prefs;
  p.CheckTenths = std::min(p.CheckTenths, kMaxCheckTenths);
  p.Reserved = false;
  JoystickState state;
  if (!program.platform().ReadJoystick(p.JoystickNumber, state)) {
    p.EnableJoystick = false;
    return;
  }
  program.JoystickNeutralX = state.x;
  program.JoystickNeutralY = state.y;
}

void ShowError(Program& program, const std::string& text) {
  AskUser(program, text, msg::kError);
}

// Steps 16 to 18. False when start-up stops here.
bool OpenCatalogue(Program& program) {
  std::string last = Trim(program.prefs.LastArchive);
  if (!last.empty()) {
    if (!FileExists(last)) {
      ShowError(program, program.GetText(text::CatalogueMissing) + last);
      program.prefs.LastArchive.clear();
    } else if (!LoadCatalogueFile(program, last)) {
      if (!program.ClosingDown) {
        ShowError(program, program.GetText(text::CatalogueUnreadable) + last);
        program.prefs.LastArchive.clear();
      } else {
        if (AskUser(program, program.GetText(text::AskOtherCatalogue), msg::kYesNo) != msg::kYes) {
          if (program.main.form) program.main.form->Unload();
          return false;
        }
        if (!BrowseForCatalogue(program)) return false;
        program.ClosingDown = false;
      }
    }
  }
  if (Trim(program.prefs.LastArchive).empty()) {
    Dialog_NewArc first(program);
    program.ui().ShowModal(first);
    if (!first.CreateNew) BrowseForCatalogue(program);
  }
  if (Trim(program.prefs.LastArchive).empty()) NewCatalogue(program);
  if (!program.catalogue.levels.empty() && program.BaseLevelBuilt) UpdateLevelSizes(program, 0);
  return true;
}

void ShowChosenPanel(Program& program) {
  Form* main = program.main.form;
  if (!main) return;
  if (auto* shots = main->Find<Frame>("Frame_ScreenShots"))
    shots->SetVisible(program.prefs.ShowScreenshotPanel);
  if (auto* games = main->Find<Frame>("Frame_SaveGames"))
    games->SetVisible(!program.prefs.ShowScreenshotPanel);
}

// Step 11: an editor setup folder named on the command line is installed before anything looks
// for the editor.
bool InstallFromSetupFolder(Program& program, const std::string& folder) {
  ShowProgressDialog(program, program.GetText(text::InstallingEditor));
  Dialog_Progress& dialog = *ProgressDialog(program);
  bool done = InstallEditorFromFolder(program, folder, dialog.Label_Info, dialog.ProgressBar1);
  HideProgressDialog(program);
  if (!done) ShowError(program, program.GetText(text::EditorInstallFailed));
  return done;
}

// Step 21: what a new version cleans up once, after the settings file changed its format.
void CleanUpAfterUpgrade(Program& program) {
  HideSplash(program);
  ApplyEnginePatch(program, false);
  if (AskUser(program, program.GetText(text::UpgradeRestoreAsk, {"\r\n"}), msg::kYesNo) ==
      msg::kYes) {
    ShowProgressDialog(program, program.GetText(text::UpgradeRestoreProgress));
    RestoreEditorConfiguration(program, ProgressDialogLabel(program), ProgressDialogBar(program),
                               false);
    HideProgressDialog(program);
  }
  RepairLevelStore(program);
  RestoreBasicFiles(program, program.main.info, program.main.bar);
}

}  // namespace

void StartUp(Program& program, const LoadResult& prefs) {
  if (program.StartedUp) return;
  program.StartedUp = true;

  RenameEarlierFile(program);
  // The Windows system library that older systems lacked has no counterpart here.
  program.NewWindowsFamily = true;
  program.GameRunning = false;
  program.ClosingDown = false;
  CommandLineArgs args = ParseCommandLine(program, program.CommandLine);
  program.lists = BuildDataLists();
  program.BackupFolder =
      JoinFragment(program.Home(), program.GetText(text::BackupFolderName)).string();
  if (prefs.FirstRun) {
    RegisterCatalogueType(program);
    CreateProgramShortcut(program);
  }
  SettleSettings(program);
  if (!args.catalogue.empty()) program.prefs.LastArchive = args.catalogue;
  if (program.main.timer1) program.main.timer1->SetInterval(program.prefs.CheckTenths * 100);
  program.CatalogueDirty = false;
  program.catalogue = Catalogue{};

  if (!args.editor_setup.empty() && !InstallFromSetupFolder(program, args.editor_setup)) {
    GiveUp(program);
    return;
  }
  if (!FindEditorFolder(program)) return;
  if (!MakeEditorBackup(program, false)) {
    program.CatalogueDirty = false;
    GiveUp(program);
    return;
  }
  if (!EnsureBaseLevel(program)) {
    ShowError(program, program.GetText(text::BaseLevelFailed));
    GiveUp(program);
    return;
  }
  if (!OpenCatalogue(program)) return;
  RecoverSavegameWork(program);
  FinishBrokenRestore(program);
  ShowChosenPanel(program);
  if (prefs.PrefsUpgraded) CleanUpAfterUpgrade(program);
}

}  // namespace vardolin
