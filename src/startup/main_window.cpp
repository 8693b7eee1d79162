#include "startup/main_window.h"

#include "archive/catalogue_file.h"
#include "archive/leftovers.h"
#include "cd/cd_catalogue.h"
#include "cd/dialog_insert_cd.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/program.h"
#include "foundation/texts/text_catalogue.h"
#include "startup/startup.h"

namespace vardolin {

void MainWindow::Form_Load() {
  PrefsLoad = LoadPreferences(program());
  if (!LoadLanguage(program())) {
    Unload();
    return;
  }
  ApplyFormCharset(program(), *this);
  ShowSplash(program());
  Set_Caption_Texts();
  // Start-up may stop before it chooses the panel; the window never shows both.
  ShowChosenPanel();
  InstallCatalogueHooks(program());
  InstallCdLevels(program());
  InstallCdCatalogue(program());
  // The window holds the home's lock: whatever a killed run left can go now.
  ClearLeftovers(program());
  StartUp(program(), PrefsLoad);
  HideSplash(program());
  program().notify.LevelListChanged();
}

}  // namespace vardolin
