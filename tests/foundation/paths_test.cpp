#include "foundation/services/paths.h"
#include "foundation/services/text_scan.h"

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
      {"/old.dir/readme", "readme", "", "/old.dir", "readme"},
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

TEST(PathsTest, ChangesOnlyTheLastExtension) {
  EXPECT_EQ(ChangeExtension("level.tr4", ".zl"), "level.zl");
  EXPECT_EQ(ChangeExtension("a.b.tr4", ".pak"), "a.b.pak");
  EXPECT_EQ(ChangeExtension("/x.d/noext", ".txt"), "/x.d/noext.txt");
  EXPECT_EQ(RemoveExtension("archive.tar.gz"), "archive.tar");
  EXPECT_EQ(RemoveExtension("plain"), "plain");
}

TEST(PathsTest, UrlParts) {
  struct {
    const char* url;
    const char* host;
    const char* file;
  } cases[] = {
      {"http://www.example.org/download/new_wads_all.zip", "www.example.org", "new_wads_all.zip"},
      {"https://host:8080", "host:8080", "host:8080"},
      {"example.org/x/urllist.bin", "example.org/x/urllist.bin", "urllist.bin"},
      {"C:\\down\\file.zip", "C:\\down\\file.zip", "file.zip"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.url);
    EXPECT_EQ(ExtractUrlHost(c.url), c.host);
    EXPECT_EQ(ExtractUrlFileName(c.url), c.file);
  }
}

TEST(PathsTest, CleansTextForFileNames) {
  EXPECT_EQ(RemoveNulls(std::string("  Lara\0\0\0", 9)), "Lara");
  EXPECT_EQ(RemoveNulls(std::string("a\0b", 3)), "a b");
  EXPECT_EQ(CleanFileName("a/b\\c<d>e:f?g|h\"i*j"), "a b c d e f g h i*j");
}

TEST(PathsTest, FormatsFileSizesAtEachThreshold) {
  const std::pair<double, const char*> cases[] = {
      {0, "0"},
      {1023, "1023"},
      {1024, "1 Kb"},
      {2047, "1 Kb"},
      {1048575, "1023 Kb"},
      {1048576, "1.0 Mb"},
      {1572864, "1.5 Mb"},
      {1073741823, "1024.0 Mb"},
      {1073741824, "1.0 Gb"},
      {5368709120.0, "5.0 Gb"},
  };
  for (const auto& [bytes, text] : cases) EXPECT_EQ(FormatFileSize(bytes), text) << bytes;
}

TEST(PathsTest, NumbersAreTakenOneRunAtATime) {
  std::string text = "v12 and 7, then 345";
  std::size_t pos = 0;
  EXPECT_EQ(NextNumberInText(text, pos), "12");
  EXPECT_EQ(pos, 3u);
  EXPECT_EQ(NextNumberInText(text, pos), "7");
  EXPECT_EQ(NextNumberInText(text, pos), "345");
  EXPECT_EQ(pos, text.size());
  EXPECT_EQ(NextNumberInText(text, pos), "");
  pos = 100;  // past the end is the end
  EXPECT_EQ(NextNumberInText(text, pos), "");
}

TEST(PathsTest, LinesEndAtAnyRunOfCrAndLf) {
  std::string text = "one\r\ntwo\nthree\r\n\r\nfour";
  std::size_t pos = 0;
  std::vector<std::string> lines;
  while (pos < text.size()) lines.push_back(NextLineInText(text, pos));
  EXPECT_EQ(lines, (std::vector<std::string>{"one", "two", "three", "four"}));
  EXPECT_EQ(NextLineInText(text, pos), "");
}

TEST(PathsTest, SortIndexIsAnExchangeSortThatNeverSwapsEqualValues) {
  std::vector<double> values = {3, 1, 2, 1};
  EXPECT_EQ(SortIndexByValue(values, true), (std::vector<int>{1, 3, 2, 0}));
  EXPECT_EQ(SortIndexByValue(values, false), (std::vector<int>{0, 2, 1, 3}));
  // Exchange order, not stable order: the 5 at index 0 is swapped behind the other 5.
  std::vector<int> ties = {5, 5, 1};
  EXPECT_EQ(SortIndexByValue(ties, true), (std::vector<int>{2, 1, 0}));
  EXPECT_TRUE(SortIndexByValue(std::vector<int>{}, true).empty());
}

TEST(PathsTest, JoinsTextFragmentsOntoFolders) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"/home/v", "\\files", "/home/v/files"},
      {"/home/v", "\\*.zl", "/home/v/*.zl"},
      {"/home/v", "\\savegame.", "/home/v/savegame."},
      {"/home/v", "data\\level\\x.tr4", "/home/v/data/level/x.tr4"},
      {"/home/v", "", "/home/v"},
      {"/home/v", "\\\\", "/home/v"},
      {"", "\\files", "files"},
  };
  for (const auto& [folder, fragment, joined] : cases)
    EXPECT_EQ(JoinFragment(folder, fragment).string(), joined) << fragment;
}

TEST(WildcardTest, PatternsMatchWithoutRegardToCase) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"LEVEL.TR4", "*.tr4", true},
      {"level.tr4", "*.TR4", true},
      {"level.tr4x", "*.tr4", false},
      {"savegame.0", "savegame.*", true},
      {"SaveGame.15", "savegame.*", true},
      {"savegame", "savegame.*", true},
      {"savegame0", "savegame.*", false},
      {"anything", "*", true},
      {"noext", "*.*", true},
      {"", "*", true},
      {"a.b", "?.?", true},
      {"ab.b", "?.?", false},
      {"tomb4.exe", "TOMB?.EXE", true},
      {"x", "", false},
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

TEST_F(SafeJoinTest, ATargetReachedThroughALinkStillWorks) {
  fs::create_directory_symlink(target, dir / "via");
  auto r = SafeJoin(dir / "via", "Data/x");
  ASSERT_TRUE(r) << r.error;
  EXPECT_EQ(r.path, dir / "via" / "Data/x");
  EXPECT_FALSE(SafeJoin(dir / "via", "escape/x"));
}

}  // namespace
}  // namespace vardolin
