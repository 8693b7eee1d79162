#pragma once
// The joystick's settings: which joystick, and which buttons take a screenshot or end the game
// while it runs. The buttons are learned rather than typed: the window reads the joystick ten
// times a second and writes the word of the buttons held into the label the options choose, so
// that holding several buttons together learns a combination.

#include <cstdint>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_JoyStick : public Form {
 public:
  explicit Dialog_JoyStick(Program& program);
  // Fills the port list, selects the stored joystick and shows the stored buttons.
  void ImpostaValori();
  // Set when the dialog closed through Pul_Ok with the settings stored.
  bool Result = false;

  Label Label1{*this, "Label1", "Joystick in on gameport #"};
  ComboBox Combo_GamePort{*this, "Combo_GamePort", false, [this] { Combo_GamePort_Click(); }};

  CheckBox Check_CloseTrle{*this, "Check_CloseTrle", [this] { Check_CloseTrle_Click(); }};
  Label Label_CloseTrle{*this, "Label_CloseTrle"};
  OptionButton Opt_TestCloseTomb{*this, "Opt_TestCloseTomb", "Test"};
  CheckBox Check_SoloCloseTrle{*this, "Check_SoloCloseTrle", [this] { Opt_TestCloseTomb.Click(); }};

  CheckBox Check_JoyCatturaShot{*this, "Check_JoyCatturaShot",
                                [this] { Check_JoyCatturaShot_Click(); }};
  Label Label_CatturaShot{*this, "Label_CatturaShot"};
  OptionButton Opt_TestScreenShot{*this, "Opt_TestScreenShot", "Test"};
  CheckBox Check_SoloShot{*this, "Check_SoloShot", [this] { Opt_TestScreenShot.Click(); }};

  Timer Timer1{*this, "Timer1", [this] { Timer1_Timer(); }, 100};

  Button Pul_Ok{*this, "Pul_Ok", "OK", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};
  // Opens the help at the joystick's topic once the help viewer can.
  Button Pul_Aiuto{*this, "Pul_Aiuto", "Help", {}};

 private:
  void Set_Caption_Texts() override;
  // The joystick the port list shows, else the stored one.
  int ChosenNumber() const;
  void Combo_GamePort_Click();
  void Check_CloseTrle_Click();
  void Check_JoyCatturaShot_Click();
  void Timer1_Timer();
  void Pul_Ok_Click();
  void Pul_Cancel_Click();

  bool filling_ = false;
};

// Opens Dialog_JoyStick modally, as Pul_SetJoy of the settings window does.
void OpenJoystickSettings(Program& program);

}  // namespace vardolin
