#include "archive/dialog_pref_arc.h"

#include <gtest/gtest.h>

#include "archive/catalogue_file.h"
#include "archive/whole_store_conversion.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ArchiveFixture;
using testing::ReadFile;

struct PrefArcTest : ::testing::Test {
  ArchiveFixture f;
  fs::path archive = f.Path("archive");

  void SetUp() override {
    f.program.catalogue = testing::SampleCatalogue(3, archive.string());
    f.program.catalogue.levels[1].Name = "First";
    f.program.catalogue.levels[2].Name = "Second";
    f.program.prefs.LastArchive = (f.dir / "cat.vdc").string();
    for (int code : {1, 2}) {
      fs::path files = archive / ("LEVEL_000" + std::to_string(code)) / "files";
      testing::WriteBytes(files / "level.tr4", testing::LevelBytes(code, 200000));
      testing::WriteBytes(files / "script.dat", std::string(5000, 'a' + code));
      testing::WriteBytes(files / "store" / "inside.bin", "left alone");
      testing::WritePicture(files / "load.bmp", 8, 6);
    }
    ASSERT_TRUE(SaveCatalogueFile(f.program, f.program.prefs.LastArchive));
  }
  fs::path Files(int code) const {
    return archive / ("LEVEL_000" + std::to_string(code)) / "files";
  }

  // Sets the compression flag in the dialog as the user would and converts the whole store.
  StoreConversion Convert(bool compress) {
    Dialog_PrefArc dialog(f.program);
    dialog.Load();
    dialog.ImpostaValori(f.program.catalogue.header);
    dialog.Check_Compresso.SetValue(compress);
    const CatalogueHeader saved = dialog.SavedHeader();
    f.ui.Answer(msg::kYes);
    dialog.Pul_Ok.Click();
    EXPECT_TRUE(dialog.ConvertStore);
    return ConvertWholeStore(f.program, saved, nullptr, nullptr);
  }
};

TEST_F(PrefArcTest, AFailurePartWayLeavesEveryLevelWholeAndPutsTheFlagBack) {
  f.ui.AllowAnyMessage();
  const StoreConversion on = Convert(true);
  ASSERT_TRUE(on.ok);
  EXPECT_EQ(on.levels_converted, 2);
  // Level 2's packed script is damaged: expanding it must fail.
  std::string packed = ReadFile(Files(2) / "script.dat.zl");
  packed[packed.size() / 2] ^= 0x55;
  testing::WriteBytes(Files(2) / "script.dat.zl", packed);
  auto level2 = testing::Snapshot(Files(2));

  const StoreConversion off = Convert(false);
  EXPECT_FALSE(off.ok);
  EXPECT_EQ(off.failed_level, "Second");
  EXPECT_EQ(testing::Snapshot(Files(2)), level2);  // nothing written for it remains, nothing lost
  EXPECT_TRUE(fs::exists(Files(1) / "level.tr4"));
  EXPECT_TRUE(f.program.catalogue.header.CompressFiles);
}

}  // namespace
}  // namespace vardolin
