#include "archive/store_conversion.h"

#include <gtest/gtest.h>

#include "archive/text_ids.h"
#include "store_fixture.h"

namespace vardolin::testing {
namespace {

namespace fs = std::filesystem;

struct ConvertTest : StoreFixture, ::testing::Test {
  fs::path files = Files(1);
  std::map<std::string, std::string> plain;

  void MakePlainLevel() {
    unsigned seed = 1;
    for (const char* name : {"level.tr4", "title.TR4", "script.dat", "song.wav", "fmv.pak",
                             "readme.txt", "store/inner.dat"}) {
      plain[name] = LevelBytes(seed++);
      WriteBytes(files / name, plain[name]);
    }
    WritePicture(files / "load.bmp");
  }
};

TEST_F(ConvertTest, PlainToCompressedAndBackComesBackByteForByte) {
  MakePlainLevel();
  ASSERT_TRUE(ConvertLevelStore(program, 1, true, nullptr, nullptr));
  EXPECT_EQ(Names(Snapshot(files)),
            (std::vector<std::string>{"fmv.pak.zl", "level.tr4.zl", "load.jpg", "readme.txt",
                                      "script.dat.zl", "song.wav.zl", "store/inner.dat",
                                      "title.TR4.zl"}));
  EXPECT_EQ(Names(Snapshot(files.parent_path())).size(), 8u) << "nothing left beside";

  ASSERT_TRUE(ConvertLevelStore(program, 1, false, nullptr, nullptr));
  auto back = Snapshot(files);
  Bitmap picture;
  EXPECT_EQ(ReadPictureFile(files / "load.bmp", picture), PictureResult::Ok);
  EXPECT_EQ(picture.width, 32);
  EXPECT_EQ(picture.height, 24);
  back.erase("load.bmp");
  EXPECT_EQ(back, plain);
  EXPECT_TRUE(ui.Questions().empty());
}

TEST_F(ConvertTest, AFileThatCannotBeConvertedIsReportedAndNothingIsLost) {
  struct Case {
    bool compress;
    const char* named;  // the damaged file
    const char* bytes;
  };
  const Case cases[] = {{false, "broken.tr4.zl", "VZL\x01 but nothing that expands"},
                        {true, "load.bmp", "not a bitmap"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.named);
    fs::remove_all(files.parent_path());
    MakePlainLevel();
    ASSERT_TRUE(c.compress || ConvertLevelStore(program, 1, true, nullptr, nullptr));
    WriteBytes(files / c.named, c.bytes);
    const auto before = Snapshot(files.parent_path());
    ui.Answer(msg::kOk, c.named);
    EXPECT_FALSE(ConvertLevelStore(program, 1, c.compress, nullptr, nullptr));
    EXPECT_EQ(Snapshot(files.parent_path()), before);
    EXPECT_TRUE(ui.Done());
  }
}

}  // namespace
}  // namespace vardolin::testing
