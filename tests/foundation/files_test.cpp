#include <gtest/gtest.h>
#include <stdlib.h>

#include "foundation/services/files.h"
#include "test_program.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::TempDir;

// The file names in the order given, or sorted where the order isn't the routine's promise.
std::vector<std::string> Listed(const std::vector<fs::path>& paths, bool sorted = false) {
  std::vector<std::string> out;
  for (const auto& p : paths) out.push_back(p.filename().string());
  if (sorted) std::sort(out.begin(), out.end());
  return out;
}

struct FilesTest : ::testing::Test, testing::TestProgram {
  const TempDir& dir = home;
};

TEST_F(FilesTest, PathsInAnotherCaseAreTheFilesOnDisk) {
  dir.Write("Levels/LEVEL_0001/Data.TR4", "x");
  EXPECT_EQ(ResolveCase(dir / "levels/level_0001/data.tr4"), dir / "Levels/LEVEL_0001/Data.TR4");
  // From the first missing part on, the given spelling stays.
  EXPECT_EQ(ResolveCase(dir / "LEVELS/missing/Data.tr4"), dir / "Levels/missing/Data.tr4");
  EXPECT_TRUE(FileExists(dir / "LEVELS/level_0001/DATA.tr4"));
  EXPECT_TRUE(FolderExists(dir / "levels/Level_0001"));
  EXPECT_FALSE(FileExists(dir / "levels"));
  EXPECT_FALSE(FolderExists(dir / "levels/level_0001/data.tr4"));
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists(dir / "nothing"));
}

TEST_F(FilesTest, CopyKeepsTheModificationTimeAndRefusesAMissingSource) {
  fs::path src = dir.Write("a.bmp", "pixels");
  auto when = std::chrono::system_clock::now() - std::chrono::hours(24 * 40);
  ASSERT_TRUE(SetFileDateTime(src, when));
  // Bytes, time and mode come along, from this file system and (by hand) from a tmpfs.
  std::string shm = "/dev/shm/vardolin-files-XXXXXX";
  const fs::path memory = ::mkdtemp(shm.data()) ? fs::path(shm) : dir.path();
  for (const fs::path& from : {dir.path(), memory})
    for (const std::string& bytes : {std::string(), std::string(300000, 'x')}) {
      const fs::path source = from / "source.exe", copy = dir / "copy.exe";
      testing::WriteBytes(source, bytes);
      fs::permissions(source, fs::perms::owner_all);
      ASSERT_TRUE(SetFileDateTime(source, when));
      ASSERT_TRUE(CopyFileOver(source, copy)) << from;
      EXPECT_EQ(ReadFile(copy), bytes) << from;
      EXPECT_EQ(fs::last_write_time(copy), fs::last_write_time(source)) << from;
      EXPECT_EQ(fs::status(copy).permissions(), fs::perms::owner_all) << from;
    }
  if (memory != dir.path()) fs::remove_all(memory);
  EXPECT_FALSE(CopyFileOver(dir / "none", dir / "c"));
  EXPECT_FALSE(fs::exists(dir / "c"));
  EXPECT_TRUE(CopyFileOver(src, dir / "A.BMP"));  // onto itself: the file stays
  EXPECT_EQ(ReadFile(src), "pixels");
}

TEST_F(FilesTest, ListsFilesAndSubfoldersByNameAsWindowsDoes) {
  // Written out of order: a listing goes by name without regard to case, letters before '_'.
  for (const char* name : {"l/y.tr4", "l/savegame.8", "l/_a.tr4", "l/savegame.10", "l/x.TR4",
                           "l/savegame.7", "l/z.pak", "l/savegame.6"})
    dir.Write(name, "");
  fs::create_directories(dir / "l/sub1");
  fs::create_directories(dir / "l/Sub2");
  fs::create_directories(dir / "l/sub0");
  EXPECT_EQ(Listed(ListFiles(dir / "L", "*.tr4")),
            (std::vector<std::string>{"x.TR4", "y.tr4", "_a.tr4"}));
  EXPECT_EQ(Listed(ListFiles(dir / "l", "savegame.*")),
            (std::vector<std::string>{"savegame.10", "savegame.6", "savegame.7", "savegame.8"}));
  EXPECT_EQ(ListFiles(dir / "l", "*.tr4")[0].parent_path(), dir / "l");
  EXPECT_EQ(Listed(ListSubfolders((dir / "l").string() + "\\")),
            (std::vector<std::string>{"sub0", "sub1", "Sub2"}));
  EXPECT_TRUE(ListSubfolders(dir / "none").empty());
  EXPECT_TRUE(ListFiles(dir / "none", "*").empty());
}

TEST_F(FilesTest, WalkCollectsTheWholeTreeAndLetsTheUiRunPerFolder) {
  dir.Write("w/a.txt", "12");
  dir.Write("w/b/c.TXT", "345");
  dir.Write("w/b/d/e.bin", "6789");
  fs::create_directory_symlink(dir / "w", dir / "w/b/loop");
  FolderTreeWalker walker(&ui);
  ASSERT_TRUE(walker.WalkFolderTree(dir / "w"));
  EXPECT_EQ(Listed(walker.Files(), true), (std::vector<std::string>{"a.txt", "c.TXT", "e.bin"}));
  EXPECT_EQ(Listed(walker.Folders(), true), (std::vector<std::string>{"b", "d"}));
  EXPECT_EQ(ui.EventsRun(), 3);
  EXPECT_EQ(FolderSizeBytes(dir / "w", "*"), 9.0);
  EXPECT_EQ(FolderSizeBytes(dir / "w", "*.txt"), 5.0);
  EXPECT_FALSE(walker.WalkFolderTree(dir / "missing"));
  EXPECT_TRUE(walker.Files().empty());
}

}  // namespace
}  // namespace vardolin
