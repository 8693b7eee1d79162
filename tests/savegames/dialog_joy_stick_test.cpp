#include "savegames/dialog_joy_stick.h"

#include <gtest/gtest.h>

#include <memory>

#include "language_file.h"
#include "savegames/text_ids.h"
#include "test_program.h"

namespace vardolin {
namespace {

struct DialogJoyStickTest : ::testing::Test, testing::TestProgram {
  DialogJoyStickTest() {
    home.Write("english.trc", testing::Trc({{text::JoyPortFirst, "port A"},
                                            {text::JoyPortSecond, "port B"},
                                            {text::JoyPortSilent, "silent: "},
                                            {text::JoyNotAnswering, "no answer from "},
                                            {text::JoyCloseButtonMissing, "close button?"},
                                            {text::JoyCaptureButtonMissing, "capture button?"}}));
    program.prefs.Language = "english";
    LoadLanguage(program);
    platform.joystick_present = true;
  }
  std::unique_ptr<Dialog_JoyStick> Open() {
    auto d = std::make_unique<Dialog_JoyStick>(program);
    d->ImpostaValori();
    d->Load();
    return d;
  }
  void Press(std::uint32_t buttons) { platform.joystick.buttons = buttons; }
};

TEST_F(DialogJoyStickTest, ShowsTheStoredSettingsWithoutAskingAnything) {
  Preferences& p = program.prefs;
  p.JoystickNumber = 1;
  p.JoyCloseButtons = 12;
  p.JoyCloseAlone = true;
  p.JoyCaptureButtons = 0;
  platform.joystick_present = false;  // opening the window says nothing of it
  auto d = Open();
  EXPECT_EQ(d->Combo_GamePort.SelectedText(), "port B");
  EXPECT_TRUE(d->Check_CloseTrle.Value());
  EXPECT_EQ(d->Label_CloseTrle.Caption(), "12");
  EXPECT_TRUE(d->Check_SoloCloseTrle.Value());
  EXPECT_FALSE(d->Check_JoyCatturaShot.Value());
  EXPECT_EQ(d->Label_CatturaShot.Caption(), "");
  EXPECT_TRUE(d->Opt_TestCloseTomb.Value());
  EXPECT_TRUE(ui.Questions().empty());
  EXPECT_TRUE(d->Timer1.Running());
}

TEST_F(DialogJoyStickTest, LearnsTheWordHeldDuringATickIntoTheChosenLabel) {
  auto d = Open();
  d->Check_CloseTrle.Click();  // selects the close label
  struct Step {
    std::uint32_t held;
    const char *close, *capture;
  } steps[] = {
      {1, "1", ""},
      {0, "1", ""},  // releasing keeps what was learned
      {5, "5", ""},  // buttons 1 and 3 together: a combination
  };
  for (const Step& s : steps) {
    Press(s.held);
    d->Timer1.Tick();
    EXPECT_EQ(d->Label_CloseTrle.Caption(), s.close) << s.held;
    EXPECT_EQ(d->Label_CatturaShot.Caption(), s.capture) << s.held;
  }
  d->Check_JoyCatturaShot.Click();  // now the capture label takes the presses
  Press(2);
  d->Timer1.Tick();
  EXPECT_EQ(d->Label_CloseTrle.Caption(), "5");
  EXPECT_EQ(d->Label_CatturaShot.Caption(), "2");
  d->Check_SoloCloseTrle.Click();  // the flag beside the close label points back to it
  Press(8);
  d->Timer1.Tick();
  EXPECT_EQ(d->Label_CloseTrle.Caption(), "8");
  // Giving up the capture clears what it learned and its flag.
  d->Check_SoloShot.SetValue(true);
  d->Check_JoyCatturaShot.Click();
  EXPECT_EQ(d->Label_CatturaShot.Caption(), "");
  EXPECT_FALSE(d->Check_SoloShot.Value());
  EXPECT_TRUE(d->Opt_TestScreenShot.Value());
}

TEST_F(DialogJoyStickTest, ChoosingAPortReadsTheStickRestOrSaysItIsSilent) {
  auto d = Open();
  platform.joystick = {41000, 22000, 0, 0};
  d->Combo_GamePort.SetListIndex(1);
  EXPECT_EQ(program.JoystickNeutralX, 41000u);
  EXPECT_EQ(program.JoystickNeutralY, 22000u);
  EXPECT_EQ(platform.calls.back(), "joystick 1");
  platform.joystick_present = false;
  ui.Answer(msg::kOk, "silent: port A");
  d->Combo_GamePort.SetListIndex(0);
  EXPECT_EQ(program.JoystickNeutralX, 41000u);  // the last rest read stays
}

TEST_F(DialogJoyStickTest, OkChecksBeforeItStores) {
  struct Case {
    const char* what;
    bool present, close_on;
    const char* close_word;
    bool capture_on;
    const char* capture_word;
    const char* message;  // empty: stored and closed
  } cases[] = {
      {"joystick silent", false, true, "3", false, "", "no answer from 1"},
      {"close chosen, no button", true, true, "", true, "4", "close button?"},
      {"capture chosen, no button", true, false, "", true, "", "capture button?"},
      {"both learned", true, true, "3", true, "4", ""},
      {"neither chosen", true, false, "", false, "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    program.prefs = Preferences{};
    program.prefs.Language = "english";
    auto d = Open();
    d->Combo_GamePort.SetListIndex(1);
    platform.joystick_present = c.present;
    d->Check_CloseTrle.SetValue(c.close_on);
    d->Check_SoloCloseTrle.SetValue(c.close_on);
    d->Label_CloseTrle.SetCaption(c.close_word);
    d->Check_JoyCatturaShot.SetValue(c.capture_on);
    d->Label_CatturaShot.SetCaption(c.capture_word);
    if (*c.message) ui.Answer(msg::kOk, c.message);
    d->Pul_Ok.Click();
    EXPECT_TRUE(ui.Done());
    EXPECT_EQ(d->IsLoaded(), *c.message != 0);
    EXPECT_EQ(d->Result, *c.message == 0);
    const Preferences& p = program.prefs;
    if (*c.message) {
      EXPECT_EQ(p, Preferences{.Language = "english"}) << "nothing stored";
    } else {
      EXPECT_EQ(p.JoystickNumber, 1);
      EXPECT_EQ(p.JoyCloseButtons, c.close_on ? 3 : 0);
      EXPECT_EQ(p.JoyCloseAlone, c.close_on);
      EXPECT_EQ(p.JoyCaptureButtons, c.capture_on ? 4 : 0);
      EXPECT_FALSE(p.JoyCaptureAlone);
    }
    platform.joystick_present = true;
  }
}

}  // namespace
}  // namespace vardolin
