#include "web/dialog_input_testo.h"

#include "foundation/program.h"
#include "foundation/text_ids.h"
#include "web/text_ids.h"

namespace vardolin {

namespace {
constexpr int kKeyEscape = 27;
}

Dialog_InputTesto::Dialog_InputTesto(Program& program) : Form(program, "Dialog_InputTesto") {
  Text1.SetMultiLine(true);
}

void Dialog_InputTesto::ImpostaValori(const std::string& TitoloFinestra,
                                      const std::string& TestoIniziale) {
  ExitValue = false;
  title_ = TitoloFinestra;
  Text1.SetText(TestoIniziale);
  // The caret behind the last character, nothing selected: typing goes on from the end.
  Text1.SetSelection(TestoIniziale.size(), 0);
  SetCaption(title_);
}

void Dialog_InputTesto::Set_Caption_Texts() {
  Program& p = program();
  SetCaption(title_.empty() ? p.GetText(text::ProgramTitle) : title_);
  CaptionFromText(Pul_Svuota, text::InputTestoClear);
  CaptionFromText(Pul_Annulla, text::MsgBoxCancel);
  CaptionFromText(Pul_Ok, text::MsgBoxOk);
}

void Dialog_InputTesto::Form_KeyDown(int key_code, int /*shift*/) {
  if (key_code == kKeyEscape) Close(false);
}

void Dialog_InputTesto::Close(bool confirmed) {
  ExitValue = confirmed;
  Unload();
}

}  // namespace vardolin
