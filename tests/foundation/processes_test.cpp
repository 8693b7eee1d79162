#include "foundation/services/processes.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "foundation/platform/linux_platform.h"
#include "recording_platform.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

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
  const char* standins = std::getenv("VARDOLIN_STANDINS");
  if (!standins) GTEST_SKIP() << "stand-in programs are found through VARDOLIN_STANDINS";
  testing::TempDir dir;
  LinuxPlatform platform;
  auto out = dir / "out.txt";
  ASSERT_TRUE(RunAndWait(platform, std::filesystem::absolute(standins) / "standin_echo",
                         {"--sleep", "100", "--out", out.string(), "done"}, true));
  EXPECT_NE(testing::ReadFile(out).find("done"), std::string::npos);
  EXPECT_FALSE(RunAndWait(platform, dir / "missing", {}, true));
}

}  // namespace
}  // namespace vardolin
