#include "savegames/joystick.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

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
  struct Case {
    const char* what;
    bool enabled, present;
    std::int32_t capture;
    bool capture_alone;
    std::int32_t close;
    bool close_alone;
    std::uint32_t held;
    std::vector<std::string> done;
  } cases[] = {
      {"capture word held", true, true, 3, false, 8, false, 3, {"print screen"}},
      {"close word with another", true, true, 3, false, 8, false, 9, {"end game"}},
      {"same word: both at once", true, true, 4, false, 4, true, 4, {"print screen", "end game"}},
      {"close word alone, another held", true, true, 3, false, 8, true, 9, {}},
      {"the 32nd button survives the signed field",
       true,
       true,
       -2147483647 - 1,
       true,
       8,
       false,
       0x80000000u,
       {"print screen"}},
      {"nothing stored", true, true, 0, false, 0, false, 15, {}},
      {"joystick off in the settings", false, true, 3, false, 8, false, 11, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Preferences& p = program.prefs;
    p.EnableJoystick = c.enabled;
    p.JoyCaptureButtons = c.capture;
    p.JoyCaptureAlone = c.capture_alone;
    p.JoyCloseButtons = c.close;
    p.JoyCloseAlone = c.close_alone;
    platform.joystick_present = c.present;
    Hold(c.held);
    std::vector<std::string> done;
    GameJoystickStep step = JoystickDuringGame(
        program, {[&] { done.push_back("print screen"); }, [&] { done.push_back("end game"); }});
    EXPECT_EQ(done, c.done);
    EXPECT_EQ(step.answered, c.enabled && c.present);
  }
}

// The main window itself, with its real buttons and panels behind the joystick.
struct MainWindowJoystickTest : JoystickTest {
  testing::BareMainWindow window{program};
  MainWindowJoystickTest() { ui.active_form = &window; }
  JoystickInput Tick() { return JoystickMainWindowTick(program, window.Joystick); }
};

TEST_F(MainWindowJoystickTest, ActsOnlyWhenEnabledIdleFocusedAndAnswering) {
  enum Focus { Main, Zoom, OtherWindow, OtherProgram };
  struct Case {
    const char* what;
    bool enabled, running;
    Focus focus;
    bool present, acts;
  } cases[] = {
      {"all in place", true, false, Main, true, true},
      {"another window of ours in focus", true, false, OtherWindow, true, false},
      {"another program has the focus", true, false, OtherProgram, true, false},
      {"joystick off", false, false, Main, true, false},
      {"game running", true, true, Main, true, false},
  };
  Form zoom{program, "Dialog_ScreenShot"};
  Form other{program, "Dialog_Settings"};
  const Form* focused[] = {&window, &zoom, &other, nullptr};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    program.prefs.ShowScreenshotPanel = false;
    window.ShowChosenPanel();
    program.prefs.EnableJoystick = c.enabled;
    program.GameRunning = c.running;
    ui.active_form = focused[c.focus];
    platform.joystick_present = c.present;
    Hold(8);  // the screenshot panel's button
    Tick();
    EXPECT_EQ(window.Frame_ScreenShots.Visible(), c.acts);
    EXPECT_EQ(program.prefs.ShowScreenshotPanel, c.acts);
  }
}

TEST_F(MainWindowJoystickTest, TheWatchersStepEndsTheGameOnTheCloseButtons) {
  program.prefs.JoyCloseButtons = 8;
  program.GameProcess.pid = 4242;
  auto ends = [&] { return std::count(platform.calls.begin(), platform.calls.end(), "end"); };
  Hold(1);
  window.Watcher.joystick();
  EXPECT_EQ(ends(), 0);
  Hold(8 | 1);
  window.Watcher.joystick();
  EXPECT_EQ(ends(), 1);
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
