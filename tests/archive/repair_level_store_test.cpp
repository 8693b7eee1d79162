#include "archive/store_repair.h"

#include <gtest/gtest.h>

#include "archive/level_files.h"
#include "archive/store_conversion.h"
#include "store_fixture.h"

namespace vardolin::testing {
namespace {

namespace fs = std::filesystem;

struct RepairTest : StoreFixture, ::testing::Test {};

TEST_F(RepairTest, ScrollMediaFileStaysOnlyBesideItsScrollLevels) {
  struct Case {
    std::vector<std::string> files;
    bool kept;
  };
  const std::vector<Case> cases = {
      {{"scroll.mcf", "scroll1.tr4"}, true},
      {{"scroll.mcf"}, false},
      {{"a.mcf", "scroll.mcf"}, true},  // the first media file isn't the scroll one
      // A compressed store packs the level files and leaves the media files as they are.
      {{"SCROLL.MCF", "SCROLL3.TR4.ZL", "title.tr4.zl"}, true},
      {{"scroll.mcf", "title.tr4.zl", "scroll.dat.zl"}, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.files.front() + " with " + std::to_string(c.files.size() - 1) + " more");
    fs::path files = Files(1);
    fs::remove_all(files);
    for (const std::string& f : c.files) WriteBytes(files / f, f);
    WriteBytes(files / "store" / "deep" / "x.dat", "x");
    const auto before = Snapshot(files);

    EXPECT_EQ(RepairLevelStore(program), c.kept ? 0 : 1);
    auto after = Snapshot(files);
    if (c.kept) {
      EXPECT_EQ(after, before);
    } else {
      EXPECT_FALSE(fs::exists(files / "scroll.mcf"));
      EXPECT_FALSE(fs::exists(files / "store"));
      EXPECT_EQ(after.size(), before.size() - 2);
    }
  }
}

TEST_F(RepairTest, AConversionBrokenOffBetweenItsStepsIsPutRight) {
  fs::path level = GetLevelFolder(program, 1, false);
  struct Case {
    const char* what;
    std::vector<std::string> folders;  // standing after the crash, "files" holding "new"
  };
  const std::vector<Case> cases = {
      {"while converting", {"files", "files_converting"}},
      {"after moving the old files aside", {"files_before_conversion", "files_converting"}},
      {"before deleting the old files", {"files_before_conversion", "files"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    fs::remove_all(level);
    for (const std::string& f : c.folders)
      WriteBytes(level / f / "level.tr4", f == "files_converting" ? "half" : f);
    RepairLevelStore(program);
    EXPECT_EQ(Snapshot(level).size(), 1u) << "one files folder is left";
    EXPECT_TRUE(fs::exists(level / "files" / "level.tr4"));
    EXPECT_NE(ReadFile(level / "files" / "level.tr4"), "half");
  }
}

struct MediaTest : StoreFixture, ::testing::Test {
  fs::path editor = Path("editor");
  fs::path files = Files(1);
  MediaTest() { program.prefs.EditorFolder = editor.string(); }
};

TEST_F(MediaTest, EditorMediaStateGoesBackIntoTheLevel) {
  WriteBytes(editor / "tomb4.exe", "game");
  WriteBytes(editor / "a.mcf", "played a");
  WriteBytes(editor / "B.MCF", "not the level's");
  WriteBytes(editor / "store" / "now.dat", "now");
  WriteBytes(files / "a.mcf", "stored a");
  WriteBytes(files / "media.mpf", "mpf");
  WriteBytes(files / "store" / "old.dat", "old");
  WriteBytes(files / "store" / "sub" / "older.dat", "older");

  EXPECT_TRUE(SaveMediaFiles(program, files));
  EXPECT_EQ(ReadFile(files / "a.mcf"), "played a");
  EXPECT_FALSE(fs::exists(editor / "B.MCF"));
  EXPECT_FALSE(fs::exists(files / "B.MCF"));
  EXPECT_FALSE(fs::exists(files / "media.mpf"));
  EXPECT_EQ(Names(Snapshot(files / "store")), std::vector<std::string>{"now.dat"});
}

}  // namespace
}  // namespace vardolin::testing
