// `vardolin-cli demo` makes the home `make run` starts in: the window opens on it asking nothing.

#include <gtest/gtest.h>

#include "cli_runner.h"
#include "foundation/program.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "startup/main_window.h"

namespace vardolin {
namespace {

struct DemoHomeTest : ::testing::Test, testing::CliHome {};

TEST_F(DemoHomeTest, TheWindowOpensOnTheDemoWithoutAQuestion) {
  const testing::CliResult made = RunAt({"demo"});
  ASSERT_EQ(made.code, 0) << made.out << made.err;
  EXPECT_EQ(made.err, "") << "the demo answers its questions itself and prints none";

  testing::ScriptedUi ui;
  testing::RecordingPlatform platform;
  Program program(home, ui, platform);
  MainWindow window(program);
  window.Load();
  ASSERT_TRUE(window.IsLoaded());
  EXPECT_TRUE(ui.Questions().empty());
  EXPECT_EQ(window.Combo_Livelli.ListCount(), 4);
  window.Unload();
}

}  // namespace
}  // namespace vardolin
