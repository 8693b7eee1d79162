#include "archive/catalogue_ops.h"
#include "archive/level_store.h"

#include <gtest/gtest.h>

#include "archive/catalogue_file.h"
#include "archive/catalogue_folders.h"
#include "archive/catalogue_sizes.h"
#include "archive/level_folder_name.h"
#include "archive_fixture.h"
#include "foundation/dialogs/shared_dialogs.h"

namespace vardolin::testing {
namespace {

Catalogue WithCodes(std::vector<std::int32_t> codes) {
  Catalogue c;
  for (std::int32_t code : codes) c.levels.push_back(SampleLevel(code));
  return c;
}

TEST(CatalogueOps, NextLevelCodeIsHighestPlusOne) {
  struct Case {
    std::vector<std::int32_t> codes;
    std::int32_t next;
  };
  for (const Case& t : std::vector<Case>{{{0}, 1}, {{0, 3, 2}, 4}, {{0, 7, 9, 8}, 10}, {{}, 1}})
    EXPECT_EQ(NextLevelCode(WithCodes(t.codes)), t.next) << t.codes.size() << " levels";
}

TEST(CatalogueOps, TotalsLeaveTheBaseLevelOut) {
  Catalogue c = WithCodes({0, 1, 2});
  c.levels[0].FilesSize = 1'000'000;
  c.levels[0].UserSize = 500;
  SizeTotals t = LevelSizeTotals(c);
  EXPECT_EQ(t.files, 1000 + 2000);
  EXPECT_EQ(t.user, 10 + 20);

  AddSizeToCatalogue(c, 77, 0, SizeKind::Files);
  EXPECT_EQ(c.levels[0].FilesSize, 1'000'077);
  EXPECT_EQ(c.header.TotalFilesSize, 0);
  AddSizeToCatalogue(c, 5, 2, SizeKind::User);
  EXPECT_EQ(c.levels[2].UserSize, 25);
  EXPECT_EQ(c.header.TotalUserSize, 5);
  AddSizeToCatalogue(c, 5, 3, SizeKind::User);  // outside the table: nothing
  EXPECT_EQ(c.header.TotalUserSize, 5);
}

TEST(CatalogueOps, SizesBeyondTheFieldStopAtItsLimitAndTotalsAgree) {
  Catalogue c = WithCodes({0, 1});
  AddSizeToCatalogue(c, 5e9, 1, SizeKind::Files);
  EXPECT_EQ(c.levels[1].FilesSize, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(c.header.TotalFilesSize, std::numeric_limits<std::int32_t>::max() - 1000.0);
}

// Level folders with real files below a temporary archive folder.
struct SizesFixture : ArchiveFixture {
  std::filesystem::path archive = Path("archive");
  SizesFixture() {
    program.catalogue = SampleCatalogue(3, archive.string());
    program.prefs.AutoSave = false;
    std::filesystem::create_directories(archive);
  }
  void Put(std::int32_t code, const std::string& sub, std::size_t bytes) {
    std::filesystem::path folder = HardDiskLevelFolder(program, code) / sub;
    WriteBytes(folder / ("f" + std::to_string(bytes)), std::string(bytes, 'x'));
  }
};

TEST(CatalogueSizes, LevelOnCdKeepsItsFilesSizeAndAsksForNoCd) {
  SizesFixture f;
  f.program.catalogue.levels[2].CdNumber = 2;
  f.program.catalogue.levels[2].FilesSize = 123456;
  f.Put(2, "files", 10);  // would count were the level on hard disk
  f.Put(2, "savegames", 300);
  f.Put(2, "play/deep", 4);
  ASSERT_TRUE(UpdateLevelSizes(f.program, 2));
  EXPECT_EQ(f.program.catalogue.levels[2].FilesSize, 123456);
  EXPECT_EQ(f.program.catalogue.levels[2].UserSize, 304);
  EXPECT_EQ(f.program.catalogue.header.TotalUserSize, 304 - 20);
  EXPECT_TRUE(f.program.CatalogueDirty);
  EXPECT_TRUE(f.ui.Questions().empty());
  EXPECT_FALSE(UpdateLevelSizes(f.program, 99));
}

TEST(CatalogueSizes, RecomputeLeavesTheBaseLevelOutOfTheTotals) {
  SizesFixture f;
  f.Put(0, "files", 5000);  // the base level lies in the program's folder
  f.Put(0, "screenshots", 50);
  f.Put(1, "files", 100);
  f.Put(1, "screenshots", 7);
  f.Put(2, "files", 200);
  f.Put(2, "other", 999);  // not a folder that counts
  f.ui.Answer(msg::kOk, "Total size: 307");
  RecomputeAllSizes(f.program, false);
  const Catalogue& c = f.program.catalogue;
  EXPECT_EQ(c.levels[0].FilesSize, 5000);
  EXPECT_EQ(c.levels[0].UserSize, 50);
  EXPECT_EQ(c.header.TotalFilesSize, 300);
  EXPECT_EQ(c.header.TotalUserSize, 7);
  ASSERT_EQ(f.ui.Questions().size(), 1u);
  EXPECT_EQ(f.ui.Questions()[0].style, msg::kInformation);
  // The count went on in the progress window, which is gone again.
  EXPECT_EQ(f.ui.ModelessShown(), std::vector<std::string>{"Dialog_Progress"});
  EXPECT_EQ(ProgressDialog(f.program), nullptr);
}

TEST(CatalogueOps, CdLevelStopsTheCallerWithAnError) {
  ArchiveFixture f;
  f.program.catalogue = SampleCatalogue(3);
  f.program.catalogue.levels[1].CdNumber = 1;
  f.ui.Answer(msg::kOk, "lies on CD.\r\nMove");
  EXPECT_TRUE(CheckLevelNotOnCd(f.program, 1));
  EXPECT_FALSE(CheckLevelNotOnCd(f.program, 2));
}

// The questions when an opened catalogue's folders are gone.
struct FoldersFixture : ArchiveFixture {
  std::filesystem::path file = Path("cat.vdc");
  FoldersFixture() {
    program.prefs.AutoSave = true;
    program.prefs.LastArchive = file.string();
    program.catalogue = SampleCatalogue(2, Path("gone").string());
  }
};

TEST(CatalogueFolders, StandingSecondaryFolderAsksNothing) {
  FoldersFixture f;
  std::filesystem::create_directories(f.Path("second"));
  f.program.catalogue.header.SecondaryDir = f.Path("second").string();
  f.program.catalogue.header.CdCount = 1;  // a CD archive's main folder is the CD: not asked for
  EXPECT_TRUE(CheckCatalogueFolders(f.program));
  EXPECT_TRUE(f.ui.Questions().empty());
}

TEST(CatalogueFolders, VanishedSharedFolderTakesTheAnswerForBoth) {
  FoldersFixture f;
  std::string moved = f.Path("moved").string();
  std::filesystem::create_directories(moved);
  f.ui.Answer(msg::kOk, "gone").Folder(moved);
  EXPECT_TRUE(CheckCatalogueFolders(f.program));
  EXPECT_EQ(f.ui.Questions()[0].style, msg::kWarning);
  EXPECT_EQ(f.ui.Questions()[1].title,
            f.Path("gone").string() + " : where is the main archive folder?");
  EXPECT_EQ(f.program.catalogue.header.MainDir, moved);
  EXPECT_EQ(f.program.catalogue.header.SecondaryDir, moved);
  Catalogue saved;  // AutoSave wrote the change
  ASSERT_TRUE(ParseCatalogue(ReadFile(f.file), saved).ok());
  EXPECT_EQ(saved.header.SecondaryDir, moved);
}

TEST(CatalogueFolders, AnAnswerForAMainFolderOfItsOwnChangesNothing) {
  FoldersFixture f;
  std::filesystem::create_directories(f.Path("second"));
  f.program.catalogue.header.SecondaryDir = f.Path("second").string();
  std::filesystem::create_directories(f.Path("moved"));
  f.ui.Answer(msg::kOk, "gone").Folder(f.Path("moved").string());
  EXPECT_TRUE(CheckCatalogueFolders(f.program));
  EXPECT_EQ(f.program.catalogue.header.MainDir, f.Path("gone").string());
  EXPECT_EQ(f.program.catalogue.header.SecondaryDir, f.Path("second").string());
}

TEST(CatalogueFolders, VanishedSecondaryFolderWithoutAnswerFails) {
  FoldersFixture f;
  std::filesystem::create_directories(f.Path("main"));
  f.program.catalogue.header.MainDir = f.Path("main").string();
  f.ui.Answer(msg::kOk, "secondary archive folder").Folder("");
  EXPECT_FALSE(CheckCatalogueFolders(f.program));
  EXPECT_FALSE(std::filesystem::exists(f.file));
}

}  // namespace
}  // namespace vardolin::testing
