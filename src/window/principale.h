#pragma once
// The main window: the level chooser, the savegame and screenshot panels, the status line at
// its foot and the whole menu. Its load handler starts the program and its unload handler ends
// it. Menu entries whose work isn't part of the program yet stay disabled.

#include <cstdint>
#include <optional>
#include <vector>

#include "foundation/forms/form.h"
#include "foundation/settings/preferences.h"
#include "play/game_watcher.h"
#include "savegames/capture_source.h"
#include "savegames/joystick.h"
#include "savegames/replaced_notes.h"
#include "savegames/savegame_panel_state.h"
#include "savegames/shot_panel_state.h"

namespace vardolin {

// Where each menu entry hangs: the name of the menu that holds it ("" for the menu bar and for
// the pop-up menus, which are not in the bar) and the text of its caption.
struct MenuPlace {
  const char* name;
  const char* parent;
  std::int32_t text;
};
const std::vector<MenuPlace>& PrincipaleMenuTree();

class Principale : public Form {
 public:
  explicit Principale(Program& program);
  ~Principale() override;

  // Shows the screenshot panel or the savegame panel, as the settings choose.
  void ShowChosenPanel();
  // The level chosen in Combo_Livelli: its code, none when nothing is chosen; its index in the
  // catalogue, -1 when none is chosen or the catalogue no longer holds it.
  std::optional<std::int32_t> ChosenLevelCode() const;
  int ChosenLevelIndex() const;
  // While a game runs, closing the window asks first (principale_play.cpp).
  bool QueryUnload() override;

  // What reading the settings found at load; start-up takes its course from them.
  LoadResult PrefsLoad;

