// Playing through the real Wine: the Windows build of the stand-in game is the level's tomb4.exe,
// in a private prefix made in the test's folder. Only a machine without Wine skips it.
#include <gtest/gtest.h>

#include <unistd.h>

#include "environment.h"
#include "play_fixture.h"
#include "private_wine.h"
#include "savegame_bytes.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::OnPath;
using testing::PrivateWine;
using testing::ReadFile;
using testing::WriteBytes;

TEST(WinePlay, ALevelIsPlayedThroughTheRealWineAndItsEndIsSeenWhileTheServerStays) {
  if (!OnPath("wine")) GTEST_SKIP() << "wine is not installed";
  testing::PlayFixture f({"Base level", "Beta"});
  fs::copy_file(testing::Standin("windows/standin_game.exe"), f.editor / "tomb4.exe",
                fs::copy_options::overwrite_existing);
  PrivateWine wine(f.platform, f.dir / "wineprefix");

  f.Choose("Beta");
  f.main->Pul_Play.Click();
  ASSERT_TRUE(f.program.GameRunning);
  const Process game = f.program.GameProcess;
  // The first start fills the new prefix, which takes Wine several seconds.
  ASSERT_TRUE(testing::WaitFor([&] { return fs::exists(f.editor / "standin_started.txt"); }, 300s));
  std::string dos_folder = "Z:" + fs::canonical(f.editor).string();
  std::replace(dos_folder.begin(), dos_folder.end(), '/', '\\');
  EXPECT_EQ(ReadFile(f.editor / "standin_started.txt"), dos_folder + "\n");
  f.main->Timer1.Tick();
  EXPECT_TRUE(f.program.GameRunning);

  WriteBytes(f.editor / "standin_commands.txt", "save 2 Wine Beta\nexit 5\n");
  ASSERT_TRUE(testing::WaitFor(
      [&] {
        f.main->Timer1.Tick();
        return !f.program.GameRunning;
      },
      60s));
  EXPECT_EQ(f.platform.ExitCode(game), 5);
  EXPECT_TRUE(wine.ServerRunning()) << "the end was seen although Wine's server stays";
  EXPECT_EQ(ReadFile(f.editor / "savegame.2"), testing::GameSavegameBytes(2, "Wine Beta"));
  EXPECT_TRUE(f.ui.Done());
}

}  // namespace
}  // namespace vardolin
