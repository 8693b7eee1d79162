#pragma once
// Asks for one line of text. ExitValue tells whether the user confirmed with Pul_Ok.

#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_InputBox : public Form {
 public:
  explicit Dialog_InputBox(Program& program);
  void ImpostaValori(const std::string& prompt, const std::string& title,
                     const std::string& initial);
  // The typed text when confirmed, else empty.
  std::string Result() const { return ExitValue ? Text_Input.Text() : std::string(); }

  bool ExitValue = false;

  Label Label_Prompt{*this, "Label_Prompt"};
  TextBox Text_Input{*this, "Text_Input"};
  Button Pul_Ok{*this, "Pul_Ok", [this] { Close(true); }};
  Button Pul_Cancel{*this, "Pul_Cancel", [this] { Close(false); }};

 private:
  void Set_Caption_Texts() override;
  void Form_KeyDown(int key_code, int shift) override;
  void Close(bool confirmed);

  std::string title_;
};

}  // namespace vardolin
