#include "foundation/dialogs/dialog_input_box.h"

#include "foundation/program.h"
#include "foundation/text_ids.h"

namespace vardolin {

Dialog_InputBox::Dialog_InputBox(Program& program) : Form(program, "Dialog_InputBox") {}

void Dialog_InputBox::ImpostaValori(const std::string& prompt, const std::string& title,
                                    const std::string& initial) {
  Label_Prompt.SetCaption(prompt);
  Text_Input.SetText(initial);
  title_ = title.empty() ? program().GetText(text::ProgramTitle) : title;
  SetCaption(title_);
}

void Dialog_InputBox::Set_Caption_Texts() {
  SetCaption(title_.empty() ? program().GetText(text::ProgramTitle) : title_);
  CaptionFromText(Pul_Ok, text::MsgBoxOk);
  CaptionFromText(Pul_Cancel, text::MsgBoxCancel);
}

void Dialog_InputBox::Form_KeyDown(int key_code, int shift) {
  if (key_code == 27) Close(false);
}

void Dialog_InputBox::Close(bool confirmed) {
  ExitValue = confirmed;
  Unload();
}

}  // namespace vardolin
