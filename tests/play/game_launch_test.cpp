// The launch helpers on real folders and the pair of screenshots shown after a game. The
// watcher's tick itself is driven through the main window in play_test.cpp.
#include "play/game_watcher.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "foundation/services/log.h"
#include "play/game_launch.h"
#include "play_fixture.h"
#include "test_program.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
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

// A level's package may put its own tomb4.exe into the editor folder. Only the very bytes the
// home allows run natively; a script or a changed copy is never started, whatever its form.
TEST(GameLaunch, ANativeGameRunsOnlyWhenTheHomeAllowsItsVeryBytes) {
  struct Case {
    const char* what;
    std::string tail;  // bytes after the stand-in's own; empty keeps it as the home allows it
    bool script;       // a shell script in its place
    bool starts;
  };
  const Case cases[] = {
      {"the stand-in the home allows", "", false, true},
      {"the stand-in with one byte more", "x", false, false},
      {"a script a package named tomb4.exe", "", true, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    testing::PlayFixture f({"Base level"});
    const fs::path game = f.editor / "tomb4.exe";
    if (c.script) {
      WriteBytes(game, "#!/bin/sh\ntouch ran_natively\n");
      fs::permissions(game, fs::perms::owner_all);
    }
    if (!c.tail.empty()) std::ofstream(game, std::ios::binary | std::ios::app) << c.tail;
    ASSERT_EQ(LaunchGame(f.program, ""), c.starts);
    if (c.starts) {
      f.EndGame();
      EXPECT_EQ(f.platform.Wait(f.program.GameProcess, std::chrono::seconds(30)),
                WaitResult::Ended);
      continue;
    }
    EXPECT_FALSE(f.program.GameProcess.Valid());
    EXPECT_NE(ReadFile(LogPath(f.program)).find("doesn't allow it to run natively"),
              std::string::npos);
  }
}

}  // namespace
}  // namespace vardolin
