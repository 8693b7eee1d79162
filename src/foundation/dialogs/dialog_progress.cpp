#include "foundation/dialogs/dialog_progress.h"

#include "foundation/program.h"
#include "foundation/text_ids.h"

namespace vardolin {

Dialog_Progress::Dialog_Progress(Program& program) : Form(program, "Dialog_Progress") {}

void Dialog_Progress::Set_Caption_Texts() {
  CaptionFromText(text::ProgramTitle);
}

}  // namespace vardolin
