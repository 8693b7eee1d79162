// Reading the CD tools' text: lines, progress, burn results, error lines and the bus scan, from
// the tools' real output where it was recorded (tests/cd/data).
#include <gtest/gtest.h>

#include "cd/burn_output.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace {

TEST(ToolLines, CarriageReturnBackspaceAndTabAsATerminalShowsThem) {
  const struct {
    std::string bytes;
    std::vector<std::string> lines;
  } cases[] = {
      // A counter rewritten with CR gives a line for each rewrite.
      {"Track 01:    1 of  3 MB\rTrack 01:    2 of  3 MB\r",
       {"Track 01:    1 of  3 MB", "Track 01:    2 of  3 MB"}},
      {"  4 seconds.\b\b\b\b\b\b\b\b\b\b\b\b  3 seconds.\n", {"  3 seconds."}},
      {"abc\b\b\n\b\bx\n", {"a", "x"}},
      {"a\tb\n\n\r\n\r\r", {"a    b"}},
      {std::string(300, 'x') + "\n", {std::string(257, 'x'), std::string(43, 'x')}},
  };
  for (const auto& c : cases) {
    std::vector<std::string> lines;
    ToolLineSplitter splitter;
    auto keep = [&](const std::string& line) { lines.push_back(line); };
    splitter.Feed(c.bytes, keep);
    splitter.Finish(keep);
    EXPECT_EQ(lines, c.lines) << c.bytes;
  }
}

TEST(ToolLines, ProgressOfTheWriterAndOfTheImageMaker) {
  // The writer's own total, unless the size of the image streamed into it is known.
  double written = -1, total = 0;
  EXPECT_TRUE(TrackProgress("TRACK 01:    5 of  300 MB written.", 600, written, total));
  EXPECT_EQ(std::pair(written, total), std::pair(5.0, 600.0));
  EXPECT_FALSE(
      TrackProgress("Track 01: Total bytes read/written: 6/6 (3 sectors).", 0, written, total));
  EXPECT_EQ(PercentDone(" 45.67% done, estimate finish Thu Nov 26 00:50:12 2026"), 45);
}

TEST(BurnResults, TimesSpeedAndErrorsOfRealBurns) {
  // The end of a real burn with wodim 1.1.11 (Fedora 19).
  const std::string good =
      "Starting to write CD/DVD at speed  48.0 in real TAO mode for single session.\n"
      "Track 01: Total bytes read/written: 679477248/679477248 (331776 sectors).\n"
      "Writing  time:  146.557s\nFixating...\nFixating time:   11.459s\n"
      "wodim: fifo had 10703 puts and 10703 gets.\n";
  const std::string fifo = "fifo had 10703 puts and 10703 gets.";
  const struct {
    std::string output;
    bool good;
    std::string errors;
  } cases[] = {
      {good, true, fifo},
      {ReplaceAll(good, "Fixating time:   11.459s", ""), false, fifo},
      // A real wodim write error (Ubuntu forums, 2008), its fixating time raised to 2 seconds:
      // the times alone would pass a spoiled disc.
      {"Sense Code: 0x30 Qual 0x05 (cannot write medium - incompatible format) Fru 0x0\n"
       "/usr/bin/wodim: A write error occured.\nwrite track data: error after 0 bytes\n"
       "Writing  time:   34.678s\nFixating time:    2.004s\n",
       false, "A write error occured."},
      {"cdrecord: Warning: using inofficial version of libscg.\ncdrecord: No disk / Wrong disk!\n",
       false, "No disk / Wrong disk!"},
  };
  for (const auto& c : cases) {
    std::int32_t speed = 0;
    EXPECT_EQ(BurnSucceeded(c.output, speed), c.good) << c.output;
    EXPECT_EQ(speed, c.good ? 48 : 0) << c.output;
    EXPECT_EQ(CdrecordErrors(c.output), c.errors) << c.output;
  }
}

TEST(ScanBus, WritersOfRecordedScansTakeTheDrivesInOrder) {
  const struct {
    const char* file;
    std::vector<std::string> units;
    std::vector<std::string> writers;
  } cases[] = {
      // Free ids ("*") are no drives.
      {"wodim_one_writer.txt",
       {"/media/cdrom0"},
       {"1'0'0'/media/cdrom0''HL-DT-ST' 'DVD-RAM GSA-H22N' '1.01' "}},
      // More drives than mount points: the second one's unit is asked for later.
      {"cdrecord_two_drives.txt",
       {"/media/cdrom"},
       {"0'0'0'/media/cdrom''LG      ' 'CD-ROM CRD-8400B' '1.03' ",
        "0'1'0'X:''PIONEER ' 'DVD-ROM DVD-103 ' '1.16' "}},
      // Disks answer the scan too; they never take a drive's mount point.
      {"cdrecord_disks_and_writer.txt",
       {"/media/cdrom", "/media/cdrom1"},
       {"0'4'0'/media/cdrom''YAMAHA  ' 'CRW6416S        ' '1.0b' "}},
      {"cdrecord_zip_and_writer.txt", {}, {"0'1'0'X:''HP      ' 'CD-Writer+ 8100 ' '1.0g' "}},
      {"wodim_no_driver.txt", {"/media/cdrom"}, {}},
  };
  for (const auto& c : cases) {
    const std::string output =
        ReadWholeFile(std::filesystem::path(VARDOLIN_SOURCE_DIR) / "tests/cd/data" / c.file);
    ASSERT_FALSE(output.empty()) << c.file;
    EXPECT_EQ(ParseScanBus(output, c.units), c.writers) << c.file;
    EXPECT_EQ(ParseScanBus(ReplaceAll(output, "\n", "\r\n"), c.units), c.writers) << c.file;
  }
  DeviceFields f;
  ASSERT_TRUE(ParseDeviceString("1'0'0'/media/cdrom0''HL-DT-ST' 'DVD-RAM' '1.01' ", f));
  EXPECT_EQ(
      std::tuple(f.bus, f.unit, f.vendor, f.model),
      std::tuple(1, std::string("/media/cdrom0"), std::string("HL-DT-ST"), std::string("DVD-RAM")));
  EXPECT_FALSE(ParseDeviceString("1'x'0'X:''A' 'B' 'C' ", f));
}

}  // namespace
}  // namespace vardolin
