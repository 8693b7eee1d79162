#include "archive/level_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "archive/catalogue_sizes.h"
#include "archive/text_ids.h"
#include "archive_fixture.h"
#include "foundation/dialogs/dialog_progress.h"

namespace vardolin::testing {
namespace {

namespace fs = std::filesystem;

struct StoreFixture : ArchiveFixture {
  fs::path archive = Path("archive");
  StoreFixture() {
    fs::create_directories(archive);
    program.catalogue = SampleCatalogue(3, archive.string());
    program.catalogue.levels.push_back(SampleLevel(7, /*cd=*/2));
  }
};

TEST(LevelStore, GetLevelFolderByCodeAndCd) {
  StoreFixture f;
  struct Case {
    std::int32_t code;
    bool use_cd;
    fs::path folder;  // empty: refused
    bool refused;
  };
  const std::vector<Case> cases = {
      {0, true, f.program.Home() / "LEVEL_0000", false},
      {2, true, f.archive / "LEVEL_0002", false},
      {99, true, f.archive / "LEVEL_0099", false},  // a level to come
      {7, true, {}, true},                          // its files are on CD 2
      {7, false, f.archive / "LEVEL_0007", false},  // its user folders stay on hard disk
      {12345, false, f.archive / "LEVEL_12345", false},
  };
  for (const Case& c : cases) {
    f.program.CdRefused = !c.refused;  // every call sets the flag afresh
    EXPECT_EQ(GetLevelFolder(f.program, c.code, c.use_cd), c.folder) << c.code << " " << c.use_cd;
    EXPECT_EQ(f.program.CdRefused, c.refused) << c.code;
  }
  EXPECT_EQ(GetLevelFilesFolder(f.program, 2, true), f.archive / "LEVEL_0002" / "files");
  f.program.catalogue.header.SecondaryDir = "  ";
  EXPECT_EQ(GetLevelFolder(f.program, 2, false), fs::path()) << "never relative to the cwd";
  EXPECT_EQ(GetLevelFolder(f.program, 0, false), f.program.Home() / "LEVEL_0000");
  EXPECT_EQ(GetLevelFilesFolder(f.program, 7, true), fs::path());
  EXPECT_TRUE(f.ui.Questions().empty());
}

TEST(LevelStore, SizesCountTheFilesFolderTheStoreNames) {
  StoreFixture f;
  f.program.prefs.AutoSave = false;
  ASSERT_TRUE(CreateLevelFolders(f.program, GetLevelFolder(f.program, 2, false)));
  f.dir.Write("archive/LEVEL_0002/files/a.tr4", std::string(300, 'x'));
  f.dir.Write("archive/LEVEL_0007/files/stale.tr4", std::string(50, 'x'));
  f.dir.Write("archive/LEVEL_0007/savegames/savegame.0", std::string(40, 's'));
  EXPECT_EQ(FilesBytesOfLevel(f.program, 2), 300);
  const std::int32_t cd_files = f.program.catalogue.levels[3].FilesSize;
  ASSERT_TRUE(UpdateLevelSizes(f.program, 7));
  EXPECT_EQ(f.program.catalogue.levels[3].FilesSize, cd_files);
  EXPECT_EQ(f.program.catalogue.levels[3].UserSize, 40);
}

TEST(LevelStore, CreateLevelFoldersMakesTheFourSubfolders) {
  StoreFixture f;
  fs::path level = f.archive / "LEVEL_0001";
  ASSERT_TRUE(CreateLevelFolders(f.program, level));
  for (const char* sub : {"files", "play", "savegames", "screenshots"})
    EXPECT_TRUE(fs::is_directory(level / sub)) << sub;
  EXPECT_TRUE(CreateLevelFolders(f.program, level)) << "folders that stand are fine";
  EXPECT_FALSE(CreateLevelFolders(f.program, f.Path("missing/LEVEL_0001")));

  // The sub-folders are the folders the rest of the store names.
  const std::pair<std::int32_t, std::int32_t> same[] = {
      {text::LevelSubfolderFiles, text::FilesFolder},
      {text::LevelSubfolderPlay, text::UserFolderPlay},
      {text::LevelSubfolderSavegames, text::UserFolderSavegames},
      {text::LevelSubfolderScreenshots, text::UserFolderScreenshots},
      {text::ConvertLoadPictureFrom, text::StoredLoadPicture},
      {text::ConvertedLoadPicture, text::StoredLoadPicture},
  };
  for (auto [a, b] : same) EXPECT_EQ(f.program.GetText(a), f.program.GetText(b)) << a;
}

TEST(LevelStore, DeleteLevelTreeRemovesReadOnlyPartsButNothingALinkLeadsTo) {
  StoreFixture f;
  fs::path level = f.archive / "LEVEL_0001";
  f.dir.Write("archive/LEVEL_0001/files/a.tr4", "a");
  f.dir.Write("archive/LEVEL_0001/savegames/deep/er/savegame.1", "s");
  fs::path outside = f.dir.Write("outside/keep.txt", "keep");
  fs::create_directory_symlink(outside.parent_path(), level / "files" / "link_to_folder");
  fs::create_symlink(outside, level / "link_to_file");
  ::chmod((level / "files" / "a.tr4").c_str(), 0444);
  ::chmod((level / "savegames" / "deep" / "er").c_str(), 0555);

  Dialog_Progress progress(f.program);
  ASSERT_TRUE(DeleteLevelTree(f.program, level, &progress.Label_Info, &progress.ProgressBar1));
  EXPECT_FALSE(fs::exists(fs::symlink_status(level)));
  EXPECT_EQ(ReadFile(outside), "keep");
  EXPECT_EQ(progress.Label_Info.Caption(), f.program.GetText(text::DeletingLevelTree));
  EXPECT_TRUE(DeleteLevelTree(f.program, level, nullptr, nullptr)) << "a missing tree is gone";
}

TEST(LevelStore, ClearReadOnlyTouchesOnlyMatchingFiles) {
  TempDir dir;
  fs::path a = dir.Write("a.tr4", "a"), b = dir.Write("B.TR4", "b"), c = dir.Write("c.dat", "c");
  for (const fs::path& p : {a, b, c}) ::chmod(p.c_str(), 0444);
  EXPECT_TRUE(ClearReadOnly("*.tr4", dir.path()));
  auto writable = [](const fs::path& p) {
    return (fs::status(p).permissions() & fs::perms::owner_write) != fs::perms::none;
  };
  EXPECT_TRUE(writable(a));
  EXPECT_TRUE(writable(b));
  EXPECT_FALSE(writable(c));
}

TEST(LevelStore, LevelsAreFoundOnCdsAmongTheMountPoints) {
  StoreFixture f;
  // A fixed disk with level folders (not a CD), a CD drive with no disc ready, and two CDs.
  f.dir.Write("hd/Archive/LEVEL_0003/files/x.tr4", "x");
  f.dir.Write("cd_empty/Archive/LEVEL_0003/files/x.tr4", "x");
  f.dir.Write("cd1/autorun.inf", "");
  f.dir.Write("cd1/AAA_other/readme.txt", "");
  f.dir.Write("cd1/MyArchive1/level_0003/files/x.tr4", "x");
  f.dir.Write("cd1/MyArchive1/LEVEL_0012/files/x.tr4", "x");
  f.dir.Write("cd2/MyArchive2/LEVEL_12345/files/x.tr4", "x");
  f.dir.Write("cd2/MyArchive2/LEVEL_0003/files/x.tr4", "x");
  auto drive = [&](const char* name, int type, bool ready) {
    DriveInfo d;
    d.letter = f.Path(name).string();
    d.type = type;
    d.ready = ready;
    return d;
  };
  f.platform.drives = {drive("hd", kDriveFixed, true), drive("cd_empty", kDriveCdRom, false),
                       drive("cd1", kDriveCdRom, true), drive("cd2", kDriveCdRom, true)};

  EXPECT_EQ(FindCdRootWithLevels(f.program, f.Path("cd1")), f.Path("cd1/MyArchive1"));
  EXPECT_EQ(FindCdRootWithLevels(f.program, f.Path("cd1/MyArchive1/LEVEL_0012")), fs::path());
  EXPECT_EQ(FindCdRootWithLevels(f.program, f.Path("nowhere")), fs::path());

  struct Case {
    std::int32_t code;
    const char* drive;   // empty: on no CD
    const char* folder;  // relative to the test folder
  };
  for (const Case& c : std::vector<Case>{{3, "cd1", "cd1/MyArchive1/level_0003"},
                                         {12, "cd1", "cd1/MyArchive1/LEVEL_0012"},
                                         {12345, "cd2", "cd2/MyArchive2/LEVEL_12345"},
                                         {2345, "", ""},
                                         {1, "", ""}}) {
    LevelOnCd found = FindLevelOnCdDrives(f.program, c.code);
    EXPECT_EQ(found.drive, *c.drive ? f.Path(c.drive).string() : "") << c.code;
    EXPECT_EQ(found.folder, *c.folder ? f.Path(c.folder) : fs::path()) << c.code;
  }
  EXPECT_EQ(FindLevelOnCd(f.program, 3, f.Path("cd2")), f.Path("cd2/MyArchive2/LEVEL_0003"));
}

}  // namespace
}  // namespace vardolin::testing
