// The launch helpers on real folders and the pair of screenshots shown after a game. The
// watcher's tick itself is driven through the main window in play_test.cpp.
#include "play/game_watcher.h"

#include <gtest/gtest.h>

#include "foundation/services/log.h"
#include "play/game_launch.h"
#include "play_fixture.h"
#include "test_program.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ReadFile;
using testing::WriteBytes;

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

// A level's package may put its own tomb4.exe into the editor folder: only the very bytes the
// home allows run natively, never a script or a changed copy, whatever their form.
TEST(GameLaunch, ANativeGameRunsOnlyWhenTheHomeAllowsItsVeryBytes) {
  for (const char* change : {"", "one byte more", "#!/bin/sh\ntouch ran_natively\n"}) {
    testing::PlayFixture f({"Base level"});
    const fs::path game = f.editor / "tomb4.exe";
    if (change[0] == '#') WriteBytes(game, change);
    if (change[0] == 'o') std::ofstream(game, std::ios::binary | std::ios::app) << "x";
    fs::permissions(game, fs::perms::owner_all, fs::perm_options::add);
    ASSERT_EQ(LaunchGame(f.program, ""), !*change) << change;
    const bool refused = ReadFile(LogPath(f.program)).find("doesn't allow it") != std::string::npos;
    EXPECT_EQ(refused, *change != 0);
    f.EndGame();
    if (!*change) EXPECT_EQ(f.platform.Wait(f.program.GameProcess, 30s), WaitResult::Ended);
  }
}

}  // namespace
}  // namespace vardolin
