// The launch helpers on real folders and the pair of screenshots shown after a game. The
// watcher's tick itself is driven through the main window in play_test.cpp.
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

}  // namespace
}  // namespace vardolin
