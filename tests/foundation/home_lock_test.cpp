// One writer per home, whatever is done to the lock file: a link in its place is not written
// through, and a lock file deleted while held lets nobody in.

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>

#include "environment.h"
#include "foundation/services/home_lock.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

TEST(HomeLock, AHeldHomeStaysHeldWhateverIsDoneToItsLockFile) {
  struct Case {
    const char* what;
    std::function<void(const fs::path&home, const fs::path&sentinel)> before, while_held;
  };
  const Case cases[] = {
      {"the lock file is a link to another file",
       [](const fs::path& home, const fs::path& sentinel) {
         fs::create_symlink(sentinel, HomeLockFile(home));
       },
       {}},
      {"the lock file is deleted while held",
       {},
       [](const fs::path& home, const fs::path&) { fs::remove(HomeLockFile(home)); }},
      {"the lock file is replaced by a link while held",
       {},
       [](const fs::path& home, const fs::path& sentinel) {
         fs::remove(HomeLockFile(home));
         fs::create_symlink(sentinel, HomeLockFile(home));
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    testing::TempDir dir;
    const fs::path home = dir / "home";
    fs::create_directories(home);
    const fs::path sentinel = dir.Write("sentinel.txt", "the user's own words");
    if (c.before) c.before(home, sentinel);
    HomeLock first;
    ASSERT_TRUE(first.Acquire(home, "first")) << first.Error();
    if (c.while_held) c.while_held(home, sentinel);
    HomeLock second;
    EXPECT_FALSE(second.Acquire(home, "second"));
    EXPECT_EQ(testing::ReadFile(sentinel), "the user's own words");
    if (!c.while_held) {
      EXPECT_FALSE(fs::is_symlink(HomeLockFile(home)));
      EXPECT_EQ(second.Owner().pid, getpid());
      EXPECT_NE(second.Error().find("in use by first (process "), std::string::npos)
          << second.Error();
    }
  }
}

}  // namespace
}  // namespace vardolin
