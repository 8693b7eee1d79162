#include "archive/dialog_new_arc.h"

#include "archive/text_ids.h"
#include "foundation/program.h"

namespace vardolin {

Dialog_NewArc::Dialog_NewArc(Program& program)
    : Form(program, "Dialog_NewArc", " First execution: Missing last archive") {}

void Dialog_NewArc::Set_Caption_Texts() {
  CaptionFromText(text::NewArcTitle);
  CaptionFromText(Label_Mex, text::NewArcMessage);
  CaptionFromText(Pul_New, text::NewArcCreate);
  CaptionFromText(Pul_Load, text::NewArcLoad);
}

void Dialog_NewArc::Pul_New_Click() {
  CreateNew = true;
  Unload();
}

void Dialog_NewArc::Pul_Load_Click() {
  CreateNew = false;
  Unload();
}

}  // namespace vardolin
