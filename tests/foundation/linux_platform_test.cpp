#include <gtest/gtest.h>

#include "environment.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/services/processes.h"
#include "recording_platform.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using testing::ReadFile;
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

TEST_F(LinuxPlatformTest, RunsInTheProgramsOwnFolderUnlessToldOtherwise) {
  int code = 0;
  auto lines = Capture(platform, {Echo(), {"one", "two words", ""}, {}, true}, &code);
  EXPECT_EQ(lines, (std::vector<std::string>{"cwd " + fs::canonical(Echo().parent_path()).string(),
                                             "arg one", "arg two words", "arg "}));
  EXPECT_EQ(code, 0);
  lines = Capture(platform, {Echo(), {}, dir.path(), false});
  EXPECT_EQ(lines.at(0), "cwd " + fs::canonical(dir.path()).string());
}

TEST_F(LinuxPlatformTest, LineEndsOfEitherKindAndALastLineWithoutOne) {
  auto crlf = Capture(platform, {Echo(), {"--crlf", "--lines", "2"}, dir.path(), false});
  auto lf = Capture(platform, {Echo(), {"--lines", "2"}, dir.path(), false});
  ASSERT_EQ(crlf.size(), 6u);
  EXPECT_EQ(crlf[4], "line 1");
  EXPECT_EQ(crlf[5], "line 2");
  EXPECT_EQ(lf.back(), "line 2");

  fs::path script = dir.Write("printf.sh", "#!/bin/sh\nprintf 'a\\r\\nb\\rc\\n\\nd'\n");
  fs::permissions(script, fs::perms::owner_all);
  EXPECT_EQ(Capture(platform, {script, {}, {}, false}),
            (std::vector<std::string>{"a", "b", "c", "", "d"}));
}

TEST_F(LinuxPlatformTest, ExitCodesWaitsAndTimeouts) {
  auto quick = platform.Start({Echo(), {"--out", "/dev/null", "--exit", "7"}, dir.path(), false});
  ASSERT_TRUE(quick);
  EXPECT_EQ(platform.Wait(*quick, milliseconds(5000)), WaitResult::Ended);
  EXPECT_EQ(platform.ExitCode(*quick), 7);
  EXPECT_FALSE(platform.IsRunning(*quick));
  EXPECT_EQ(platform.Wait(*quick, milliseconds(10)), WaitResult::Ended);  // asked again

  auto slow =
      platform.Start({Echo(), {"--out", "/dev/null", "--sleep", "20000"}, dir.path(), false});
  ASSERT_TRUE(slow);
  EXPECT_EQ(platform.Wait(*slow, milliseconds(30)), WaitResult::TimedOut);
  EXPECT_TRUE(platform.IsRunning(*slow));
  EXPECT_EQ(platform.ExitCode(*slow), -1);
  platform.End(*slow);
  EXPECT_FALSE(platform.IsRunning(*slow));
  EXPECT_EQ(platform.ExitCode(*slow), 128 + 15);

  Process none;
  EXPECT_EQ(platform.Wait(none, milliseconds(10)), WaitResult::Failed);
  EXPECT_FALSE(platform.IsRunning(none));
}

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

TEST_F(LinuxPlatformTest, TheHandlerCanBreakOffTheProgram) {
  std::vector<std::string> seen;
  int code =
      platform.RunCapturing({Echo(), {"--lines", "1000000", "--sleep", "20000"}, dir.path(), false},
                            [&](const std::string& line) {
                              seen.push_back(line);
                              return line != "line 3";
                            });
  EXPECT_EQ(seen.back(), "line 3");
  EXPECT_EQ(code, 128 + 15);
}

TEST_F(LinuxPlatformTest, MissingProgramsDontStart) {
  EXPECT_FALSE(platform.Start({dir / "nothing", {}, {}, false}));
  EXPECT_FALSE(platform.Start({"no-such-program-vardolin", {}, {}, false}));
  EXPECT_FALSE(platform.Start({Echo(), {}, dir / "no-folder", false}));
  EXPECT_FALSE(platform.Start({dir.path(), {}, {}, false}));
  EXPECT_EQ(platform.RunCapturing({dir / "nothing", {}, {}, false},
                                  [](const std::string&) { return true; }),
            -1);
}

