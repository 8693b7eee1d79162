#include "savegames/joystick.h"

#include <gtest/gtest.h>

#include "bare_main_window.h"
#include "test_program.h"

namespace vardolin {
namespace {

struct JoystickTest : ::testing::Test, testing::TestProgram {
  JoystickTest() {
    platform.joystick_present = true;
    program.prefs.EnableJoystick = true;
  }
  void Hold(std::uint32_t buttons, std::uint32_t x = 32767, std::uint32_t y = 32767) {
    platform.joystick = {x, y, 32767, buttons};
  }
};

TEST_F(JoystickTest, DuringTheGameTheButtonsCaptureOrEndTheGame) {
  using Word = std::pair<std::int32_t, bool>;  // the buttons, and whether alone
  struct Case {
    const char* what;
    bool enabled;
    Word capture, close;
    std::uint32_t held;
    std::vector<std::string> done;
  } cases[] = {
      {"capture word held", true, {3, false}, {8, false}, 3, {"print screen"}},
      {"close word with another", true, {3, false}, {8, false}, 9, {"end game"}},
      {"same word: both at once", true, {4, false}, {4, true}, 4, {"print screen", "end game"}},
      {"close word alone, another held", true, {3, false}, {8, true}, 9, {}},
      {"the 32nd button", true, {-2147483647 - 1, true}, {8, false}, 0x80000000u, {"print screen"}},
      {"nothing stored", true, {0, false}, {0, false}, 15, {}},
      {"joystick off in the settings", false, {3, false}, {8, false}, 11, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Preferences& p = program.prefs;
    p.EnableJoystick = c.enabled;
    p.JoyCaptureButtons = c.capture.first;
    p.JoyCaptureAlone = c.capture.second;
    p.JoyCloseButtons = c.close.first;
    p.JoyCloseAlone = c.close.second;
    Hold(c.held);
    std::vector<std::string> done;
    GameJoystickStep step = JoystickDuringGame(
        program, {[&] { done.push_back("print screen"); }, [&] { done.push_back("end game"); }});
    EXPECT_EQ(done, c.done);
    EXPECT_EQ(step.answered, c.enabled);
  }
}

// The main window itself, with its real buttons and panels behind the joystick.
struct MainWindowJoystickTest : JoystickTest {
  testing::BareMainWindow window{program};
  MainWindowJoystickTest() { ui.active_form = &window; }
  JoystickInput Tick() { return JoystickMainWindowTick(program, window.Joystick); }
};

TEST_F(MainWindowJoystickTest, ActsOnlyWhenEnabledIdleFocusedAndAnswering) {
  Form other{program, "Dialog_Settings"};
  struct Case {
    const char* what;
    bool enabled, running;
    const Form* focus;
    bool acts;
  } cases[] = {
      {"all in place", true, false, &window, true},
      {"another window of ours in focus", true, false, &other, false},
      {"another program has the focus", true, false, nullptr, false},
      {"joystick off", false, false, &window, false},
      {"game running", true, true, &window, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    program.prefs.ShowScreenshotPanel = false;
    window.ShowChosenPanel();
    program.prefs.EnableJoystick = c.enabled;
    program.GameRunning = c.running;
    ui.active_form = c.focus;
    Hold(8);  // the screenshot panel's button
    Tick();
    EXPECT_EQ(window.Frame_ScreenShots.Visible(), c.acts);
  }
}

TEST_F(MainWindowJoystickTest, TheWatchersStepEndsTheGameOnTheCloseButtons) {
  program.prefs.JoyCloseButtons = 8;
  program.GameProcess.pid = 4242;
  for (std::uint32_t held : {1u, 8u | 1u}) {
    Hold(held);
    window.Watcher.joystick();
  }
  EXPECT_EQ(std::count(platform.calls.begin(), platform.calls.end(), "end"), 1);
}

TEST_F(MainWindowJoystickTest, SidewaysWalksTheSavegamesRoundBothEnds) {
  struct Case {
    int rows, selected, dx, expected;
  } cases[] = {
      {3, 0, +2000, 1},   {3, 2, +2000, 0},   // after the last row the first
      {3, 1, -2000, 0},   {3, 0, -2000, 2},   // before the first the last
      {3, -1, +2000, 2},  {3, -1, -2000, 2},  // no selection: the last row
      {0, -1, +2000, -1},                     // an empty list stays empty
      {3, 1, +1000, 1},                       // within the rest: nothing
  };
  program.prefs.ShowScreenshotPanel = false;
  window.ShowChosenPanel();
  ListBox saves{window, "List_SaveGameArchiviati"};
  window.Joystick.ArchivedSaves = &saves;
  program.JoystickNeutralX = program.JoystickNeutralY = 20000;
  for (const Case& c : cases) {
    saves.Clear();
    for (int i = 0; i < c.rows; ++i) saves.AddItem("save " + std::to_string(i));
    saves.SetListIndex(c.selected);
    Hold(0, static_cast<std::uint32_t>(20000 + c.dx), 20000);
    Tick();
    EXPECT_EQ(saves.ListIndex(), c.expected)
        << c.rows << " rows, row " << c.selected << ", dx " << c.dx;
  }
}

}  // namespace
}  // namespace vardolin
