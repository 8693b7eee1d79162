// One writer per home, whatever is done to the lock file: a link in its place is not written
// through, and a lock file deleted while held lets nobody in.
#include "foundation/services/home_lock.h"

#include <gtest/gtest.h>

#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

TEST(HomeLock, AHeldHomeStaysHeldWhateverIsDoneToItsLockFile) {
  for (const bool link_first : {true, false}) {
    testing::TempDir dir;
    const fs::path home = dir / "home";
    fs::create_directories(home);
    const fs::path sentinel = dir.Write("sentinel.txt", "the user's own words");
    if (link_first) fs::create_symlink(sentinel, HomeLockFile(home));
    HomeLock first, second;
    ASSERT_TRUE(first.Acquire(home, "first")) << first.Error();
    if (!link_first) fs::remove(HomeLockFile(home));
    EXPECT_FALSE(second.Acquire(home, "second")) << link_first;
    EXPECT_EQ(testing::ReadFile(sentinel), "the user's own words");
    if (link_first) EXPECT_NE(second.Error().find("in use by first (process "), std::string::npos);
  }
}

}  // namespace
}  // namespace vardolin
