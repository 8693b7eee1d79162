#include "savegames/dialog_joy_stick.h"

#include <charconv>
#include <string>

#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "savegames/joystick.h"
#include "savegames/text_ids.h"
#include "web/dialog_testo.h"
#include "web/help_topics.h"

namespace vardolin {
namespace {

constexpr int kLearnTickMs = 100;

// The word a label shows, 0 when it shows none.
std::int32_t WordOf(const Label& label) {
  std::string shown = Trim(label.Caption());
  std::uint32_t word = 0;
  auto [end, ec] = std::from_chars(shown.data(), shown.data() + shown.size(), word);
  if (ec != std::errc() || end != shown.data() + shown.size()) return 0;
  return static_cast<std::int32_t>(word);
}

std::string Shown(std::int32_t word) {
  return word == 0 ? std::string() : std::to_string(static_cast<std::uint32_t>(word));
}

}  // namespace

Dialog_JoyStick::Dialog_JoyStick(Program& program)
    : Form(program, "Dialog_JoyStick", " Joystick settings") {
  Check_CloseTrle.SetCaption("Close Tomb Raider with joystick button ->");
  Check_JoyCatturaShot.SetCaption("Capture screen-shot wih joystick button ->");
  Check_SoloCloseTrle.SetCaption("Enabled if above button is the only button pressed");
  Check_SoloShot.SetCaption("Enabled if above button is the only button pressed");
  Opt_TestCloseTomb.SetCaption("Option1");
  Opt_TestScreenShot.SetCaption("Option1");
  Timer1.SetInterval(kLearnTickMs);
  Pul_Aiuto.SetHandler([this] { ShowHelp(this->program(), help::JoyStick); });
}

void Dialog_JoyStick::Set_Caption_Texts() {
  CaptionFromText(text::JoyTitle);
  CaptionFromText(Label1, text::JoyGamePort);
  CaptionFromText(Check_CloseTrle, text::JoyCloseTrle);
  CaptionFromText(Check_JoyCatturaShot, text::JoyCatturaShot);
  CaptionFromText(Check_SoloCloseTrle, text::JoyOnlyButton);
  CaptionFromText(Check_SoloShot, text::JoyOnlyButton);
  CaptionFromText(Pul_Ok, text::JoyOk);
  CaptionFromText(Pul_Cancel, text::JoyCancel);
  CaptionFromText(Pul_Aiuto, text::JoyHelp);
}

void Dialog_JoyStick::ImpostaValori() {
  Program& p = program();
  const Preferences& prefs = p.prefs;
  // Filling the controls is not the user's choice: no probing, no clearing.
  filling_ = true;
  Combo_GamePort.Clear();
  Combo_GamePort.AddItem(p.GetText(text::JoyPortFirst), 0);
  Combo_GamePort.AddItem(p.GetText(text::JoyPortSecond), 1);
  Combo_GamePort.SetListIndex(Combo_GamePort.FindData(prefs.JoystickNumber));

  Check_CloseTrle.SetValue(prefs.JoyCloseButtons != 0);
  Label_CloseTrle.SetCaption(Shown(prefs.JoyCloseButtons));
  Check_SoloCloseTrle.SetValue(prefs.JoyCloseButtons != 0 && prefs.JoyCloseAlone);
  Check_JoyCatturaShot.SetValue(prefs.JoyCaptureButtons != 0);
  Label_CatturaShot.SetCaption(Shown(prefs.JoyCaptureButtons));
  Check_SoloShot.SetValue(prefs.JoyCaptureButtons != 0 && prefs.JoyCaptureAlone);
  // The next press goes to the first action in use; with none in use it goes nowhere until the
  // user picks one.
  Opt_TestCloseTomb.SetValue(false);
  Opt_TestScreenShot.SetValue(false);
  if (Check_JoyCatturaShot.Value())
    Opt_TestScreenShot.SetValue(true);
  else if (Check_CloseTrle.Value())
    Opt_TestCloseTomb.SetValue(true);
  filling_ = false;
}

int Dialog_JoyStick::ChosenNumber() const {
  int row = Combo_GamePort.ListIndex();
  if (row < 0) return program().prefs.JoystickNumber;
  return static_cast<int>(Combo_GamePort.ItemData(row));
}

void Dialog_JoyStick::Combo_GamePort_Click() {
  if (filling_) return;
  Program& p = program();
  if (ReadJoystickNeutral(p, ChosenNumber())) return;
  p.ui().AskUser(p.GetText(text::JoyPortSilent) + Combo_GamePort.SelectedText(), msg::kError, "");
}

void Dialog_JoyStick::Check_CloseTrle_Click() {
  if (filling_) return;
  if (!Check_CloseTrle.Value()) {
    Label_CloseTrle.SetCaption("");
    Check_SoloCloseTrle.SetValue(false);
  }
  Opt_TestCloseTomb.Click();
}

void Dialog_JoyStick::Check_JoyCatturaShot_Click() {
  if (filling_) return;
  if (!Check_JoyCatturaShot.Value()) {
    Label_CatturaShot.SetCaption("");
    Check_SoloShot.SetValue(false);
  }
  Opt_TestScreenShot.Click();
}

void Dialog_JoyStick::Timer1_Timer() {
  JoystickState state;
  if (!ProbeJoystick(program(), state, ChosenNumber()) || state.buttons == 0) return;
  std::string word = std::to_string(state.buttons);
  if (Opt_TestCloseTomb.Value()) Label_CloseTrle.SetCaption(word);
  if (Opt_TestScreenShot.Value()) Label_CatturaShot.SetCaption(word);
}

void Dialog_JoyStick::Pul_Ok_Click() {
  Program& p = program();
  int number = ChosenNumber();
  JoystickState state;
  if (!ProbeJoystick(p, state, number)) {
    p.ui().AskUser(p.GetText(text::JoyNotAnswering) + std::to_string(number), msg::kError, "");
    return;
  }
  if (Check_CloseTrle.Value() && Trim(Label_CloseTrle.Caption()).empty()) {
    p.ui().AskUser(p.GetText(text::JoyCloseButtonMissing), msg::kError, "");
    return;
  }
  if (Check_JoyCatturaShot.Value() && Trim(Label_CatturaShot.Caption()).empty()) {
    p.ui().AskUser(p.GetText(text::JoyCaptureButtonMissing), msg::kError, "");
    return;
  }
  Preferences& prefs = p.prefs;
  prefs.JoyCloseButtons = Check_CloseTrle.Value() ? WordOf(Label_CloseTrle) : 0;
  prefs.JoyCloseAlone = Check_SoloCloseTrle.Value();
  prefs.JoyCaptureButtons = Check_JoyCatturaShot.Value() ? WordOf(Label_CatturaShot) : 0;
  prefs.JoyCaptureAlone = Check_SoloShot.Value();
  prefs.JoystickNumber = number;
  Result = true;
  Unload();
}

void Dialog_JoyStick::Pul_Cancel_Click() {
  Result = false;
  Unload();
}

void OpenJoystickSettings(Program& program) {
  Dialog_JoyStick dialog(program);
  dialog.ImpostaValori();
  program.ui().ShowModal(dialog);
}

}  // namespace vardolin
