#include "archive/level_store.h"

#include <gtest/gtest.h>

#include "store_fixture.h"

namespace vardolin::testing {
namespace {

namespace fs = std::filesystem;

struct LevelStoreTest : StoreFixture, ::testing::Test {};

TEST_F(LevelStoreTest, LevelFoldersByCodeAndCd) {
  struct Case {
    std::int32_t code;
    bool use_cd;
    fs::path folder;
    bool refused;
  };
  program.catalogue.levels[2].Code = 12345;
  const std::vector<Case> cases = {
      {0, true, Path("home") / "LEVEL_0000", false},
      {1, true, archive / "LEVEL_0001", false},
      {12345, true, archive / "LEVEL_12345", false},
      {77, true, archive / "LEVEL_0077", false},  // a level to come
      {3, true, {}, true},                        // on CD 2: the CD counts as refused
      {3, false, archive / "LEVEL_0003", false},  // its user folders stay on hard disk
  };
  for (const Case& c : cases) {
    program.CdRefused = !c.refused;  // every call starts by clearing it
    EXPECT_EQ(GetLevelFolder(program, c.code, c.use_cd), c.folder) << c.code;
    EXPECT_EQ(program.CdRefused, c.refused) << c.code;
  }
  EXPECT_TRUE(GetLevelFilesFolder(program, 3, true).empty());
  EXPECT_EQ(GetLevelFilesFolder(program, 1, true), archive / "LEVEL_0001" / "files");

  for (const char* blank : {"", "   ", "archive"}) {
    program.catalogue.header.SecondaryDir = blank;
    EXPECT_EQ(GetLevelFolder(program, 1, false), fs::path()) << "never below the working folder";
    EXPECT_EQ(GetLevelFolder(program, 0, false), Path("home") / "LEVEL_0000");
  }
}

TEST_F(LevelStoreTest, DeleteLevelTreeRemovesReadOnlyPartsAndNeverFollowsLinks) {
  fs::path level = archive / "LEVEL_0001";
  WriteBytes(level / "files" / "a.tr4", "a");
  WriteBytes(level / "files" / "store" / "deep" / "b.dat", "b");
  WriteBytes(level / "play" / "savegame.0", "s");
  WriteBytes(Path("outside") / "keep.txt", "keep");
  fs::create_directory_symlink(Path("outside"), level / "files" / "link");
  fs::permissions(level / "files" / "a.tr4", fs::perms::owner_read);
  fs::permissions(level / "files" / "store" / "deep",
                  fs::perms::owner_read | fs::perms::owner_exec);

  EXPECT_TRUE(DeleteLevelTree(program, level, nullptr, nullptr));
  EXPECT_FALSE(fs::exists(level));
  EXPECT_EQ(ReadFile(Path("outside") / "keep.txt"), "keep");
  EXPECT_TRUE(DeleteLevelTree(program, level, nullptr, nullptr)) << "a missing tree is gone";
  WriteBytes(Path("plain.txt"), "x");
  EXPECT_FALSE(DeleteLevelTree(program, Path("plain.txt"), nullptr, nullptr));
}

}  // namespace
}  // namespace vardolin::testing
