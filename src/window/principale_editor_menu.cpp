// The main window's Level-Editor menu.

#include "editor/setup_trle.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireEditorSettings() {
  mnu_SetupTrle.SetHandler([this] { mnu_SetupTrle_Click(); });
}

void Principale::mnu_SetupTrle_Click() {
  SetupTrle(program());
}

}  // namespace vardolin
