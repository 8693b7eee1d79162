#include "archive/dialog_new_arc.h"

#include "archive/text_ids.h"
#include "foundation/program.h"

namespace vardolin {

Dialog_NewArc::Dialog_NewArc(Program& program)
    : Form(program, "Dialog_NewArc", " First execution: Missing last archive") {}

void Dialog_NewArc::Set_Caption_Texts() {
  auto apply = [this](Control& c, std::int32_t id) {
    if (std::string t = program().GetText(id); !t.empty()) c.SetCaption(t);
  };
  if (std::string t = program().GetText(text::NewArcTitle); !t.empty()) SetCaption(t);
  apply(Label_Mex, text::NewArcMessage);
  apply(Pul_New, text::NewArcCreate);
  apply(Pul_Load, text::NewArcLoad);
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
