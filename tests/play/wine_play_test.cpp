// Playing through the real Wine: the Windows build of the stand-in game is the level's tomb4.exe,
// in a private prefix made in the test's folder. Only a machine without Wine skips it.
#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>

#include "environment.h"
#include "play_fixture.h"
#include "savegame_bytes.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ReadFile;
using testing::ScopedEnv;
using testing::WriteBytes;

bool OnPath(const std::string& name) {
  const char* path = std::getenv("PATH");
  std::istringstream folders(path ? path : "");
  for (std::string folder; std::getline(folders, folder, ':');)
    if (!folder.empty() && ::access((fs::path(folder) / name).c_str(), X_OK) == 0) return true;
  return false;
}

// Wine for this test alone: its own prefix, quiet, without a window (no display, no offer to
// install Mono or Gecko). The prefix's server is started persistent, so that it surely stays
// behind the game as it does on a desktop, and is ended with the test whatever happens.
class PrivateWine {
 public:
  PrivateWine(LinuxPlatform& platform, const fs::path& prefix)
      : platform_(platform), prefix_(prefix.string()) {
    fs::create_directories(prefix);
    EXPECT_EQ(Run({"-p"}), 0) << "wineserver -p";
  }
  ~PrivateWine() { Run({"-k"}); }

  // A server of this prefix is alive (a zombie shows no environment, so it doesn't count).
  bool ServerRunning() const {
    const std::string mark = std::string("WINEPREFIX=") + prefix_;
    for (const auto& entry : fs::directory_iterator("/proc")) {
      if (!ReadFile(entry.path() / "comm").starts_with("wineserver")) continue;
      std::istringstream environment(ReadFile(entry.path() / "environ"));
      for (std::string variable; std::getline(environment, variable, '\0');)
        if (variable == mark) return true;
    }
    return false;
  }

 private:
  int Run(std::vector<std::string> arguments) {
    auto server = platform_.Start({"wineserver", std::move(arguments), {}, true});
    if (!server || platform_.Wait(*server, 30s) != WaitResult::Ended) return -1;
    return platform_.ExitCode(*server);
  }

  LinuxPlatform& platform_;
  std::string prefix_;
  ScopedEnv env_[6] = {{"WINEPREFIX", prefix_.c_str()},
                       {"WINEDEBUG", "-all"},
                       {"WINEDLLOVERRIDES", "mscoree,mshtml="},
                       {"VARDOLIN_WINE", nullptr},
                       {"DISPLAY", nullptr},
                       {"WAYLAND_DISPLAY", nullptr}};
};

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
  EXPECT_TRUE(f.main->Label_InfoDir.Caption().ends_with("0 + 1"))
      << f.main->Label_InfoDir.Caption();
  EXPECT_TRUE(f.ui.Done());
}

}  // namespace
}  // namespace vardolin
