// The burn engine's lists and simple commands: items and their places on the CD, the writer's
// address and speed, sizes, autorun.inf.
#include <gtest/gtest.h>

#include "cd/burn_engine.h"
#include "foundation/services/files.h"
#include "test_program.h"

namespace vardolin {
namespace {

struct ItemsFixture : ::testing::Test {
  testing::TestProgram t;
  testing::TempDir src;
  BurnEngine engine{t.program};
  std::string Path(const std::string& rel) const { return (src / rel).string(); }
  void SetUp() override {
    src.Write("x/y.zip", "12345");
    src.Write("x/LEVEL_0001/data/level.tr4", "1234567890");
    src.Write("x/LEVEL_0001/data/skip.txt", "123");
  }
};

TEST_F(ItemsFixture, ItemsGetTheirTargetsOrAreRefusedWithTheirCodes) {
  const std::string level = Path("x/LEVEL_0001"), zip = Path("x/y.zip");
  const struct {
    std::string item;
    std::int32_t code;
    std::string stored;  // empty when refused
  } cases[] = {
      // A file lands in a folder named as its own folder; a folder keeps its name.
      {zip, kBurnNoError, "x/=" + zip},
      {level, kBurnNoError, "LEVEL_0001/=" + level},
      {"Arc1\\LEVEL_0001\\=" + level, kBurnNoError, "Arc1/LEVEL_0001/=" + level},
      {"\\=" + zip, kBurnNoError, "/=" + zip},
      {level + "/", kBurnInvalidPath, ""},
      {Path("x/*.zip"), kBurnInvalidPath, ""},
      {"x/y.zip", kBurnCantInsert, ""},
      {Path("x/missing.zip"), kBurnCantInsert, ""},
      {"Arc1/LEVEL_0001=" + level, kBurnCantInsert, ""},
  };
  for (const auto& c : cases) {
    engine.VetItems.clear();
    EXPECT_EQ(engine.BurnCommand(cw_AddItem, c.item), c.code == kBurnNoError) << c.item;
    EXPECT_EQ(engine.ErrorCode, c.code) << c.item << ": " << engine.ErrorMessage();
    EXPECT_EQ(engine.VetItems.empty() ? "" : engine.VetItems[0], c.stored) << c.item;
  }
}

TEST_F(ItemsFixture, ListsKeepOneEntryPerSourceAndFillGapsWithTheLast) {
  for (const char* rel : {"x/y.zip", "x/LEVEL_0001", "x/LEVEL_0001/data", "x/y.zip"})
    ASSERT_TRUE(engine.BurnCommand(cw_AddItem, Path(rel)));
  ASSERT_TRUE(engine.BurnCommand(cw_RemoveItem, "anything=" + Path("x/y.zip")));
  EXPECT_EQ(engine.VetItems, (std::vector<std::string>{"data/=" + Path("x/LEVEL_0001/data"),
                                                       "LEVEL_0001/=" + Path("x/LEVEL_0001")}));
  EXPECT_FALSE(engine.BurnCommand(cw_RemoveItem, Path("x/y.zip")));
  EXPECT_EQ(engine.ErrorCode, kBurnNotFound);
  ASSERT_TRUE(engine.BurnCommand(cw_AddNoItem, Path("x/LEVEL_0001/data/skip.txt")));
  EXPECT_FALSE(engine.BurnCommand(cw_AddNoItem, Path("x/LEVEL_0001/data/skip.txt")));
  EXPECT_EQ(engine.ErrorCode, kBurnAlreadyPresent);
  // What is left out doesn't count.
  ASSERT_TRUE(engine.BurnCommand(cw_ComputeSize));
  EXPECT_EQ(engine.ResultNumber(), 13 + 13 - 3);
  std::filesystem::remove(Path("x/LEVEL_0001/data/skip.txt"));
  EXPECT_FALSE(engine.BurnCommand(cw_ComputeSize));
  EXPECT_EQ(engine.ErrorCode, kBurnInvalidPath);
  EXPECT_EQ(engine.ItemsSize + engine.NoItemsSize, 0);
}

TEST_F(ItemsFixture, PathsOnTheCdAndTheAutorunFile) {
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "Arc1/LEVEL_0001/=" + Path("x/LEVEL_0001")));
  const struct {
    int command;
    std::string operand, result;
  } cases[] = {
      {cw_GetCdPath, Path("x/LEVEL_0001"), "/Arc1/LEVEL_0001/"},
      {cw_GetCdPath, "setup/=" + Path("x/y.zip"), "/setup/y.zip"},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(engine.BurnCommand(c.command, c.operand)) << c.operand;
    EXPECT_EQ(engine.ResultText(), c.result) << c.operand;
  }

  ASSERT_TRUE(engine.BurnCommand(cw_AddAutoRun_Inf, "Tools/=" + Path("x/y.zip")));
  EXPECT_EQ(ReadWholeFile(t.home / "autorun.inf"), "[autorun]\r\nOPEN=Tools\\y.zip\r\n");
  EXPECT_EQ(engine.VetItems[1], "/=" + (t.home / "autorun.inf").string());
  EXPECT_EQ(engine.VetItems.size(), 3u);
}

TEST_F(ItemsFixture, InitTakesTheDeviceAndTheSpeed) {
  const struct {
    const char* speed;
    std::int32_t stored, last, expected;
  } speeds[] = {
      {"AUTO", 16, 8, 0}, {"12", 16, 8, 12}, {"", 16, 8, 16}, {"", 0, 8, 8}, {"fast", 0, 0, 2}};
  for (const auto& c : speeds) {
    engine.Speed = c.stored;
    engine.LastSpeed = c.last;
    ASSERT_TRUE(engine.BurnCommand(cw_Init, "1'2'0'/media/cdrom''HL' 'DVD' '1.01' ", c.speed));
    EXPECT_EQ(engine.Speed, c.expected) << c.speed;
  }
  EXPECT_EQ(std::tuple(engine.Bus, engine.Target, engine.WriterUnit, engine.VolumeId),
            std::tuple(1, 2, std::string("/media/cdrom"), std::string("New")));
  engine.DeviceId.clear();
  EXPECT_FALSE(engine.BurnCommand(cw_Init, "", ""));
  EXPECT_EQ(engine.ErrorCode, kBurnNoWriter);

  // A writer whose drive isn't known: the user names its mount point once.
  t.ui.Input("/media/writer/", "unit letter");
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(engine.BurnCommand(cw_Init, "0'1'0'X:''PIONEER ' 'DVD-ROM DVD-103 ' '1.16' ", ""));
    EXPECT_EQ(engine.WriterUnit, "/media/writer");
  }
}

}  // namespace
}  // namespace vardolin
