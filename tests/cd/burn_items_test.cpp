// The burn engine's lists and simple commands: items and their places on the CD, the writer's
// address and speed, sizes, autorun.inf.
#include <gtest/gtest.h>

#include "cd/burn_engine.h"
#include "foundation/services/files.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::TempDir;

struct ItemsFixture : ::testing::Test {
  testing::TestProgram t;
  TempDir src;
  BurnEngine engine{t.program};
  std::string Path(const std::string& rel) const { return (src / rel).string(); }
  void SetUp() override {
    src.Write("x/y.zip", "12345");
    src.Write("x/LEVEL_0001/data/level.tr4", "1234567890");
    src.Write("x/LEVEL_0001/data/skip.txt", "123");
  }
};

TEST_F(ItemsFixture, ItemsGetTheirTargetsOrAreRefusedWithTheirCodes) {
  const std::string parent = src.path().filename().string();
  const struct {
    std::string item;
    std::int32_t code;
    std::string stored;  // empty when refused
  } cases[] = {
      // A file lands in a folder named as its own folder; a folder keeps its name.
      {Path("x/y.zip"), kBurnNoError, "x/=" + Path("x/y.zip")},
      {Path("x/LEVEL_0001"), kBurnNoError, "LEVEL_0001/=" + Path("x/LEVEL_0001")},
      {"Arc1/LEVEL_0001/=" + Path("x/LEVEL_0001"), kBurnNoError,
       "Arc1/LEVEL_0001/=" + Path("x/LEVEL_0001")},
      {"\\=" + Path("x/y.zip"), kBurnNoError, "/=" + Path("x/y.zip")},
      {"Arc1\\LEVEL_0001\\=" + Path("x/LEVEL_0001"), kBurnNoError,
       "Arc1/LEVEL_0001/=" + Path("x/LEVEL_0001")},
      {src.path().string(), kBurnNoError, parent + "/=" + src.path().string()},
      {Path("x/LEVEL_0001") + "/", kBurnInvalidPath, ""},
      {"/", kBurnInvalidPath, ""},
      {Path("x/*.zip"), kBurnInvalidPath, ""},
      {"x/y.zip", kBurnCantInsert, ""},
      {Path("x/missing.zip"), kBurnCantInsert, ""},
      {"Arc1/LEVEL_0001=" + Path("x/LEVEL_0001"), kBurnCantInsert, ""},
  };
  for (const auto& c : cases) {
    engine.VetItems.clear();
    EXPECT_EQ(engine.BurnCommand(cw_AddItem, c.item), c.code == kBurnNoError) << c.item;
    EXPECT_EQ(engine.ErrorCode, c.code) << c.item << ": " << engine.ErrorMessage();
    EXPECT_EQ(engine.VetItems,
              c.stored.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.stored})
        << c.item;
  }
}

TEST_F(ItemsFixture, ListsKeepOneEntryPerSourceAndFillGapsWithTheLast) {
  for (const char* rel : {"x/y.zip", "x/LEVEL_0001", "x/LEVEL_0001/data", "x/y.zip"})
    ASSERT_TRUE(engine.BurnCommand(cw_AddItem, Path(rel)));
  ASSERT_EQ(engine.VetItems.size(), 3u);
  ASSERT_TRUE(engine.BurnCommand(cw_RemoveItem, "anything=" + Path("x/y.zip")));
  EXPECT_EQ(engine.VetItems, (std::vector<std::string>{"data/=" + Path("x/LEVEL_0001/data"),
                                                       "LEVEL_0001/=" + Path("x/LEVEL_0001")}));
  ASSERT_TRUE(engine.BurnCommand(cw_RemoveItem, Path("x/LEVEL_0001")));
  EXPECT_EQ(engine.VetItems.size(), 1u);
  EXPECT_FALSE(engine.BurnCommand(cw_RemoveItem, Path("x/y.zip")));
  EXPECT_EQ(engine.ErrorCode, kBurnNotFound);
  EXPECT_FALSE(engine.BurnCommand(cw_RemoveItem, ""));
  EXPECT_EQ(engine.ErrorCode, kBurnNotFound);

  const struct {
    std::string path;
    std::int32_t code;
  } left_out[] = {
      {Path("x/LEVEL_0001/data/skip.txt"), kBurnNoError},
      {Path("x/LEVEL_0001/data/skip.txt"), kBurnAlreadyPresent},
      {"x/=" + Path("x/y.zip"), kBurnInvalidOperand},
      {Path("x/*.txt"), kBurnInvalidPath},
      {Path("x/gone.txt"), kBurnCantInsert},
  };
  for (const auto& c : left_out) {
    engine.BurnCommand(cw_AddNoItem, c.path);
    EXPECT_EQ(engine.ErrorCode, c.code) << c.path;
  }
  EXPECT_EQ(engine.NoItems.size(), 1u);
  ASSERT_TRUE(engine.BurnCommand(cw_ClearItems));
  EXPECT_TRUE(engine.VetItems.empty() && engine.NoItems.empty());
}