  // The menu bar and the pop-up menus.
  Menu mnu_File{*this, "mnu_File", "File"};
  Menu mnu_New{*this, "mnu_New", "New archive"};
  Menu mnu_Load{*this, "mnu_Load", "Load archive ..."};
  Menu mnu_Save{*this, "mnu_Save", "Save archive"};
  Menu mnu_SaveAs{*this, "mnu_SaveAs", "Save archive as ..."};
  Menu Mnu_Exit{*this, "Mnu_Exit", "Exit"};
  Menu mnu_Level{*this, "mnu_Level", "Levels"};
  Menu mnu_AddLevel{*this, "mnu_AddLevel", "Add a new level ..."};
  Menu mnu_Property{*this, "mnu_Property", "Properties of the level ..."};
  Menu mnu_SearchLivelli{*this, "mnu_SearchLivelli", "Search levels in zip files ..."};
  Menu mnu_ShowAutoreInfo{*this, "mnu_ShowAutoreInfo", "Infos about author ..."};
  Menu mnu_Language{*this, "mnu_Language", "Language of level"};
  Menu mnu_SetMylanguage{*this, "mnu_SetMylanguage", "Set my language in current level"};
  Menu mnu_RestoreLanguage{*this, "mnu_RestoreLanguage",
                           "Restore original language in current level"};
  Menu mnu_RemoveLevel{*this, "mnu_RemoveLevel", "Remove level from archive"};
  Menu mnu_Export{*this, "mnu_Export", "Export level in a zip file ..."};
  Menu mnu_ShowListaUrl{*this, "mnu_ShowListaUrl", "Web addresses of levels ..."};
  Menu mnu_SaveGames{*this, "mnu_SaveGames", "Savegames"};
  Menu mnu_ShowSavegames{*this, "mnu_ShowSavegames", "Show savegames"};
  Menu mnu_ImpSavegames{*this, "mnu_ImpSavegames", "Import savegames"};
  Menu mnu_ImportSaveGame{*this, "mnu_ImportSaveGame", "Import savegames from a folder ..."};
  Menu mnu_ImportSaveGameSingle{*this, "mnu_ImportSaveGameSingle",
                                "Receive savegame from my friend ..."};
  Menu mnu_SearchSavegame{*this, "mnu_SearchSavegame", "Search in savegame notes"};
  Menu mnu_FindSavegameNote{*this, "mnu_FindSavegameNote", "Find ... (Ctrl+F)"};
  Menu mnu_FineNextSavegame{*this, "mnu_FineNextSavegame", "Find next (Ctrl+N)"};
  Menu mnu_FindPreviousSavegame{*this, "mnu_FindPreviousSavegame", "Find previous (Ctrl+P)"};
  Menu mnu_MandaSavegameEmail{*this, "mnu_MandaSavegameEmail", "Send savegames by e-mail"};
  Menu mnu_SendSaveGameEmail{*this, "mnu_SendSaveGameEmail", "Choose savegames to send ..."};
  Menu mnu_SendSingoloSavegame{*this, "mnu_SendSingoloSavegame", "Send the selected savegame"};
  Menu mnu_ExportSavegame{*this, "mnu_ExportSavegame", "Export savegames ..."};
  Menu mnu_BackupSavegame{*this, "mnu_BackupSavegame",
                          "Free tombraider slot and archive savegames (F9 while you are playing)"};
  Menu mnu_RestoreSavegames{*this, "mnu_RestoreSavegames",
                            "Restore in slots old savegames (F11 while you are playing)"};
  Menu mnu_Edit{*this, "mnu_Edit", "ScreenShots"};
  Menu mnu_ShowScreenShot{*this, "mnu_ShowScreenShot", "Show screenshots"};
  Menu mnu_Zoom{*this, "mnu_Zoom", "Zoom"};
  Menu mnu_AddScreenshot{*this, "mnu_AddScreenshot", "Add a screenshot ..."};
  Menu mnu_CaptureScreen{*this, "mnu_CaptureScreen",
                         "Capture screenshot ([Print Screen] key  while you are playing)"};
  Menu mnu_DeleteShot{*this, "mnu_DeleteShot", "Delete screenshot"};
  Menu mnu_RenameShot{*this, "mnu_RenameShot", "Rename screenshot ..."};
  Menu mnu_SaveShot{*this, "mnu_SaveShot", "Save a copy as ..."};
  Menu mnu_ResizeSave{*this, "mnu_ResizeSave", "Resize and save ..."};
  Menu mnu_ScegliImmagine{*this, "mnu_ScegliImmagine", "Choose image for the savegame ..."};
  Menu mnu_OpenEditor{*this, "mnu_OpenEditor", "Open image with graphical program"};
  Menu mnu_CopyPathInClip{*this, "mnu_CopyPathInClip", "Copy full path in clipboard"};
  Menu mnu_SendScreenshotemail{*this, "mnu_SendScreenshotemail", "Send screenshot by e-mail"};
  Menu mnu_PropertyScreenShot{*this, "mnu_PropertyScreenShot", "Properties"};
  Menu mnu_LevelEditor{*this, "mnu_LevelEditor", "Level-Editor"};
  Menu mnu_InstallTrle{*this, "mnu_InstallTrle", "Install Level Editor"};
  Menu mnu_InstallTrleFolder{*this, "mnu_InstallTrleFolder",
                             "Install Level Editor from a TRLE folder"};
  Menu mnu_InstallComprTrle{*this, "mnu_InstallComprTrle", "Install Compress Level Editor"};
  Menu mnu_SetupTrle{*this, "mnu_SetupTrle", "Change graphical and audio settings of Level Editor"};
  Menu mnu_SetOriginale{*this, "mnu_SetOriginale",
                        "Restore original configuration of Level Editor ..."};
  Menu mnu_ImportWads{*this, "mnu_ImportWads", "Import wads ..."};
  Menu mnu_PatchTomb4{*this, "mnu_PatchTomb4", "Patch tomb4 to get fast loading"};
  Menu mnu_CompareTrle{*this, "mnu_CompareTrle", "Compare TRLE mirror folders ..."};
  Menu mnu_ShowUrlList{*this, "mnu_ShowUrlList", "Download wads and patches ..."};
  Menu mnu_Tools{*this, "mnu_Tools", "Tools"};
  Menu mnu_ConvertAudio{*this, "mnu_ConvertAudio", "Convert audio files "};
  Menu mnu_DecodeMp3{*this, "mnu_DecodeMp3", "Decode: MP3 -> WAV"};
  Menu mnu_EncodeMp3{*this, "mnu_EncodeMp3", "Encode: WAV -> MP3"};
  Menu mnu_ConvertWav{*this, "mnu_ConvertWav", "Convert: WAV - >  different WAV format"};
  Menu mnu_Manutenzione{*this, "mnu_Manutenzione", "Archive maintenance"};
  Menu mnu_CorrectArchiveCD{*this, "mnu_CorrectArchiveCD", "Correction of CD archive"};
  Menu mnu_CalcolaSize{*this, "mnu_CalcolaSize", "Re-compute archive size"};
  Menu mnu_MoveArc{*this, "mnu_MoveArc", "Move Archive Folder"};
  Menu mnu_FaiFullBackup{*this, "mnu_FaiFullBackup", "Create\\Refresh full backup"};
  Menu mnu_Recover{*this, "mnu_Recover", "Recover archive from HD folder"};
  Menu mnu_ControllaUguali{*this, "mnu_ControllaUguali", "Check for equal levels in archive"};
  Menu mnu_CreaInfoTr4{*this, "mnu_CreaInfoTr4",
                       "Create all [info tr4 files] to fast equal levels check"};
  Menu mnu_CopiaFileInfos{*this, "mnu_CopiaFileInfos", "Copy all [more info] files From Cd to HD"};
  Menu mnu_SetLanguageAll{*this, "mnu_SetLanguageAll", "Set my language in all levels"};
  Menu mnu_RestoreAll{*this, "mnu_RestoreAll", "Restore original language in all levels"};
  Menu mnu_MoveOnCd{*this, "mnu_MoveOnCd", "Create Vardolin CD ..."};
  Menu mnu_Pref{*this, "mnu_Pref", "Preferences"};
  Menu mnu_Settings{*this, "mnu_Settings", "Settings ..."};
  Menu mnu_PrefArchive{*this, "mnu_PrefArchive", "Archive properties ..."};
  Menu mnu_Help{*this, "mnu_Help", "Help"};
  Menu mnu_FindHelp{*this, "mnu_FindHelp", "Help index ..."};
  Menu mnu_HelpSaveGameMan{*this, "mnu_HelpSaveGameMan", "How to manage savegames"};
  Menu mnu_HelpFaq{*this, "mnu_HelpFaq", "FAQ"};
  Menu mnu_About{*this, "mnu_About", "About Vardolin ..."};
  Menu mnu_SaveGameHid{*this, "mnu_SaveGameHid", "Savegame"};
  Menu mnu_ChangeImageSavegame{*this, "mnu_ChangeImageSavegame",
                               "Choose image for the savegame ..."};
  Menu mnu_SaveGameHid2{*this, "mnu_SaveGameHid2", "Savegame"};
  Menu mnu_SalvaSavegame{*this, "mnu_SalvaSavegame", "Save as ..."};
  Menu mnu_SendSavegame{*this, "mnu_SendSavegame", "Send by e-mail"};
  Menu mnu_DelSavegame{*this, "mnu_DelSavegame", "Delete savegame"};
  Menu mnu_PropertySavegame{*this, "mnu_PropertySavegame", "Properties"};

