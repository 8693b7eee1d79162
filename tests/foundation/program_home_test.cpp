#include <gtest/gtest.h>

#include "foundation/program_home.h"
#include "environment.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::ScopedEnv;
using testing::TempDir;

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

  home.Write("nested/home/english.trc", "edited by the user");
  resources.Write("italian.trc", "new in this version");
  ASSERT_TRUE(PrepareHome(target));
  EXPECT_EQ(ReadFile(target / "english.trc"), "edited by the user");
  EXPECT_EQ(ReadFile(target / "italian.trc"), "new in this version");
}

TEST(ProgramHomeTest, AHomeThatIsAFileCannotBeUsed) {
  TempDir dir;
  fs::path file = dir.Write("occupied", "x");
  EXPECT_FALSE(PrepareHome(file));
}

}  // namespace
}  // namespace vardolin
