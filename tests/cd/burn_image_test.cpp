// The image the burn engine makes with the real genisoimage, listed back with the real isoinfo.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "cd/burn_engine.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::TempDir;
namespace fs = std::filesystem;

std::set<std::string> Lines(const std::string& text) {
  std::set<std::string> lines;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find("\r\n", pos);
    if (end == std::string::npos) end = text.size();
    if (end > pos) lines.insert(text.substr(pos, end - pos));
    pos = end + 2;
  }
  return lines;
}

struct ImageFixture : ::testing::Test {
  testing::TestProgram t;
  TempDir src;
  BurnEngine engine{t.program};

  void SetUp() override {
    src.Write("store/LEVEL_0001/data/level.tr4", std::string(5000, 'x'));
    src.Write("store/LEVEL_0001/data/old's map.prj", "quote");
    src.Write("store/LEVEL_0001/data/secret.txt", "left out");
    src.Write("store/LEVEL_0001/empty/.keep", "");
    src.Write("readme.txt", "hello");
    ASSERT_TRUE(engine.BurnCommand(cw_Init, "0'0'0'/media/cdrom'x'HL'x'DVD", "8"));
    engine.IsoPath = (src / "out.iso").string();
  }
  std::string Store(const std::string& rel) const { return (src / "store" / rel).string(); }
};

TEST_F(ImageFixture, ImageHoldsTheItemsUnderTheirTargetsWithoutTheLeftOutOnes) {
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "Archive1/LEVEL_0001/=" + Store("LEVEL_0001")));
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, (src / "readme.txt").string()));
  ASSERT_TRUE(engine.BurnCommand(cw_AddNoItem, Store("LEVEL_0001/data/secret.txt")));
  engine.VolumeId = "Level CD 7";
  ASSERT_TRUE(engine.BurnCommand(cw_CreateIso)) << engine.ErrorMessage();
  EXPECT_EQ(engine.ErrorCode, kBurnNoError) << engine.ErrorMessage();
  EXPECT_EQ(engine.TotalSize, static_cast<double>(fs::file_size(engine.IsoPath)));

  // The list files and the volume texts, as the image maker was given them.
  EXPECT_EQ(ReadWholeFile(t.home / "list_no.txt"), Store("LEVEL_0001/data/secret.txt") + "\n");
  EXPECT_EQ(ReadWholeFile(t.home / "mkiso.src"), "PREP=Tarnbrook\nVOLI=Level CD 7\n");

  ASSERT_TRUE(engine.BurnCommand(cw_ReportIsoFileList, "ReferenceList"));
  const std::string src_dir = src.path().filename().string();
  EXPECT_EQ(Lines(engine.ResultText()).size(), engine.ReportItems.size());
  std::set<std::string> paths;
  for (const ReportItem& r : engine.ReportItems) paths.insert(r.path);
  EXPECT_EQ(paths,
            (std::set<std::string>{"/Archive1", "/Archive1/LEVEL_0001", "/Archive1/LEVEL_0001/data",
                                   "/Archive1/LEVEL_0001/data/level.tr4",
                                   "/Archive1/LEVEL_0001/data/old's map.prj",
                                   "/Archive1/LEVEL_0001/empty", "/Archive1/LEVEL_0001/empty/.keep",
                                   "/" + src_dir, "/" + src_dir + "/readme.txt"}));
  const auto level =
      std::find_if(engine.ReportItems.begin(), engine.ReportItems.end(),
                   [](const ReportItem& r) { return EndsWithNoCase(r.path, ".tr4"); });
  EXPECT_EQ(level->size, 5000);
  EXPECT_GT(level->date, 40000);

  // The engine's own list of what should stand on the CD names the same files.
  ASSERT_TRUE(engine.BurnCommand(cw_ReportItemsFileList, "Target"));
  std::set<std::string> files_planned, files_made;
  for (const ReportItem& r : engine.ReportItems)
    if (r.path.back() != '/') files_planned.insert(r.path);
  for (const std::string& p : paths)
    if (p.find('.') != std::string::npos) files_made.insert(p);
  EXPECT_EQ(files_planned, files_made);
}

TEST_F(ImageFixture, FlatAndTreeListsOfOneImage) {
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "CD/=" + Store("LEVEL_0001")));
  ASSERT_TRUE(engine.BurnCommand(cw_CreateIso)) << engine.ErrorMessage();
  ASSERT_TRUE(engine.BurnCommand(cw_ReportIsoFileList, "FlatList", engine.IsoPath));
  EXPECT_EQ(
      Lines(engine.ResultText()),
      (std::set<std::string>{"/CD", "/CD/data", "/CD/data/level.tr4", "/CD/data/old's map.prj",
                             "/CD/data/secret.txt", "/CD/empty", "/CD/empty/.keep"}));
  ASSERT_TRUE(engine.BurnCommand(cw_ReportIsoFileList, "TreeList"));
  // Components a line shares with the line before it become blanks.
  const std::set<std::string> tree = Lines(engine.ResultText());
  EXPECT_TRUE(tree.count("    data/level.tr4") && tree.count("         old's map.prj"))
      << engine.ResultText();
}

TEST_F(ImageFixture, FileSystemSizeAddsToTheFilesSizes) {
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "CD/=" + Store("LEVEL_0001")));
  ASSERT_TRUE(engine.BurnCommand(cw_ComputeSize));
  EXPECT_EQ(engine.ResultNumber(), 5000 + 5 + 8 + 0);
  ASSERT_TRUE(engine.BurnCommand(cw_ComputeSizeWithFs)) << engine.ErrorMessage();
  // The image maker counts its extents; each adds 11.3 bytes to the estimate.
  EXPECT_GT(engine.TotalSize, 5013 + 11.3 * 20);
  EXPECT_FALSE(fs::exists(engine.IsoPath));
}

TEST_F(ImageFixture, FailedImagesLeaveNoFileAndSayWhy) {
  // Two items whose files meet under one name on the CD: the image maker refuses.
  src.Write("other/LEVEL_0001/data/level.tr4", "clash");
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "CD/=" + Store("LEVEL_0001")));
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "CD/=" + (src / "other/LEVEL_0001").string()));
  WriteTextFile(engine.IsoPath, "an old image");
  EXPECT_FALSE(engine.BurnCommand(cw_CreateIso));
  EXPECT_EQ(engine.ErrorCode, kBurnImageFailed);
  EXPECT_EQ(engine.ErrorTitle, "Creation ISO image failed");
  EXPECT_NE(engine.ErrorText.find("level.tr4"), std::string::npos) << engine.ErrorText;
  EXPECT_FALSE(fs::exists(engine.IsoPath));

  EXPECT_FALSE(engine.BurnCommand(cw_ReportIsoFileList, "FlatList"));
  EXPECT_EQ(engine.ErrorCode, kBurnReportFailed);
  WriteTextFile(engine.IsoPath, "not an image at all");
  EXPECT_FALSE(engine.BurnCommand(cw_ReportIsoFileList, "FlatList"));
  EXPECT_EQ(engine.ErrorCode, kBurnReportFailed);
  EXPECT_FALSE(engine.BurnCommand(cw_ReportIsoFileList, "Other"));
  EXPECT_EQ(engine.ErrorCode, kBurnInvalidOperand);
}

}  // namespace
}  // namespace vardolin
