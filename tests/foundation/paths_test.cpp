#include "foundation/services/paths.h"

#include <gtest/gtest.h>

#include "foundation/services/safe_join.h"
#include "foundation/services/wildcard.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

struct PathCase {
  const char* path;
  const char* file_name;
  const char* extension;
  const char* folder;
  const char* base_name;
};

TEST(PathsTest, SplitsPathsAtEitherSeparatorAndTheDriveColon) {
  const PathCase cases[] = {
      {"C:name", "name", "", "", "name"},
      {"name", "name", "", "", "name"},
      {"C:\\trle\\tomb4.exe", "tomb4.exe", ".exe", "C:\\trle", "tomb4"},
      {"/home/u/levels/LEVEL_0001/files", "files", "", "/home/u/levels/LEVEL_0001", "files"},
      {"/a/b\\mixed.tar.gz", "mixed.tar.gz", ".gz", "/a/b", "mixed.tar"},
      {"\\savegame.", "savegame.", ".", "", "savegame"},
      {"folder\\", "", "", "folder", ""},
      {".hidden", ".hidden", ".hidden", "", ""},
      {"", "", "", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    EXPECT_EQ(ExtractFileName(c.path), c.file_name);
    EXPECT_EQ(ExtractExtension(c.path), c.extension);
    EXPECT_EQ(ExtractFolder(c.path), c.folder);
    EXPECT_EQ(ExtractBaseName(c.path), c.base_name);
  }
}

TEST(WildcardTest, PatternsMatchWithoutRegardToCase) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"LEVEL.TR4", "*.tr4", true},
      {"savegame.0", "savegame.*", true},
      {"savegame0", "savegame.*", false},
      {"noext", "*.*", true},
      {"a.b", "?.?", true},
      {"tomb4.exe", "TOMB?.EXE", true},
      {"aaaaaaaaaaaaaaaaaaaaaab", "*a*a*a*a*a*a*b", true},
      {"aaaaaaaaaaaaaaaaaaaaaaa", "*a*a*a*a*a*a*b", false},
  };
  for (const auto& [name, pattern, match] : cases)
    EXPECT_EQ(WildcardMatch(name, pattern), match) << name << " ~ " << pattern;
}

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
  // Not relative, climbing out, and through links that lead out or nowhere.
  const std::vector<std::vector<const char*>> refused = {
      {"", "/etc/passwd", "\\windows\\system32", "C:\\autoexec.bat", "c:relative", "file:stream"},
      {"..", "../x", "a/../../x", "a\\..\\b", "data/..", "./", "\\"},
      {"escape/file", "ESCAPE\\sub\\file", "escape", "data/dangling", "inner/dangling/y",
       "loop1/x"},
  };
  for (const auto& group : refused)
    for (const char* name : group) {
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

TEST_F(SafeJoinTest, ATargetReachedThroughALinkStillWorks) {
  fs::create_directory_symlink(target, dir / "via");
  auto r = SafeJoin(dir / "via", "Data/x");
  ASSERT_TRUE(r) << r.error;
  EXPECT_EQ(r.path, dir / "via" / "Data/x");
  EXPECT_FALSE(SafeJoin(dir / "via", "escape/x"));
}

}  // namespace
}  // namespace vardolin
