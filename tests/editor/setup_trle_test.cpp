// mnu_SetupTrle with the real platform: the stand-in game is started in its setup mode from the
// editor folder and watched as a game is, the level in the folder untouched.
#include "editor/setup_trle.h"

#include <gtest/gtest.h>

#include "editor/text_ids.h"
#include "foundation/services/log.h"
#include "play/activation.h"
#include "play/text_ids.h"
#include "play_fixture.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

using testing::PlayFixture;
using testing::ReadFile;

TEST(SetupTrle, TheGameStartsInItsSetupModeOnlyAfterOkAndIsWatchedAsAGame) {
  struct Case {
    const char* what;
    int answer;
    bool game_present;
    bool started;
  };
  for (const Case& c : {Case{"cancel", msg::kCancel, true, false}, Case{"ok", msg::kOk, true, true},
                        Case{"no game", msg::kOk, false, false}}) {
    SCOPED_TRACE(c.what);
    PlayFixture f({"Base level", "Beta"});
    ASSERT_TRUE(SetLevelInTrle(f.program, 1));
    if (!c.game_present) std::filesystem::remove(f.editor / "tomb4.exe");
    const auto before = testing::Snapshot(f.editor);
    f.main->Timer1.SetInterval(700);
    ResetLog(f.program);

    const std::string warning =
        f.program.GetText(text::SetupTrleWarning, {"\r\n", "\r\n", "\r\n", "\r\n", "\r\n\r\n"});
    f.ui.Answer(c.answer, warning);
    if (c.answer == msg::kOk && !c.game_present)
      f.ui.Answer(msg::kOk, f.program.GetText(text::GameNotStarted));
    ASSERT_TRUE(f.main->mnu_SetupTrle.Enabled());
    f.main->mnu_SetupTrle.Click();

    EXPECT_EQ(f.program.GameRunning, c.started);
    EXPECT_EQ(ReadFile(LogPath(f.program)).find("Create process for tom4") != std::string::npos,
              c.answer == msg::kOk);
    if (!c.started) {
      EXPECT_EQ(testing::Snapshot(f.editor), before);
      continue;
    }
    std::string command_line =
        ReadFile("/proc/" + std::to_string(f.program.GameProcess.pid) + "/cmdline");
    std::replace(command_line.begin(), command_line.end(), '\0', ' ');
    EXPECT_NE(command_line.find(" " + f.program.GetText(text::SetupTrleParameter)),
              std::string::npos);
    // The watcher ends the run as it ends a game's.
    f.EndGame();
    ASSERT_TRUE(f.TickUntilEnded());
    auto after = testing::Snapshot(f.editor);
    for (const char* written : {"standin_started.txt", "standin_commands.txt", "standin_done.txt"})
      after.erase(written);
    EXPECT_EQ(after, before);
  }
}

}  // namespace
}  // namespace vardolin
