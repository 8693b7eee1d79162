// The watcher's tick over real child processes, and the launch helpers on real folders.
#include "play/game_watcher.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "play/game_launch.h"
#include "play_fixture.h"
#include "test_program.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ReadFile;
using testing::WriteBytes;

TEST(GameWatcher, TheLastPairStartsAtAnEvenIndexAndNeverBelowZero) {
  const std::pair<int, int> cases[] = {{0, 0}, {1, 0}, {2, 0}, {3, 2}, {4, 2}, {5, 4}, {-3, 0}};
  for (const auto& [count, index] : cases) EXPECT_EQ(LastPairIndex(count), index) << count;
}

TEST(GameWatcher, EachBranchOfTheTickDoesItsOwnWorkOnly) {
  enum class Game { None, Alive, Ended, NeverStarted };
  struct Case {
    std::string name;
    bool running;
    bool media;
    Game game;
    WatchEvent event;
    std::vector<std::string> steps;
    bool running_after;
  };
  const std::vector<std::string> common = {"joystick", "f9", "f11", "full", "shot"};
  const std::vector<Case> cases = {
      {"idle", false, false, Game::Alive, WatchEvent::Idle, {}, false},
      {"common alive", true, false, Game::Alive, WatchEvent::CommonAlive, common, true},
      {"common ended", true, false, Game::Ended, WatchEvent::CommonEnded, {}, false},
      {"common gone", true, false, Game::NeverStarted, WatchEvent::CommonEnded, {}, false},
      {"media alive", true, true, Game::Alive, WatchEvent::MediaAlive, {}, true},
      {"media ended", true, true, Game::Ended, WatchEvent::MediaEnded, {"media"}, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    testing::PlayFixture f({"Base level"});
    std::vector<std::string> seen;
    WatcherSteps steps;
    steps.joystick = [&] { seen.push_back("joystick"); };
    steps.f9_archive = [&] { seen.push_back("f9"); };
    steps.f11_restore = [&] { seen.push_back("f11"); };
    steps.full_slots = [&] { seen.push_back("full"); };
    steps.screenshot = [&] { seen.push_back("shot"); };
    steps.collect_media_shots = [&] { seen.push_back("media"); };
    Process game;
    if (c.game != Game::NeverStarted) {
      auto started = f.platform.Start({testing::Standin("standin_game"), {}, f.editor, false});
      ASSERT_TRUE(started);
      game = *started;
      if (c.game == Game::Ended) {
        f.EndGame();
        ASSERT_EQ(f.platform.Wait(game, 5000ms), WaitResult::Ended);
      }
    }
    (c.media ? f.program.MediaProcess : f.program.GameProcess) = game;
    f.program.GameRunning = c.running;
    f.program.MediaPlay = c.media;
    f.program.ShotCount = 3;
    EXPECT_EQ(WatchGame(f.program, steps), c.event);
    EXPECT_EQ(seen, c.steps);
    EXPECT_EQ(f.program.GameRunning, c.running_after);
    if (c.event == WatchEvent::CommonEnded) {
      EXPECT_FALSE(f.program.GameProcess.Valid());
      EXPECT_EQ(f.program.FirstShotShown, 2);
    }
    if (game.Valid()) f.platform.End(game);
  }
}

TEST(GameLaunch, TheSettingsSilenceTheToneAndNothingElse) {
  const std::pair<std::int32_t, bool> cases[] = {{0, true}, {1, false}, {2, true}, {3, false}};
  for (const auto& [flags, sounds] : cases) {
    SCOPED_TRACE(flags);
    testing::TestProgram t;
    t.program.prefs.Flags = flags;
    Beep(t.program, 200, 150);
    EXPECT_EQ(t.platform.calls,
              sounds ? std::vector<std::string>{"beep 200"} : std::vector<std::string>{});
  }
}

TEST(GameLaunch, MediaHelpersComeFromTheProgramFolderOnlyWhereTheLevelHasNone) {
  struct Case {
    std::string name;
    std::vector<std::string> level_files;  // relative to the editor folder
    bool media;
    std::vector<std::string> ours;  // helpers copied from the program's folder
  };
  const std::vector<Case> cases = {
      {"common level", {"a.tr4"}, false, {}},
      {"media level", {"INTRO.MCF"}, true, {"Tomb_Logger.exe", "EnumVideoMode.exe", "TOMBKEY.VXD"}},
      {"own logger", {"x.mcf", "tomb_logger.exe"}, true, {"EnumVideoMode.exe", "TOMBKEY.VXD"}},
      {"helper in the store",
       {"x.mcf", "store/TOMBKEY.VXD"},
       true,
       {"Tomb_Logger.exe", "EnumVideoMode.exe"}},
      {"helpers not needed", {"x.mcf", "media_no_helpers.txt"}, true, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    testing::PlayFixture f({"Base level"});
    WriteBytes(f.program.Home() / "play_the_game.exe", "player");
    for (const std::string& helper : MediaHelperFiles())
      WriteBytes(f.program.Home() / helper, "ours");
    for (const std::string& file : c.level_files) WriteBytes(f.editor / file, "level's");
    fs::path folder;
    EXPECT_EQ(IsMediaLevel(f.program, folder), c.media);
    EXPECT_EQ(folder, f.editor);
    PrepareMediaPlay(f.program);
    EXPECT_EQ(ReadFile(f.editor / "play_the_game.exe"), "player");
    for (const std::string& helper : MediaHelperFiles()) {
      const bool copied = std::find(c.ours.begin(), c.ours.end(), helper) != c.ours.end();
      EXPECT_EQ(ReadFile(f.editor / helper) == "ours", copied) << helper;
    }
  }
}

}  // namespace
}  // namespace vardolin
