#include "web/zlib_tool.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

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

// Files that sit in `folder`, for checking that a failure left nothing behind.
std::vector<std::string> Listing(const fs::path& folder) {
  std::vector<std::string> names;
  for (auto& e : fs::directory_iterator(folder)) names.push_back(e.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

struct RoundTrip {
  const char* name;
  std::string data;
};

TEST(ZlRoundTrip, FilesOfEveryShapeComeBackByteForByte) {
  std::vector<RoundTrip> cases = {
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
  for (const auto& c : cases) {
    for (int threads : {1, 2}) {
      SCOPED_TRACE(std::string(c.name) + " threads " + std::to_string(threads));
      fs::path src = dir.Write("in.bin", c.data);
      ZlOptions options;
      options.threads = threads;
      ASSERT_EQ(PackFile(src, dir / "in.bin.zl", options), ZlResult::Ok);
      ASSERT_EQ(ExpandFile(dir / "in.bin.zl", dir / "out.bin"), ZlResult::Ok);
      EXPECT_TRUE(ReadFile(dir / "out.bin") == c.data);

      // After the head, any zlib inflater reads the stream, and the head holds the length.
      std::string packed = ReadFile(dir / "in.bin.zl");
      ASSERT_GE(packed.size(), kZlHeadSize);
      EXPECT_EQ(packed.substr(0, 4), std::string("VZL\x01", 4));
      std::uint64_t length = 0;
      for (int i = 0; i < 8; ++i) length |= std::uint64_t(std::uint8_t(packed[4 + i])) << (8 * i);
      EXPECT_EQ(length, c.data.size());
      std::string plain(c.data.size() + 1, '\0');
      uLongf plain_size = plain.size();
      ASSERT_EQ(uncompress(reinterpret_cast<Bytef*>(plain.data()), &plain_size,
                           reinterpret_cast<const Bytef*>(packed.data()) + kZlHeadSize,
                           packed.size() - kZlHeadSize),
                Z_OK);
      EXPECT_TRUE(plain.substr(0, plain_size) == c.data);
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
      {"cut in the middle", good.substr(0, good.size() / 2), ZlResult::Truncated},
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
    EXPECT_EQ(Listing(dir / "work"), (std::vector<std::string>{"level.tr4", "level.tr4.zl"}));
    EXPECT_EQ(ReadFile(old), "an older output");

    std::string out = "left over";
    EXPECT_EQ(ExpandBytes(c.bytes, out), c.expected);
    EXPECT_TRUE(out.empty());
  }
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

TEST_F(DialogZipTest, ExpandsWithTheBarMovingAndReportsADamagedFileByName) {
  Dialog_Zip dialog(program);
  dialog.ShowWith("x");
  fs::path src = dir.Write("data.tr4", CompressibleBytes(3 * kChunk, 61));
  ASSERT_TRUE(dialog.CompressFile(src, dir / "data.tr4.zl"));
  ASSERT_TRUE(dialog.ExpandFile(dir / "data.tr4.zl", dir / "data.out"));
  EXPECT_EQ(dialog.ProgressBar1.Value(), 100);
  EXPECT_GT(ui.EventsRun(), 0);
  EXPECT_TRUE(dialog.ZlibTool1.InputFile.empty());

  std::string packed = ReadFile(dir / "data.tr4.zl");
  dir.Write("cut.tr4.zl", packed.substr(0, packed.size() / 3));
  ui.Answer(msg::kOk, "cut.tr4.zl");
  EXPECT_FALSE(dialog.ExpandFile(dir / "cut.tr4.zl", dir / "cut.tr4"));
  EXPECT_FALSE(fs::exists(dir / "cut.tr4"));
  ASSERT_EQ(ui.Questions().size(), 1u);
  EXPECT_EQ(ui.Questions()[0].style, msg::kError);
}

}  // namespace
}  // namespace vardolin
