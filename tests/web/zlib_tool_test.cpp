#include "web/zlib_tool.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include "../../bench/bench_data.h"
#include "foundation/program.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "temp_dir.h"
#include "web/dialog_zip.h"
#include "web/text_ids.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using vardolin::bench::CompressibleBytes;
using vardolin::bench::RandomBytes;
using vardolin::testing::ReadFile;
using vardolin::testing::TempDir;

constexpr std::size_t kChunk = 256 * 1024;

TEST(ZlRoundTrip, FilesOfEveryShapeComeBackByteForByte) {
  const std::vector<std::pair<const char*, std::string>> cases = {
      {"empty", ""},
      {"incompressible", RandomBytes(100000, 1)},
      {"compressible", CompressibleBytes(100000, 2)},
      {"exactly one chunk", CompressibleBytes(kChunk, 3)},
      {"one chunk and a byte", CompressibleBytes(kChunk + 1, 4)},
      {"large incompressible", RandomBytes(3 * kChunk + 7, 6)},
      {"random then text", RandomBytes(2 * kChunk, 7) + CompressibleBytes(2 * kChunk, 8)},
      {"zeros across stored block limits", std::string(200000, '\0')},
  };
  TempDir dir;
  for (const auto& [name, data] : cases) {
    for (int threads : {1, 2}) {
      SCOPED_TRACE(std::string(name) + " threads " + std::to_string(threads));
      fs::path src = dir.Write("in.bin", data);
      ZlOptions options;
      options.threads = threads;
      ASSERT_EQ(PackFile(src, dir / "in.bin.zl", options), ZlResult::Ok);
      ASSERT_EQ(ExpandFile(dir / "in.bin.zl", dir / "out.bin"), ZlResult::Ok);
      EXPECT_TRUE(ReadFile(dir / "out.bin") == data);

      // After the head, any zlib inflater reads the stream, and the head holds the length.
      std::string packed = ReadFile(dir / "in.bin.zl");
      ASSERT_GE(packed.size(), kZlHeadSize);
      EXPECT_EQ(packed.substr(0, 4), std::string("VZL\x01", 4));
      std::uint64_t length = 0;
      for (int i = 0; i < 8; ++i) length |= std::uint64_t(std::uint8_t(packed[4 + i])) << (8 * i);
      EXPECT_EQ(length, data.size());
      std::string plain(data.size() + 1, '\0');
      uLongf plain_size = plain.size();
      ASSERT_EQ(uncompress(reinterpret_cast<Bytef*>(plain.data()), &plain_size,
                           reinterpret_cast<const Bytef*>(packed.data()) + kZlHeadSize,
                           packed.size() - kZlHeadSize),
                Z_OK);
      EXPECT_TRUE(plain.substr(0, plain_size) == data);
      fs::remove(dir / "out.bin");
    }
  }
}

TEST(ZlExpansion, DamagedFilesAreRefusedAndLeaveAnOlderOutputAsItWas) {
  // Random content makes the deflate data stored blocks, so a flipped data byte can only be
  // caught by the checksum.
  std::string original = RandomBytes(kChunk + 5000, 21) + CompressibleBytes(kChunk, 22);
  std::string good;
  ASSERT_EQ(PackBytes(original, good), ZlResult::Ok);
  auto flip = [&](std::size_t at) {
    std::string s = good;
    s[at] = static_cast<char>(s[at] ^ 0x20);
    return s;
  };
  struct Damage {
    const char* name;
    std::string bytes;
    ZlResult expected;
  };
  std::vector<Damage> cases = {
      {"empty file", "", ZlResult::Truncated},
      {"cut inside the head", good.substr(0, 6), ZlResult::Truncated},
      {"last byte missing", good.substr(0, good.size() - 1), ZlResult::Truncated},
      {"byte appended", good + "!", ZlResult::Corrupt},
      {"wrong magic", flip(1), ZlResult::NotPacked},
      {"some other file", "PK\x03\x04 this is a zip, not ours", ZlResult::NotPacked},
      {"length too small", flip(4), ZlResult::Corrupt},
      {"length huge", flip(10), ZlResult::Corrupt},
      {"zlib head damaged", flip(kZlHeadSize), ZlResult::Corrupt},
      {"stored data byte flipped", flip(kZlHeadSize + 1000), ZlResult::Corrupt},
      {"checksum flipped", flip(good.size() - 1), ZlResult::Corrupt},
  };
  TempDir dir;
  fs::create_directory(dir / "work");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    fs::path zl = dir.Write("work/level.tr4.zl", c.bytes);
    fs::path old = dir.Write("work/level.tr4", "an older output");
    EXPECT_EQ(ExpandFile(zl, old), c.expected);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir / "work"), {}), 2);  // nothing half-made
    EXPECT_EQ(ReadFile(old), "an older output");

    std::string out = "left over";
    EXPECT_EQ(ExpandBytes(c.bytes, out), c.expected);
    EXPECT_TRUE(out.empty());
  }
  // A length no disk here holds (64 TiB more) is told as such before a byte is written.
  std::string far = good;
  far[9] = static_cast<char>(far[9] | 0x40);
  EXPECT_EQ(ExpandFile(dir.Write("work/far.tr4.zl", far), dir / "work/far.tr4"), ZlResult::NoSpace);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir / "work"), {}), 3);
}

struct DialogZipTest : ::testing::Test {
  vardolin::testing::ScriptedUi ui;
  vardolin::testing::RecordingPlatform platform;
  Program program{"/nonexistent", ui, platform};
  TempDir dir;
  DialogZipTest() {
    program.texts.EnglishTexts.entries = {
        {"", text::ZipDialogCaption, " Zipping"},
        {"", text::CannotExpandFile, "The file ~1 could not be expanded."}};
  }
};

TEST_F(DialogZipTest, OneWindowExpandsWithTheBarMovingAndReportsADamagedFileByName) {
  Dialog_Zip& dialog = ShowZipDialog(program, "Packing level 3");
  fs::path src = dir.Write("data.tr4", CompressibleBytes(3 * kChunk, 61));
  ASSERT_TRUE(dialog.CompressFile(src, dir / "data.tr4.zl"));
  ASSERT_TRUE(dialog.ExpandFile(dir / "data.tr4.zl", dir / "data.out"));
  EXPECT_EQ(dialog.ProgressBar1.Value(), 100);
  EXPECT_GT(ui.EventsRun(), 0);

  std::string packed = ReadFile(dir / "data.tr4.zl");
  dir.Write("cut.tr4.zl", packed.substr(0, packed.size() / 3));
  ui.Answer(msg::kOk, "cut.tr4.zl");
  EXPECT_FALSE(dialog.ExpandFile(dir / "cut.tr4.zl", dir / "cut.tr4"));
  EXPECT_FALSE(fs::exists(dir / "cut.tr4"));
  ASSERT_EQ(ui.Questions().size(), 1u);
  EXPECT_EQ(ui.Questions()[0].style, msg::kError);

  // One window at a time: the next file's takes the place of the one standing.
  Dialog_Zip& next = ShowZipDialog(program, "Expanding level 4");
  EXPECT_EQ(ZipDialog(program), &next);
  EXPECT_EQ(next.ProgressBar1.Value(), 0);
  HideZipDialog(program);
  HideZipDialog(program);
  EXPECT_EQ(ZipDialog(program), nullptr);
}

}  // namespace
}  // namespace vardolin
