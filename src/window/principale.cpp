#include "window/principale.h"

#include <set>
#include <string>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive/dialog_pref_arc.h"
#include "archive/text_ids.h"
#include "archive/whole_store_conversion.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/platform/virtual_keys.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/settings/dialog_settings.h"
#include "foundation/text_ids.h"
#include "intake/remove_level.h"
#include "play/active_level.h"
#include "savegames/text_ids.h"
#include "window/principale_levels.h"
#include "window/principale_next_step.h"
#include "window/principale_savegames.h"
#include "window/principale_shots.h"

namespace vardolin {
namespace {

constexpr int kJoystickTickMs = 150;

struct CaptionText {
  const char* name;
  std::int32_t text;
};

// Controls of the window other than the menu that carry a caption of their own.
const CaptionText kCaptions[] = {
    {"Frame_Livelli", text::CaptionFrameLivelli},
    {"Pul_Search", text::CaptionPulSearch},
    {"Pul_Prima", text::CaptionPulPrima},
    {"Pul_Dopo", text::CaptionPulDopo},
    {"Pul_Play", text::CaptionPulPlay},
    {"Pul_MoreInfo", text::CaptionPulMoreInfo},
    {"Pul_ScreenShots", text::CaptionPulScreenShots},
    {"Pul_SaveGames", text::CaptionPulSaveGames},
    {"Frame_SaveGames", text::CaptionFrameSaveGames},
    {"Frame_ScreenShots", text::CaptionFrameScreenShots},
    {"Pul_PrimoShot", text::CaptionPulPrimoShot},
    {"Pul_PrimaScreenShot", text::CaptionPulPrimaScreenShot},
    {"Pul_DopoScreenShot", text::CaptionPulDopoScreenShot},
    {"Pul_UltimoShot", text::CaptionPulUltimoShot},
    // The savegame panel.
    {"Label_SaveGameTomb", text::CaptionLabelSaveGameTomb},
    {"Label_SaveGameArchiviati", text::CaptionLabelSaveGameArchiviati},
    {"Label_NoteSaveGame", text::CaptionLabelNoteSaveGame},
    {"Pul_RestoreSaveGame", text::CaptionPulRestoreSaveGame},
    {"Pul_DeleteSavegame", text::CaptionPulDeleteSavegame},
    {"Pul_ChangeScreenshot", text::CaptionPulChangeScreenshot},
    {"Pul_ArchiviaSavegames", text::CaptionPulArchiviaSavegames},
    {"Pul_ExportSaveGame", text::CaptionPulExportSaveGame},
    {"Pul_ImportSavegame", text::CaptionPulImportSavegame},
};

}  // namespace

Principale::Principale(Program& program) : Form(program, "Principale", "Vardolin") {
  Mnu_Exit.SetHandler([this] { Mnu_Exit_Click(); });
  mnu_Settings.SetHandler([this] { mnu_Settings_Click(); });
  mnu_New.SetHandler([this] {
    if (NewCatalogue(this->program())) OfferNextStep(*this);
  });
  mnu_Load.SetHandler([this] { BrowseForCatalogue(this->program()); });
  mnu_Save.SetHandler([this] { SaveCatalogueMenu(this->program()); });
  mnu_SaveAs.SetHandler([this] { SaveCatalogueAs(this->program()); });
  mnu_PrefArchive.SetHandler([this] { mnu_PrefArchive_Click(); });
  // The pop-up menus of the savegame panel are opened by the panel, never from the bar.
  mnu_SaveGameHid.SetVisible(false);
  mnu_SaveGameHid2.SetVisible(false);
  Timer_Joystick.SetInterval(kJoystickTickMs);
  WireLevelBrowser();
  WireAddLevel();
  WireHelpAndSearch();
  WirePlay();
  WireEditorSettings();
  WireEditorInstall();
  WireEditorTools();
  WireAudio();
  WireScreenshotPanel();
  WireScreenshotMenus();
  WireCapture();
  WireSavegamePanel();
  WireSavegameMenus();
  WireSavegameTransfer();
  WireJoystick();
  WireWatcherSteps();
  WireEqualLevels();
  WireExport();
  WireAuthor();
  WireLanguage();
  WireUrlList();
  WireMaintenance();
  WireMoveOnCd();
  DisableMissingWork();
  program.main = {this, &Label_Info, &ProgressBar1, &Timer1};
  program.notify.level_list_changed = [this] { RefreshLevelList(*this); };
  program.notify.catalogue_loaded = [this] {
    RefreshLevelList(*this);
    SelectLevelByCode(*this, GetActiveLevelCode(this->program()));
  };
  program.notify.newest_shots_stored = [this] { ShowNewestShots(*this); };
}

Principale::~Principale() {
  if (program().main.form != this) return;
  program().main = {};
  program().notify = {};
}

void Principale::WireLevelBrowser() {
  Pul_Search.SetHandler([this] { SearchLevel(*this, SearchWay::FromTop); });
  Pul_Dopo.SetHandler([this] { SearchLevel(*this, SearchWay::Down); });
  Pul_Prima.SetHandler([this] { SearchLevel(*this, SearchWay::Up); });
  Pul_MoreInfo.SetHandler([this] { ShowMoreInfo(*this); });
  Pul_SaveGames.SetHandler([this] { ChoosePanel(false); });
  Pul_ScreenShots.SetHandler([this] { ChoosePanel(true); });
  mnu_ShowSavegames.SetHandler([this] { ChoosePanel(false); });
  mnu_ShowScreenShot.SetHandler([this] { ChoosePanel(true); });
  // The last record of the table fills the removed one's place; the files can stay behind.
  mnu_RemoveLevel.SetHandler(
      [this] { RemoveLevel(program(), ChosenLevelCode(), &Label_Info, &ProgressBar1); });
}

void Principale::DisableMissingWork() {
  // An entry that holds other entries stays enabled so that the user can look inside; an
  // entry without work behind it is greyed rather than doing nothing.
  std::set<std::string> holders;
  for (const MenuPlace& place : PrincipaleMenuTree())
    if (*place.parent) holders.insert(place.parent);
  for (Control* c : Controls()) {
    if (c->Kind() != ControlKind::Menu || holders.count(c->Name())) continue;
    auto* entry = static_cast<Menu*>(c);
    entry->SetEnabled(entry->HasHandler());
  }
}

void Principale::Set_Caption_Texts() {
  CaptionFromText(text::ProgramTitle);
  for (const MenuPlace& place : PrincipaleMenuTree())
    if (Control* c = FindControl(place.name)) CaptionFromText(*c, place.text);
  for (const CaptionText& entry : kCaptions)
    if (Control* c = FindControl(entry.name)) CaptionFromText(*c, entry.text);
}

void Principale::Form_Load() {
  // Start-up, which the window runs when the program starts, lives above it
  // (startup/main_window.h); alone, the window only shows its panels.
  Set_Caption_Texts();
  ShowChosenPanel();
}

void Principale::Form_Unload() {
  SavePreferences(program());
  program().open_forms.CloseAll();
}

std::optional<std::int32_t> Principale::ChosenLevelCode() const {
  const int row = Combo_Livelli.ListIndex();
  if (row < 0) return std::nullopt;
  return static_cast<std::int32_t>(Combo_Livelli.ItemData(row));
}

int Principale::ChosenLevelIndex() const {
  const std::optional<std::int32_t> code = ChosenLevelCode();
  return code ? FindLevelIndex(program().catalogue, *code) : -1;
}

void Principale::ShowChosenPanel() {
  Frame_ScreenShots.SetVisible(program().prefs.ShowScreenshotPanel);
  Frame_SaveGames.SetVisible(!program().prefs.ShowScreenshotPanel);
}

void Principale::mnu_PrefArchive_Click() {
  Program& p = program();
  if (p.catalogue.levels.empty()) return;
  Dialog_PrefArc dialog(p);
  dialog.ImpostaValori(p.catalogue.header);
  p.ui().ShowModal(dialog);
  if (dialog.ConvertStore) ConvertWholeStore(p, dialog.SavedHeader(), &Label_Info, &ProgressBar1);
}

void Principale::ChoosePanel(bool screenshots) {
  program().prefs.ShowScreenshotPanel = screenshots;
  ShowChosenPanel();
}

void Principale::Combo_Livelli_Click() {
  AggiornaDatiLivello(*this);
}

void Principale::Form_KeyDown(int key_code, int shift) {
  if (SavegameSearchKey(*this, key_code, shift)) return;
  if (key_code == vk::kF12) StartCheckVardo(program());
}

void Principale::Mnu_Exit_Click() {
  if (QueryUnload()) Unload();
}

}  // namespace vardolin