  // The level chooser.
  Frame Frame_Livelli{*this, "Frame_Livelli", "  Choose a custom level  "};
  ComboBox Combo_Livelli{*this, "Combo_Livelli", true, [this] { Combo_Livelli_Click(); }};
  TextBox Text_Search{*this, "Text_Search"};
  Button Pul_Search{*this, "Pul_Search", "Find", {}};
  Button Pul_Prima{*this, "Pul_Prima", "Previous", {}};
  Button Pul_Dopo{*this, "Pul_Dopo", "Next", {}};
  Button Pul_Play{*this, "Pul_Play", "Play", {}};
  Button Pul_MoreInfo{*this, "Pul_MoreInfo", "More info", {}};
  Button Pul_ScreenShots{*this, "Pul_ScreenShots", "ScreenShot", {}};
  Button Pul_SaveGames{*this, "Pul_SaveGames", "Savegames", {}};
  Label Label_InfoLevel{*this, "Label_InfoLevel"};
  Label Label_InfoDir{*this, "Label_InfoDir"};

  // The two panels.
  Frame Frame_SaveGames{*this, "Frame_SaveGames", " Savegames "};
  Frame Frame_ScreenShots{*this, "Frame_ScreenShots", " ScreenShots "};

  // The window's foot and its timers.
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Timer Timer1{*this, "Timer1"};
  Timer Timer_Joystick{*this, "Timer_Joystick"};

  // Play and the game watcher: what Timer1 runs while a common game is alive and after a media
  // game ended, set by the subsystems that own those steps.
  WatcherSteps Watcher;
  // The screenshot panel: the pair of pictures, their names, the marker of the selected one,
  // paging by pairs, and the chosen level's screenshot list behind them.
  Image Image1{*this, "Image1"};
  Image Image2{*this, "Image2"};
  Label Label_InfoImage1{*this, "Label_InfoImage1"};
  Label Label_InfoImage2{*this, "Label_InfoImage2"};
  Label Shape_Image1{*this, "Shape_Image1"};
  Label Shape_Image2{*this, "Shape_Image2"};
  Button Pul_PrimoShot{*this, "Pul_PrimoShot", "|<", {}};
  Button Pul_PrimaScreenShot{*this, "Pul_PrimaScreenShot", "<", {}};
  Button Pul_DopoScreenShot{*this, "Pul_DopoScreenShot", ">", {}};
  Button Pul_UltimoShot{*this, "Pul_UltimoShot", ">|", {}};
  ShotPanelState Shots;

