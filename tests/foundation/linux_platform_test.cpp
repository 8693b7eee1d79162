#include <gtest/gtest.h>

#include "environment.h"
#include "foundation/platform/linux_platform.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using testing::ScopedEnv;
using testing::TempDir;

fs::path Echo() {
  return testing::Standin("standin_echo");
}

std::vector<std::string> Capture(LinuxPlatform& platform, const StartRequest& request,
                                 int* code = nullptr) {
  std::vector<std::string> lines;
  int rc = platform.RunCapturing(request, [&](const std::string& line) {
    lines.push_back(line);
    return true;
  });
  if (code) *code = rc;
  return lines;
}

struct LinuxPlatformTest : ::testing::Test {
  TempDir dir;
  LinuxPlatform platform;
  void SetUp() override { ASSERT_TRUE(fs::exists(Echo())) << Echo(); }
};

TEST_F(LinuxPlatformTest, AProgramThatIgnoresTheRequestToEndIsKilled) {
  fs::path script =
      dir.Write("stubborn.sh", "#!/bin/sh\ntrap '' TERM\nsleep 3 >/dev/null 2>&1 & wait\n");
  fs::permissions(script, fs::perms::owner_all);
  LinuxPlatform::Options options;
  options.end_grace = milliseconds(300);
  LinuxPlatform quick_to_kill(options);
  // End waits out the grace time; EndWithoutWaiting returns at once and the end comes later.
  for (bool waiting : {true, false}) {
    SCOPED_TRACE(waiting ? "End" : "EndWithoutWaiting");
    auto p = quick_to_kill.Start({script, {}, {}, false});
    ASSERT_TRUE(p);
    std::this_thread::sleep_for(milliseconds(100));
    const auto asked = std::chrono::steady_clock::now();
    if (waiting)
      quick_to_kill.End(*p);
    else
      quick_to_kill.EndWithoutWaiting(*p);
    EXPECT_EQ(std::chrono::steady_clock::now() - asked < milliseconds(150), !waiting);
    EXPECT_EQ(quick_to_kill.Wait(*p, milliseconds(3000)), WaitResult::Ended);
    EXPECT_EQ(quick_to_kill.ExitCode(*p), 128 + 9);
  }
}

TEST_F(LinuxPlatformTest, WindowsProgramsGoThroughWine) {
  fs::path game = dir.Write("Game/TOMB4.EXE", std::string("MZ\x90\0", 4) + "rest");
  fs::path native = dir / "Game/native.exe";
  fs::copy_file(Echo(), native);
  ScopedEnv wine("VARDOLIN_WINE", "\"" + Echo().string() + "\" --as-wine");

  StartRequest request{dir / "game/tomb4.exe", {"-level", "2"}, {}, false};
  EXPECT_EQ(platform.CommandLine(request),
            (std::vector<std::string>{Echo().string(), "--as-wine", game.string(), "-level", "2"}));
  auto lines = Capture(platform, request);
  EXPECT_EQ(lines, (std::vector<std::string>{"cwd " + fs::canonical(dir / "Game").string(),
                                             "arg --as-wine", "arg " + game.string(), "arg -level",
                                             "arg 2"}));
  // A native program that happens to end in .exe runs directly.
  EXPECT_EQ(Capture(platform, {native, {"a"}, {}, false}).at(1), "arg a");

  ScopedEnv no_wine("VARDOLIN_WINE", (dir / "no-wine-here").string());
  EXPECT_FALSE(platform.Start(request));
}

}  // namespace
}  // namespace vardolin
