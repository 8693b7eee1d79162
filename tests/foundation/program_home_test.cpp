#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "foundation/program_home.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::TempDir;

class ScopedEnv {
 public:
  ScopedEnv(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    if (value)
      ::setenv(name, value, 1);
    else
      ::unsetenv(name);
  }
  ~ScopedEnv() {
    if (old_)
      ::setenv(name_, old_->c_str(), 1);
    else
      ::unsetenv(name_);
  }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

TEST(ProgramHomeTest, OptionThenEnvironmentThenXdgThenHome) {
  struct Case {
    const char* option;
    const char* vardolin_home;
    const char* xdg;
    const char* expected;
  };
  const Case cases[] = {
      {"/opt/a", "/env/b", "/xdg", "/opt/a"},
      {"", "/env/b", "/xdg", "/env/b"},
      {"", "", "/xdg", "/xdg/vardolin"},
      {"", nullptr, nullptr, "/users/lara/.local/share/vardolin"},
  };
  ScopedEnv home("HOME", "/users/lara");
  for (const Case& c : cases) {
    ScopedEnv v("VARDOLIN_HOME", c.vardolin_home);
    ScopedEnv x("XDG_DATA_HOME", c.xdg);
    EXPECT_EQ(ResolveHome(c.option), fs::path(c.expected)) << c.option;
  }
}

TEST(ProgramHomeTest, FirstStartCopiesResourcesAndLaterStartsKeepTheUsersFiles) {
  TempDir resources, home;
  resources.Write("english.trc", "shipped");
  resources.Write("pictures/splash.jpg", "picture");
  ScopedEnv env("VARDOLIN_RESOURCES", resources.path().c_str());

  fs::path target = home / "nested/home";
  ASSERT_TRUE(PrepareHome(target));
  EXPECT_EQ(ReadFile(target / "english.trc"), "shipped");
  EXPECT_EQ(ReadFile(target / "pictures/splash.jpg"), "picture");

  // A newer program: what it ships replaces what the older one put there, not what the user
  // changed.
  home.Write("nested/home/english.trc", "edited by the user");
  resources.Write("english.trc", "shipped, second version");
  resources.Write("pictures/splash.jpg", "picture, second version");
  resources.Write("italian.trc", "new in this version");
  ASSERT_TRUE(PrepareHome(target));
  EXPECT_EQ(ReadFile(target / "english.trc"), "edited by the user");
  EXPECT_EQ(ReadFile(target / "pictures/splash.jpg"), "picture, second version");
  EXPECT_EQ(ReadFile(target / "italian.trc"), "new in this version");

  // A home an older build made, before it kept a record of what it shipped: its files are
  // refreshed, and what stood there stays beside them.
  fs::remove(target / ".shipped_resources");
  home.Write("nested/home/italian.trc", "from an older build");
  ASSERT_TRUE(PrepareHome(target));
  EXPECT_EQ(ReadFile(target / "italian.trc"), "new in this version");
  EXPECT_EQ(ReadFile(target / "italian.trc.old"), "from an older build");
}

TEST(ProgramHomeTest, AHomeThatIsAFileCannotBeUsed) {
  TempDir dir;
  fs::path file = dir.Write("occupied", "x");
  EXPECT_FALSE(PrepareHome(file));
}

}  // namespace
}  // namespace vardolin
