// The main window's entries that patch the game, compare editor folders and import wads.

#include "editor/dialog_compare_trle.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "intake/dialog_add_wads.h"
#include "play/activation.h"
#include "play/engine_patch.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireEditorTools() {
  mnu_PatchTomb4.SetHandler([this] {
    if (!RefusedWhileGameRuns(program())) ApplyEnginePatch(program(), true);
  });
  mnu_CompareTrle.SetHandler([this] {
    Dialog_CompareTrle dialog(program());
    dialog.ImpostaValori();
    program().ui().ShowModal(dialog);
  });
  mnu_ImportWads.SetHandler([this] {
    if (RefusedWhileGameRuns(program())) return;
    Dialog_AddWads dialog(program());
    dialog.ImpostaValori({});
    program().ui().ShowModal(dialog);
  });
}

}  // namespace vardolin