  // Screen capture: Print Screen as the watcher samples it (savegames/capture_source.h).
  PrintScreenKey PrintScreen;
  // The savegame panel: the chosen level's savegames in the game's slots and in its archive
  // sets, the note and the picture of the selected one, and what the panel knows of the level.
  Label Label_SaveGameTomb{*this, "Label_SaveGameTomb", "Savegames in the Tomb Raider slots"};
  ListBox List_SaveGameTomb{*this, "List_SaveGameTomb", false,
                            [this] { List_SaveGameTomb_Click(); }};
  Label Label_SaveGameArchiviati{*this, "Label_SaveGameArchiviati", "Archived savegames"};
  ListBox List_SaveGameArchiviati{*this, "List_SaveGameArchiviati", true,
                                  [this] { List_SaveGameArchiviati_Click(); }};
  Label Label_NoteSaveGame{*this, "Label_NoteSaveGame", "Note (click to write it)"};
  TextBox Text_NoteSaveGame{*this, "Text_NoteSaveGame"};
  Image Image_SaveGame{*this, "Image_SaveGame"};
  Button Pul_RestoreSaveGame{
      *this, "Pul_RestoreSaveGame", "Copy in tombraider slots the selected savegame", {}};
  Button Pul_DeleteSavegame{*this, "Pul_DeleteSavegame", "Delete savegame", {}};
  Button Pul_ChangeScreenshot{*this, "Pul_ChangeScreenshot", "Choose image ...", {}};
  Button Pul_ExportSaveGame{*this, "Pul_ExportSaveGame", "Send savegame to my friend", {}};
  Button Pul_ImportSavegame{*this, "Pul_ImportSavegame", "Receive savegame from my friend", {}};
  Button Pul_ArchiviaSavegames{
      *this,
      "Pul_ArchiviaSavegames",
      "Archive all savegames and free tombraider slots (let only most recent savegame)",
      {}};
  SavegamePanelState Savegames;

  // The joystick: what Timer_Joystick works in this window. The panels add their parts.
  JoystickTargets Joystick;

 protected:
  void Set_Caption_Texts() override;
  void Form_Load() override;

 private:
  void Form_Unload() override;
  void Form_KeyDown(int key_code, int shift) override;
  bool Form_Help() override;
  void Mnu_Exit_Click();
  void mnu_PrefArchive_Click();
  void Combo_Livelli_Click();
  void ChoosePanel(bool screenshots);
  void WireLevelBrowser();
  void DisableMissingWork();

  // Adding a level and a level's properties (principale_add_level.cpp).
  void WireAddLevel();
  // The Help menu and the zip search (principale_help.cpp).
  void WireHelpAndSearch();
  // Play and the game watcher (play/principale_play.cpp).
  void WirePlay();
  void Timer1_Timer();
  void ShowGameState();
  bool game_shown_ = false;  // whether the title and status line say the game runs
  // The active level's slots as the last tick left them, while a game runs.
  SlotWriteTimes slot_times_;

  // The Audio Converter's three entries (principale_audio.cpp).
  void WireAudio();
  void OpenAudioConverter(bool mp3_sources, bool mp3_target);

  // The editor's game settings (editor/setup_trle.cpp).
  void WireEditorSettings();
  // Installing the editor, patching the game, comparing editor folders
  // (principale_editor_install.cpp, principale_editor_tools.cpp).
  void WireEditorInstall();
  void WireEditorTools();
  void mnu_SetupTrle_Click();
  // The screenshot panel: its controls (savegames/shot_panel.cpp) and its menu entries
  // (principale_menu.cpp).
  void WireScreenshotPanel();
  void WireScreenshotMenus();

  // Screen capture: its menu entry (wired in principale_menu.cpp, savegames/capture_menu.cpp).
  void WireCapture();
  void mnu_CaptureScreen_Click();
  // The savegame panel: its controls (savegames/savegame_panel.cpp) and its menu entries
  // (principale_menu.cpp).
  void WireSavegamePanel();
  void WireSavegameMenus();
  // Savegames out and in: export, import, mail (principale_savegames_transfer.cpp).
  void WireSavegameTransfer();
  void List_SaveGameTomb_Click();
  void List_SaveGameArchiviati_Click();

  // The joystick, and the settings window that leads to its own.
  void mnu_Settings_Click();
  void WireJoystick();

  // The watcher's savegame and screenshot steps (savegames/watcher_steps.cpp).
  void WireWatcherSteps();

  // The equal-level check and the maintenance of level file lists (principale_equal_levels.cpp).
  void WireEqualLevels();
  void WireExport();
  void WireAuthor();
  // The player's language in one level or all (principale_language.cpp).
  void WireLanguage();
  // The list of web addresses (principale_urls.cpp).
  void WireUrlList();
  // Archive maintenance and the editor's restore (principale_maintenance.cpp).
  void WireMaintenance();
  // Tools > Create Vardolin CD: the levels still on disk go onto level CDs or their images.
  void WireMoveOnCd();
};

}  // namespace vardolin
