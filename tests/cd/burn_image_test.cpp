// The image the burn engine makes with the real genisoimage, listed back with the real isoinfo.
#include <gtest/gtest.h>

#include <set>

#include "cd/burn_engine.h"
#include "foundation/services/files.h"
#include "test_program.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

struct ImageFixture : ::testing::Test {
  testing::TestProgram t;
  testing::TempDir src;
  BurnEngine engine{t.program};
  std::string level = (src / "store/LEVEL_0001").string();

  void SetUp() override {
    src.Write("store/LEVEL_0001/data/level.tr4", std::string(5000, 'x'));
    src.Write("store/LEVEL_0001/data/old's map.prj", "quote");
    src.Write("store/LEVEL_0001/data/secret.txt", "left out");
    src.Write("readme.txt", "hello");
    ASSERT_TRUE(engine.BurnCommand(cw_Init, "0'0'0'/media/cdrom'x'HL'x'DVD", "8"));
    engine.IsoPath = (src / "out.iso").string();
  }
};

TEST_F(ImageFixture, ImageHoldsTheItemsUnderTheirTargetsWithoutTheLeftOutOnes) {
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "Arc1/LEVEL_0001/=" + level));
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, (src / "readme.txt").string()));
  ASSERT_TRUE(engine.BurnCommand(cw_AddNoItem, level + "/data/secret.txt"));
  engine.VolumeId = "Level CD 7";
  ASSERT_TRUE(engine.BurnCommand(cw_CreateIso)) << engine.ErrorMessage();
  EXPECT_EQ(engine.ErrorCode, kBurnNoError) << engine.ErrorMessage();
  EXPECT_EQ(engine.TotalSize, static_cast<double>(fs::file_size(engine.IsoPath)));
  EXPECT_EQ(ReadWholeFile(t.home / "mkiso.src"), "PREP=Tarnbrook\nVOLI=Level CD 7\n");

  // The files on the image are the files the engine's own report plans for the CD.
  ASSERT_TRUE(engine.BurnCommand(cw_ReportIsoFileList, "ReferenceList"));
  std::set<std::string> made, planned;
  for (const ReportItem& r : engine.ReportItems)
    if (r.size > 0) made.insert(r.path + " " + std::to_string(r.size));
  ASSERT_TRUE(engine.BurnCommand(cw_ReportItemsFileList, "Target"));
  for (const ReportItem& r : engine.ReportItems)
    if (r.path.back() != '/') planned.insert(r.path + " " + std::to_string(r.size));
  const std::string parent = src.path().filename().string();
  EXPECT_EQ(made, (std::set<std::string>{"/Arc1/LEVEL_0001/data/level.tr4 5000",
                                         "/Arc1/LEVEL_0001/data/old's map.prj 5",
                                         "/" + parent + "/readme.txt 5"}));
  EXPECT_EQ(made, planned);
}

TEST_F(ImageFixture, FileSystemSizeAddsToTheFilesSizes) {
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "CD/=" + level));
  ASSERT_TRUE(engine.BurnCommand(cw_ComputeSizeWithFs)) << engine.ErrorMessage();
  // The image maker counts its extents; each adds 11.3 bytes to the files' own 5013.
  EXPECT_GT(engine.ResultNumber(), 5013 + 11.3 * 20);
  EXPECT_FALSE(fs::exists(engine.IsoPath));
}

TEST_F(ImageFixture, FailedImagesLeaveNoFileAndSayWhy) {
  // Two items whose files meet under one name on the CD: the image maker refuses.
  src.Write("other/LEVEL_0001/data/level.tr4", "clash");
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "CD/=" + level));
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "CD/=" + (src / "other/LEVEL_0001").string()));
  WriteTextFile(engine.IsoPath, "an old image");
  EXPECT_FALSE(engine.BurnCommand(cw_CreateIso));
  EXPECT_EQ(engine.ErrorTitle, "Creation ISO image failed");
  EXPECT_NE(engine.ErrorText.find("level.tr4"), std::string::npos) << engine.ErrorText;
  EXPECT_FALSE(fs::exists(engine.IsoPath));
}

}  // namespace
}  // namespace vardolin
