#pragma once
// The program's message box: a text, up to three buttons chosen by the style, and the number of
// the pressed button in ExitValue. It can only be left by a button.

#include <string>
#include <vector>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_MsgBox : public Form {
 public:
  explicit Dialog_MsgBox(Program& program);
  void ImpostaValori(const std::string& text, int style, const std::string& title);
  // The result numbers of the visible buttons, left to right.
  const std::vector<int>& Results() const { return results_; }
  bool QueryUnload() override { return false; }

  int ExitValue = 0;

  Label Label_Mex{*this, "Label_Mex"};
  Button Pul_Button1{*this, "Pul_Button1", [this] { Press(0); }};
  Button Pul_Button2{*this, "Pul_Button2", [this] { Press(1); }};
  Button Pul_Button3{*this, "Pul_Button3", [this] { Press(2); }};

 private:
  void Set_Caption_Texts() override;
  void Form_Load() override;
  void Form_KeyDown(int key_code, int shift) override;
  void Press(int slot);
  void ShowButtons();

  std::vector<int> results_;
  std::string title_;
};

// The caption text of a result number (text 2946 ... 2951).
std::string ButtonCaption(const Program& program, int result);

}  // namespace vardolin
