#include "foundation/services/safe_join.h"

#include <gtest/gtest.h>

#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

struct SafeJoinTest : ::testing::Test {
  TempDir dir;
  fs::path target = dir / "target";
  void SetUp() override {
    fs::create_directories(target / "Data");
    fs::create_directories(dir / "outside");
    fs::create_directory_symlink(dir / "outside", target / "escape");
    fs::create_directory_symlink(target / "Data", target / "inner");
    fs::create_symlink("../../outside/x", target / "Data" / "dangling");
    fs::create_symlink("loop2", target / "loop1");
    fs::create_symlink("loop1", target / "loop2");
  }
};

TEST_F(SafeJoinTest, AcceptsRelativeNamesWithEitherSeparator) {
  const std::pair<const char*, const char*> cases[] = {
      {"level.tr4", "level.tr4"},
      {"data\\level.tr4", "Data/level.tr4"},  // takes the on-disk case of "Data"
      {"DATA/sub/x.wad", "Data/sub/x.wad"},
      {"./a//b\\.\\c", "a/b/c"},
      {"inner/x", "inner/x"},  // a link that stays inside is fine
      {"..name", "..name"},
      {"name..", "name.."},
      {"a b/c d", "a b/c d"},
  };
  for (const auto& [name, rel] : cases) {
    auto r = SafeJoin(target, name);
    ASSERT_TRUE(r) << name << ": " << r.error;
    EXPECT_EQ(r.path, target / rel) << name;
    EXPECT_TRUE(r.error.empty());
  }
}

TEST_F(SafeJoinTest, RefusesNamesThatLeadOutOrAreNotNames) {
  const char* refused[] = {
      "",
      "/etc/passwd",
      "\\windows\\system32",
      "C:\\autoexec.bat",
      "c:relative",
      "file:stream",
      "..",
      "../x",
      "a/../../x",
      "a\\..\\b",
      "data/..",
      "./",
      "\\",
      "escape/file",
      "ESCAPE\\sub\\file",
      "escape",
      "data/dangling",
      "inner/dangling/y",
      "loop1/x",
  };
  for (const char* name : refused) {
    auto r = SafeJoin(target, name);
    EXPECT_FALSE(r) << name << " gave " << r.path;
    EXPECT_FALSE(r.error.empty()) << name;
  }
  EXPECT_FALSE(SafeJoin(target, std::string("a\0b", 3)));
  EXPECT_FALSE(SafeJoin("", "a"));
  // Longer than the file system takes: one part, or the whole path. The longest part is fine.
  std::string deep;
  for (int i = 0; i < 20; ++i) deep += std::string(250, 'd') + "/";
  for (const std::string& name : {"a/" + std::string(256, 'n') + "/b", deep}) {
    auto r = SafeJoin(target, name);
    EXPECT_FALSE(r) << name.size();
    EXPECT_NE(r.error.find("too long"), std::string::npos) << r.error;
  }
  EXPECT_TRUE(SafeJoin(target, std::string(255, 'n')));
}

TEST_F(SafeJoinTest, NothingIsTouchedOnDisk) {
  SafeJoin(target, "new/folder/file");
  SafeJoin(target, "../outside/evil");
  EXPECT_FALSE(fs::exists(target / "new"));
  EXPECT_TRUE(fs::is_empty(dir / "outside"));
}

TEST_F(SafeJoinTest, ATargetReachedThroughALinkStillWorks) {
  fs::create_directory_symlink(target, dir / "via");
  auto r = SafeJoin(dir / "via", "Data/x");
  ASSERT_TRUE(r) << r.error;
  EXPECT_EQ(r.path, dir / "via" / "Data/x");
  EXPECT_FALSE(SafeJoin(dir / "via", "escape/x"));
}

}  // namespace
}  // namespace vardolin
