// The capture entry of the main window's screenshot menu.

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "savegames/text_ids.h"
#include "window/principale.h"

namespace vardolin {

void Principale::mnu_CaptureScreen_Click() {
  Program& p = program();
  AskUser(p, p.GetText(text::CaptureHowTo, {"\r\n"}), msg::kInformation);
}

}  // namespace vardolin
