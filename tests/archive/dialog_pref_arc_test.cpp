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

  // Opens the dialog, sets the flags as the user would and presses OK.
  bool ChangeFlags(bool compress, bool wav, int answer) {
    Dialog_PrefArc dialog(f.program);
    dialog.Load();
    dialog.ImpostaValori(f.program.catalogue.header);
    dialog.Check_Compresso.SetValue(compress);
    dialog.Check_WavInMp3.SetValue(wav);
    saved_ = dialog.SavedHeader();
    dialog.Pul_Ok.Click();
    return dialog.ConvertStore;
  }
  CatalogueHeader saved_;
};

TEST_F(PrefArcTest, ShowsTheArchiveAndCancelPutsTheHeaderBack) {
  f.program.catalogue.levels[2].CdNumber = 1;
  f.program.catalogue.header.CdCount = 1;
  Dialog_PrefArc dialog(f.program);
  dialog.Load();
  dialog.ImpostaValori(f.program.catalogue.header);
  EXPECT_EQ(dialog.Label_Levels.Caption(), "3");
  EXPECT_EQ(dialog.Label_TotCd.Caption(), "1");
  EXPECT_EQ(dialog.Label_OnCd.Caption(), "Yes");
  EXPECT_EQ(dialog.Label_FullPath.Caption(), f.program.prefs.LastArchive);
  dialog.Check_Compresso.SetValue(true);
  EXPECT_TRUE(f.program.catalogue.header.CompressFiles);
  dialog.Pul_Cancel.Click();
  EXPECT_FALSE(f.program.catalogue.header.CompressFiles);
  EXPECT_FALSE(dialog.ConvertStore);
}

TEST_F(PrefArcTest, AFailurePartWayLeavesEveryLevelWholeAndPutsTheFlagBack) {
  f.ui.Answer(msg::kYes);
  ASSERT_TRUE(ChangeFlags(true, false, msg::kYes));
  f.ui.AllowAnyMessage();
  StoreConversion on = ConvertWholeStore(f.program, saved_, nullptr, nullptr);
  ASSERT_TRUE(on.ok);
  EXPECT_EQ(on.levels_converted, 2);
  // Level 2's packed script is damaged: expanding it must fail.
  std::string packed = ReadFile(Files(2) / "script.dat.zl");
  packed[packed.size() / 2] ^= 0x55;
  testing::WriteBytes(Files(2) / "script.dat.zl", packed);
  auto level2 = testing::Snapshot(Files(2));

  f.ui.Answer(msg::kYes);
  ASSERT_TRUE(ChangeFlags(false, false, msg::kYes));
  StoreConversion off = ConvertWholeStore(f.program, saved_, nullptr, nullptr);
  EXPECT_FALSE(off.ok);
  EXPECT_EQ(off.failed_level, "Second");
  EXPECT_EQ(testing::Snapshot(Files(2)), level2);  // nothing written for it remains, nothing lost
  EXPECT_TRUE(fs::exists(Files(1) / "level.tr4"));
  EXPECT_TRUE(f.program.catalogue.header.CompressFiles);
}

TEST_F(PrefArcTest, NoToTheQuestionKeepsTheFlagAndConvertsNothing) {
  f.ui.Answer(msg::kNo);
  EXPECT_FALSE(ChangeFlags(true, false, msg::kNo));
  EXPECT_TRUE(f.program.catalogue.header.CompressFiles);
  EXPECT_TRUE(fs::exists(Files(1) / "level.tr4"));
}

}  // namespace
}  // namespace vardolin