TEST_F(LinuxPlatformTest, ProgramsOnThePathAndInAnotherCase) {
  ScopedEnv path("PATH", Echo().parent_path().string() + ":/usr/bin:/bin");
  auto lines = Capture(platform, {"standin_echo", {"x"}, dir.path(), false});
  EXPECT_EQ(lines.size(), 2u);
  fs::copy_file(Echo(), dir / "Tool");
  EXPECT_EQ(Capture(platform, {dir / "TOOL", {}, {}, false}).size(), 1u);
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

TEST_F(LinuxPlatformTest, ShellOpenStartsProgramsAndHandsDocumentsToTheOpener) {
  fs::path opener = dir.Write("opener.sh", "#!/bin/sh\necho \"$1|$(pwd)\" > \"$OPENED\"\n");
  fs::permissions(opener, fs::perms::owner_all);
  ScopedEnv opened("OPENED", (dir / "opened.txt").string());
  LinuxPlatform::Options options;
  options.opener = opener.string();
  LinuxPlatform desktop(options);

  fs::path doc = dir.Write("docs/readme.txt", "hi");
  ASSERT_TRUE(desktop.ShellOpen(doc.string(), "", {}));
  EXPECT_EQ(ReadFile(dir / "opened.txt"),
            doc.string() + "|" + fs::canonical(dir / "docs").string() + "\n");

  ASSERT_TRUE(desktop.ShellOpen("https://example.org/x", "", dir.path()));
  EXPECT_EQ(ReadFile(dir / "opened.txt"),
            "https://example.org/x|" + fs::canonical(dir.path()).string() + "\n");

  fs::path out = dir / "program-out.txt";
  ASSERT_TRUE(desktop.ShellOpen(Echo().string(), "--out \"" + out.string() + "\" \"a b\"", {}));
  EXPECT_TRUE(
      testing::WaitFor([&] { return ReadFile(out).find("arg a b\n") != std::string::npos; }));

  LinuxPlatform::Options failing;
  failing.opener = "false";
  EXPECT_FALSE(LinuxPlatform(failing).ShellOpen(doc.string(), "", {}));
  EXPECT_FALSE(desktop.ShellOpen("", "", {}));
}

TEST(ProcessesTest, AKeyCombinationIsDownOnlyWhenEveryKeyIs) {
  struct Case {
    std::vector<int> held;
    int k1, k2, k3;
    bool down;
  };
  const Case cases[] = {
      {{0x11, 0x78}, 0x11, 0x78, 0, true},  // Ctrl+F9
      {{0x11}, 0x11, 0x78, 0, false},       // F9 not held
      {{0x11, 0x10, 0x78}, 0x11, 0x10, 0x78, true},
      {{}, 0, 0, 0, false},        // no keys asked: nothing is held
      {{0x7A}, 0, 0x7A, 0, true},  // a zero in front is no key
  };
  for (const Case& c : cases) {
    testing::RecordingPlatform platform;
    for (int k : c.held) platform.keys_down[k] = true;
    EXPECT_EQ(IsKeyCombinationDown(platform, c.k1, c.k2, c.k3), c.down) << c.k1 << "+" << c.k2;
  }
}

TEST(ProcessesTest, RunAndWaitBlocksUntilTheProgramHasWritten) {
  testing::TempDir dir;
  LinuxPlatform platform;
  auto out = dir / "out.txt";
  ASSERT_TRUE(
      RunAndWait(platform, Echo(), {"--sleep", "100", "--out", out.string(), "done"}, true));
  EXPECT_NE(testing::ReadFile(out).find("done"), std::string::npos);
  EXPECT_FALSE(RunAndWait(platform, dir / "missing", {}, true));
}

}  // namespace
}  // namespace vardolin
