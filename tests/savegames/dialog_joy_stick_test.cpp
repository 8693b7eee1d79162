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
};

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
