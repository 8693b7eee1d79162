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
  // The count went on in the progress window, which is gone again.
  EXPECT_EQ(f.ui.ModelessShown(), std::vector<std::string>{"Dialog_Progress"});
  EXPECT_EQ(ProgressDialog(f.program), nullptr);
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

}  // namespace
}  // namespace vardolin::testing