TEST_F(ItemsFixture, SizesCountFoldersLessWhatIsLeftOut) {
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, Path("x/LEVEL_0001")));
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, Path("x/y.zip")));
  ASSERT_TRUE(engine.BurnCommand(cw_AddNoItem, Path("x/LEVEL_0001/data/skip.txt")));
  ASSERT_TRUE(engine.BurnCommand(cw_ComputeSize));
  EXPECT_EQ(engine.ResultNumber(), 10 + 3 + 5 - 3);
  EXPECT_EQ(engine.ItemsSize, 18);
  std::filesystem::remove(Path("x/y.zip"));
  EXPECT_FALSE(engine.BurnCommand(cw_ComputeSize));
  EXPECT_EQ(engine.ErrorCode, kBurnInvalidPath);
  EXPECT_EQ(engine.ItemsSize + engine.NoItemsSize, 0);

  ASSERT_TRUE(engine.BurnCommand(cw_FolderSize, Path("x")));
  EXPECT_EQ(engine.ResultNumber(), 13);
  ASSERT_TRUE(engine.BurnCommand(cw_ListTree, Path("x")));
  EXPECT_EQ(engine.FolderFiles.size(), 2u);
  EXPECT_EQ(engine.FolderFolders.size(), 2u);
  ASSERT_TRUE(engine.BurnCommand(cw_ListFolder, Path("x/LEVEL_0001/data"), "*.tr4"));
  EXPECT_EQ(engine.FolderFiles, std::vector<std::string>{Path("x/LEVEL_0001/data/level.tr4")});
  EXPECT_FALSE(engine.BurnCommand(cw_ListFolder, Path("x/y.zip")));
  EXPECT_EQ(engine.ErrorCode, kBurnInvalidPath);
}

TEST_F(ItemsFixture, PathsOnTheCdAndTheAutorunFile) {
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, "Arc1/LEVEL_0001/=" + Path("x/LEVEL_0001")));
  const struct {
    int command;
    std::string operand;
    std::string result;
  } cases[] = {
      {cw_GetCdPath, Path("x/LEVEL_0001"), "/Arc1/LEVEL_0001/"},
      {cw_GetCdPath, "setup/=" + Path("x/y.zip"), "/setup/y.zip"},
      {cw_GetCdPath, "/=" + Path("x/y.zip"), "/y.zip"},
      {cw_GetRelativePath, Path("x/LEVEL_0001"), "Arc1/LEVEL_0001/"},
      {cw_GetAbsolutePath, "a/=" + Path("x/y.zip"), Path("x/y.zip")},
      {cw_FormattaDimensione, "1023", "1023 bytes"},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(engine.BurnCommand(c.command, c.operand)) << c.operand;
    EXPECT_EQ(engine.ResultText(), c.result) << c.operand;
  }
  EXPECT_EQ(ItemCdPath(engine.VetItems[0], Path("x/LEVEL_0001/data/level.tr4")),
            "/Arc1/LEVEL_0001/data/level.tr4");
  EXPECT_FALSE(engine.BurnCommand(cw_GetRelativePath, Path("x/y.zip")));
  EXPECT_EQ(engine.ErrorCode, kBurnNotFound);
  EXPECT_FALSE(engine.BurnCommand(cw_FormattaDimensione, "12a"));
  EXPECT_EQ(engine.ErrorCode, kBurnInvalidOperand);

  ASSERT_TRUE(engine.BurnCommand(cw_AddAutoRun_Inf, "Tools/=" + Path("x/y.zip")));
  EXPECT_EQ(ReadWholeFile(t.home / "autorun.inf"), "[autorun]\r\nOPEN=Tools\\y.zip\r\n");
  EXPECT_EQ(engine.VetItems.size(), 3u);
  EXPECT_EQ(engine.VetItems[1], "/=" + (t.home / "autorun.inf").string());
  EXPECT_FALSE(engine.BurnCommand(cw_AddAutoRun_Inf, Path("x/none.exe")));
  EXPECT_EQ(engine.ErrorCode, kBurnInvalidOperand);
}

TEST_F(ItemsFixture, InitTakesTheDeviceAndTheSpeed) {
  const struct {
    const char* speed;
    std::int32_t stored, last, expected;
  } speeds[] = {
      {"AUTO", 16, 8, 0}, {"12", 16, 8, 12}, {"", 16, 8, 16}, {"", 0, 8, 8}, {"fast", 0, 0, 2},
  };
  const std::string device = "1'2'0'/media/cdrom''HL-DT-ST' 'DVD-RAM GSA-H22N' '1.01' ";
  for (const auto& c : speeds) {
    engine.Speed = c.stored;
    engine.LastSpeed = c.last;
    ASSERT_TRUE(engine.BurnCommand(cw_Init, device, c.speed));
    EXPECT_EQ(engine.Speed, c.expected) << c.speed;
  }
  EXPECT_EQ(std::tuple(engine.Bus, engine.Target, engine.Lun, engine.WriterUnit),
            std::tuple(1, 2, 0, std::string("/media/cdrom")));
  EXPECT_EQ(engine.VolumeId, "New");
  EXPECT_EQ(engine.Preparer, "Tarnbrook");

  // Without a device string the stored one stands; with a bad one nothing is taken.
  ASSERT_TRUE(engine.BurnCommand(cw_Init, "", ""));
  EXPECT_EQ(engine.Target, 2);
  EXPECT_FALSE(engine.BurnCommand(cw_Init, "1'2", ""));
  EXPECT_EQ(engine.ErrorCode, kBurnInvalidOperand);
  engine.DeviceId.clear();
  EXPECT_FALSE(engine.BurnCommand(cw_Init, "", ""));
  EXPECT_EQ(engine.ErrorCode, kBurnNoWriter);

  // A writer whose drive isn't known: the user names its mount point once.
  t.ui.Input("/media/writer/", "unit letter");
  ASSERT_TRUE(engine.BurnCommand(cw_Init, "0'1'0'X:''PIONEER ' 'DVD-ROM DVD-103 ' '1.16' ", ""));
  EXPECT_EQ(engine.WriterUnit, "/media/writer");
  ASSERT_TRUE(engine.BurnCommand(cw_Init, "0'1'0'X:''PIONEER ' 'DVD-ROM DVD-103 ' '1.16' ", ""));
  EXPECT_EQ(engine.ChosenUnit, "/media/writer");
}

}  // namespace
}  // namespace vardolin
