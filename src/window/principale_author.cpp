// The Levels menu entry that shows and edits who made the chosen level.

#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "intake/dialog_autore.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireAuthor() {
  mnu_ShowAutoreInfo.SetHandler([this] {
    const std::optional<std::int32_t> code = ChosenLevelCode();
    if (!code) return;
    Dialog_Autore dialog(program());
    dialog.Load();
    if (dialog.ImpostaValori(*code)) program().ui().ShowModal(dialog);
  });
}

}  // namespace vardolin
