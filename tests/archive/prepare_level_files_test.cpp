#include "archive/level_files.h"

#include <gtest/gtest.h>

#include "store_fixture.h"

namespace vardolin::testing {
namespace {

namespace fs = std::filesystem;

struct PrepareTest : StoreFixture, ::testing::Test {
  fs::path files = Files(1);
  // The game form of every file of the level, kept aside to compare with.
  std::map<std::string, std::string> plain;

  // Stores `name` with its bytes, packed when `packed`.
  void Store(const std::string& name, unsigned seed, bool packed) {
    std::string bytes = LevelBytes(seed);
    plain[name] = bytes;
    if (!packed) return WriteBytes(files / name, bytes);
    WriteBytes(Path("plain") / name, bytes);
    fs::create_directories(files);
    Pack(Path("plain") / name, files / (name + ".zl"));
  }
};

TEST_F(PrepareTest, EachStoredFormEndsInTheGameForm) {
  struct Case {
    const char* what;
    std::vector<std::pair<std::string, bool>> files;  // name, stored packed
    const char* picture;                              // stored loading picture, or null
    bool temporary;
  };
  const std::vector<Case> cases = {
      {"plain level", {{"level.tr4", false}, {"script.dat", false}}, "load.bmp", false},
      {"packed files",
       {{"level.tr4", true}, {"english.dat", true}, {"readme.txt", false}},
       nullptr,
       true},
      {"jpeg in capitals", {{"level.tr4", false}}, "LOAD.JPG", true},
      {"media store", {{"level.tr4", true}, {"store/inner.dat", false}}, nullptr, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    fs::remove_all(files);
    plain.clear();
    fs::create_directories(files);
    unsigned seed = 1;
    for (const auto& [name, packed] : c.files) Store(name, seed++, packed);
    if (c.picture) WritePicture(files / c.picture);
    const auto stored = Snapshot(files);

    fs::path temporary = "not cleared";
    ASSERT_TRUE(PrepareLevelFiles(program, files, temporary));
    EXPECT_EQ(Snapshot(files), stored) << "the store is never changed";
    if (!c.temporary) {
      EXPECT_TRUE(temporary.empty());
      continue;
    }
    ASSERT_EQ(temporary, TemporaryFilesFolder(program));
    auto ready = Snapshot(temporary);
    if (c.picture) {
      ASSERT_EQ(ready.count("load.bmp"), 1u);
      Bitmap bitmap;
      EXPECT_EQ(ReadPictureFile(temporary / "load.bmp", bitmap), PictureResult::Ok);
      EXPECT_EQ(bitmap.width, 32);
      ready.erase("load.bmp");
    }
    EXPECT_EQ(ready, plain) << "no .zl, no jpeg, every file as the game wants it";
    fs::remove_all(temporary);
  }
  EXPECT_TRUE(ui.Questions().empty());
}

TEST_F(PrepareTest, ADamagedPackedFileIsReportedAndNothingIsLeft) {
  // Which damages the expansion tells is the zl format's own table; here one is enough.
  Store("a.tr4", 1, true);
  Store("b.tr4", 2, true);
  Store("load.bmp", 3, false);
  fs::resize_file(files / "b.tr4.zl", fs::file_size(files / "b.tr4.zl") / 2);
  const auto stored = Snapshot(files);
  ui.Answer(msg::kOk, "b.tr4.zl");
  fs::path temporary = "not cleared";
  EXPECT_FALSE(PrepareLevelFiles(program, files, temporary));
  EXPECT_TRUE(temporary.empty());
  EXPECT_FALSE(fs::exists(TemporaryFilesFolder(program)));
  EXPECT_EQ(Snapshot(files), stored);
}

TEST_F(PrepareTest, MakeTempFilesCopiesTheWholeFolderAndNoLinks) {
  Store("level.tr4", 1, false);
  Store("store/x.dat", 2, false);
  WriteBytes(Path("secret") / "s.txt", "outside");
  fs::create_directory_symlink(Path("secret"), files / "escape");
  fs::create_symlink(Path("secret") / "s.txt", files / "s.txt");
  fs::path temporary = MakeTempFiles(program, files);
  ASSERT_FALSE(temporary.empty());
  EXPECT_EQ(Snapshot(temporary), plain);
}

}  // namespace
}  // namespace vardolin::testing
