#include "foundation/dialogs/dialog_msg_box.h"

#include "foundation/dialogs/message_styles.h"
#include "foundation/ports/platform.h"
#include "foundation/program.h"
#include "foundation/text_ids.h"

namespace vardolin {
namespace {

constexpr int kEscape = 27;
constexpr int kBeepHz = 880;
constexpr int kBeepMs = 120;

}  // namespace

std::string ButtonCaption(const Program& program, int result) {
  switch (result) {
    case msg::kOk:
      return program.GetText(text::MsgBoxOk);
    case msg::kCancel:
      return program.GetText(text::MsgBoxCancel);
    case msg::kAbort:
      return program.GetText(text::MsgBoxAbort);
    case msg::kRetry:
      return program.GetText(text::MsgBoxRetry);
    case msg::kIgnore:
      return program.GetText(text::MsgBoxIgnore);
    case msg::kYes:
      return program.GetText(text::MsgBoxYes);
    case msg::kNo:
      return program.GetText(text::MsgBoxNo);
  }
  return {};
}

Dialog_MsgBox::Dialog_MsgBox(Program& program)
    : Form(program, "Dialog_MsgBox"), results_(ButtonsOfStyle(msg::kOkOnly)) {
  ShowButtons();
}

void Dialog_MsgBox::ImpostaValori(const std::string& text, int style, const std::string& title) {
  Label_Mex.SetCaption(text);
  results_ = ButtonsOfStyle(style);
  title_ = title.empty() ? program().GetText(text::ProgramTitle) : title;
  SetCaption(title_);
  ShowButtons();
}

void Dialog_MsgBox::Set_Caption_Texts() {
  SetCaption(title_.empty() ? program().GetText(text::MsgBoxTitle) : title_);
  ShowButtons();
}

void Dialog_MsgBox::ShowButtons() {
  Button* slots[] = {&Pul_Button1, &Pul_Button2, &Pul_Button3};
  for (size_t i = 0; i < 3; ++i) {
    bool used = i < results_.size();
    slots[i]->SetVisible(used);
    slots[i]->SetCaption(used ? ButtonCaption(program(), results_[i]) : std::string());
  }
}

void Dialog_MsgBox::Form_Load() {
  if (!program().prefs.SoundDisabled()) program().platform().Beep(kBeepHz, kBeepMs);
}

void Dialog_MsgBox::Form_KeyDown(int key_code, int shift) {
  // Escape answers as the desktop's boxes do: Cancel where the box offers it, else No, else Ok
  // where it is the only button. A box of Abort/Retry/Ignore wants a real choice.
  if (key_code != kEscape) return;
  for (int wanted : {msg::kCancel, msg::kNo}) {
    for (size_t i = 0; i < results_.size(); ++i)
      if (results_[i] == wanted) return Press(static_cast<int>(i));
  }
  if (results_.size() == 1 && results_[0] == msg::kOk) Press(0);
}

void Dialog_MsgBox::Press(int slot) {
  if (slot < 0 || slot >= static_cast<int>(results_.size())) return;
  ExitValue = results_[slot];
  Unload();
}

}  // namespace vardolin
