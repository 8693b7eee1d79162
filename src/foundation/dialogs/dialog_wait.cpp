#include "foundation/dialogs/dialog_wait.h"

#include "foundation/program.h"
#include "foundation/text_ids.h"

namespace vardolin {

Dialog_Wait::Dialog_Wait(Program& program) : Form(program, "Dialog_Wait") {}

void Dialog_Wait::ImpostaValori(const std::string& text) {
  Label_Mex.SetCaption(text + " ");
}

void Dialog_Wait::Set_Caption_Texts() {
  CaptionFromText(text::ProgramTitle);
}

}  // namespace vardolin
