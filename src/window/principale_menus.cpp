// Where each entry of the main window's menu hangs and which text gives its caption.

#include "archive/text_ids.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/settings/dialog_settings.h"
#include "savegames/dialog_joy_stick.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"
#include "window/principale.h"
#include "window/principale_savegames.h"
#include "window/principale_shots_menu.h"

namespace vardolin {

const std::vector<MenuPlace>& PrincipaleMenuTree() {
  static const std::vector<MenuPlace> tree = {
      {"mnu_File", "", text::MnuFile},
      {"mnu_New", "mnu_File", text::MnuNew},
      {"mnu_Load", "mnu_File", text::MnuLoad},
      {"mnu_Save", "mnu_File", text::MnuSave},
      {"mnu_SaveAs", "mnu_File", text::MnuSaveAs},
      {"Mnu_Exit", "mnu_File", text::MnuExit},
      {"mnu_Level", "", text::MnuLevel},
      {"mnu_AddLevel", "mnu_Level", text::MnuAddLevel},
      {"mnu_Property", "mnu_Level", text::MnuProperty},
      {"mnu_SearchLivelli", "mnu_Level", text::MnuSearchLivelli},
      {"mnu_ShowAutoreInfo", "mnu_Level", text::MnuShowAutoreInfo},
      {"mnu_Language", "mnu_Level", text::MnuLanguage},
      {"mnu_SetMylanguage", "mnu_Language", text::MnuSetMylanguage},
      {"mnu_RestoreLanguage", "mnu_Language", text::MnuRestoreLanguage},
      {"mnu_RemoveLevel", "mnu_Level", text::MnuRemoveLevel},
      {"mnu_Export", "mnu_Level", text::MnuExport},
      {"mnu_ShowListaUrl", "mnu_Level", text::MnuShowListaUrl},
      {"mnu_SaveGames", "", text::MnuSaveGames},
      {"mnu_ShowSavegames", "mnu_SaveGames", text::MnuShowSavegames},
      {"mnu_ImpSavegames", "mnu_SaveGames", text::MnuImpSavegames},
      {"mnu_ImportSaveGame", "mnu_ImpSavegames", text::MnuImportSaveGame},
      {"mnu_ImportSaveGameSingle", "mnu_ImpSavegames", text::MnuImportSaveGameSingle},
      {"mnu_SearchSavegame", "mnu_SaveGames", text::MnuSearchSavegame},
      {"mnu_FindSavegameNote", "mnu_SearchSavegame", text::MnuFindSavegameNote},
      {"mnu_FineNextSavegame", "mnu_SearchSavegame", text::MnuFineNextSavegame},
      {"mnu_FindPreviousSavegame", "mnu_SearchSavegame", text::MnuFindPreviousSavegame},
      {"mnu_MandaSavegameEmail", "mnu_SaveGames", text::MnuMandaSavegameEmail},
      {"mnu_SendSaveGameEmail", "mnu_MandaSavegameEmail", text::MnuSendSaveGameEmail},
      {"mnu_SendSingoloSavegame", "mnu_MandaSavegameEmail", text::MnuSendSingoloSavegame},
      {"mnu_ExportSavegame", "mnu_SaveGames", text::MnuExportSavegame},
      {"mnu_BackupSavegame", "mnu_SaveGames", text::MnuBackupSavegame},
      {"mnu_RestoreSavegames", "mnu_SaveGames", text::MnuRestoreSavegames},
      {"mnu_Edit", "", text::MnuEdit},
      {"mnu_ShowScreenShot", "mnu_Edit", text::MnuShowScreenShot},
      {"mnu_Zoom", "mnu_Edit", text::MnuZoom},
      {"mnu_AddScreenshot", "mnu_Edit", text::MnuAddScreenshot},
      {"mnu_CaptureScreen", "mnu_Edit", text::MnuCaptureScreen},
      {"mnu_DeleteShot", "mnu_Edit", text::MnuDeleteShot},
      {"mnu_RenameShot", "mnu_Edit", text::MnuRenameShot},
      {"mnu_SaveShot", "mnu_Edit", text::MnuSaveShot},
      {"mnu_ResizeSave", "mnu_Edit", text::MnuResizeSave},
      {"mnu_ScegliImmagine", "mnu_Edit", text::MnuScegliImmagine},
      {"mnu_OpenEditor", "mnu_Edit", text::MnuOpenEditor},
      {"mnu_CopyPathInClip", "mnu_Edit", text::MnuCopyPathInClip},
      {"mnu_SendScreenshotemail", "mnu_Edit", text::MnuSendScreenshotemail},
      {"mnu_PropertyScreenShot", "mnu_Edit", text::MnuPropertyScreenShot},
      {"mnu_LevelEditor", "", text::MnuLevelEditor},
      {"mnu_InstallTrle", "mnu_LevelEditor", text::MnuInstallTrle},
      {"mnu_InstallTrleFolder", "mnu_InstallTrle", text::MnuInstallTrleFolder},
      {"mnu_InstallComprTrle", "mnu_InstallTrle", text::MnuInstallComprTrle},
      {"mnu_SetupTrle", "mnu_LevelEditor", text::MnuSetupTrle},
      {"mnu_SetOriginale", "mnu_LevelEditor", text::MnuSetOriginale},
      {"mnu_ImportWads", "mnu_LevelEditor", text::MnuImportWads},
      {"mnu_PatchTomb4", "mnu_LevelEditor", text::MnuPatchTomb4},
      {"mnu_CompareTrle", "mnu_LevelEditor", text::MnuCompareTrle},
      {"mnu_ShowUrlList", "mnu_LevelEditor", text::MnuShowUrlList},
      {"mnu_Tools", "", text::MnuTools},
      {"mnu_ConvertAudio", "mnu_Tools", text::MnuConvertAudio},
      {"mnu_DecodeMp3", "mnu_ConvertAudio", text::MnuDecodeMp3},
      {"mnu_EncodeMp3", "mnu_ConvertAudio", text::MnuEncodeMp3},
      {"mnu_ConvertWav", "mnu_ConvertAudio", text::MnuConvertWav},
      {"mnu_Manutenzione", "mnu_Tools", text::MnuManutenzione},
      {"mnu_CorrectArchiveCD", "mnu_Manutenzione", text::MnuCorrectArchiveCD},
      {"mnu_CalcolaSize", "mnu_Manutenzione", text::MnuCalcolaSize},
      {"mnu_MoveArc", "mnu_Manutenzione", text::MnuMoveArc},
      {"mnu_FaiFullBackup", "mnu_Manutenzione", text::MnuFaiFullBackup},
      {"mnu_Recover", "mnu_Manutenzione", text::MnuRecover},
      {"mnu_ControllaUguali", "mnu_Tools", text::MnuControllaUguali},
      {"mnu_CreaInfoTr4", "mnu_Tools", text::MnuCreaInfoTr4},
      {"mnu_CopiaFileInfos", "mnu_Tools", text::MnuCopiaFileInfos},
      {"mnu_SetLanguageAll", "mnu_Tools", text::MnuSetLanguageAll},
      {"mnu_RestoreAll", "mnu_Tools", text::MnuRestoreAll},
      {"mnu_MoveOnCd", "mnu_Tools", text::MnuMoveOnCd},
      {"mnu_Pref", "", text::MnuPref},
      {"mnu_Settings", "mnu_Pref", text::MnuSettings},
      {"mnu_PrefArchive", "mnu_Pref", text::MnuPrefArchive},
      {"mnu_Help", "", text::MnuHelp},
      {"mnu_FindHelp", "mnu_Help", text::MnuFindHelp},
      {"mnu_HelpSaveGameMan", "mnu_Help", text::MnuHelpSaveGameMan},
      {"mnu_HelpFaq", "mnu_Help", text::MnuHelpFaq},
      {"mnu_About", "mnu_Help", text::MnuAbout},
      {"mnu_SaveGameHid", "", text::MnuSaveGameHid},
      {"mnu_ChangeImageSavegame", "mnu_SaveGameHid", text::MnuChangeImageSavegame},
      {"mnu_SaveGameHid2", "", text::MnuSaveGameHid2},
      {"mnu_SalvaSavegame", "mnu_SaveGameHid2", text::MnuSalvaSavegame},
      {"mnu_SendSavegame", "mnu_SaveGameHid2", text::MnuSendSavegame},
      {"mnu_DelSavegame", "mnu_SaveGameHid2", text::MnuDelSavegame},
      {"mnu_PropertySavegame", "mnu_SaveGameHid2", text::MnuPropertySavegame},
  };
  return tree;
}

// The screenshot menu. Capturing is told by its own entry; sending by e-mail goes with the
// savegame transfer.
void Principale::WireScreenshotMenus() {
  mnu_Zoom.SetHandler([this] { ZoomSelectedShot(*this); });
  mnu_AddScreenshot.SetHandler([this] { AddScreenshot(*this); });
  mnu_DeleteShot.SetHandler([this] { DeleteShot(*this); });
  mnu_RenameShot.SetHandler([this] { RenameShot(*this); });
  mnu_SaveShot.SetHandler([this] { SaveShotCopy(*this); });
  mnu_ResizeSave.SetHandler([this] { ResizeSelectedShot(*this); });
  mnu_OpenEditor.SetHandler([this] { OpenShotInGraphicsProgram(*this); });
  mnu_CopyPathInClip.SetHandler([this] { CopyShotPath(*this); });
  mnu_PropertyScreenShot.SetHandler([this] { ShowShotProperties(*this); });
}

// Screen capture: the entry only tells how a screenshot is taken while playing.
void Principale::WireCapture() {
  mnu_CaptureScreen.SetHandler([this] { mnu_CaptureScreen_Click(); });
}

void Principale::WireSavegameMenus() {
  mnu_BackupSavegame.SetHandler([this] { ArchiveLevelSavegames(*this, true); });
  mnu_RestoreSavegames.SetHandler([this] { RestoreLevelSavegames(*this); });
  mnu_DelSavegame.SetHandler([this] { DeleteSelectedSavegame(*this); });
  mnu_SalvaSavegame.SetHandler([this] { SaveSelectedSavegameAs(*this); });
  mnu_PropertySavegame.SetHandler([this] { ShowSavegameProperties(*this); });
  mnu_FindSavegameNote.SetHandler([this] { FindSavegameNoteAsk(*this); });
  mnu_FineNextSavegame.SetHandler([this] { FindNextSavegameNote(*this); });
  mnu_FindPreviousSavegame.SetHandler([this] { FindPreviousSavegameNote(*this); });
  // The entries and the button tie a picture to the selected savegame; the list's click shows the
  // new tie.
  const auto choose_image = [this] {
    const std::filesystem::path savegame = GetSelectedSavegame(*this);
    if (savegame.empty() || !ChooseImageForSavegame(*this, savegame)) return;
    List_SaveGameArchiviati_Click();
  };
  mnu_ScegliImmagine.SetHandler(choose_image);
  mnu_ChangeImageSavegame.SetHandler(choose_image);
  Pul_ChangeScreenshot.SetHandler(choose_image);
}

// The settings window; its Pul_SetJoy leads on to the joystick's settings.
void Principale::mnu_Settings_Click() {
  Program& p = program();
  Dialog_Settings settings(p);
  settings.ImpostaValori();
  settings.Pul_SetJoy.SetHandler([&p] { OpenJoystickSettings(p); });
  settings.Pul_SetJoy.SetEnabled(true);
  settings.Pul_Help.SetHandler([&p] { ShowHelp(p, help::Settings); });
  p.ui().ShowModal(settings);
}

}  // namespace vardolin
