// Reading the CD tools' text: lines, progress, burn results, error lines and the bus scan, from
// the tools' real output where it was recorded (tests/cd/data).
#include <gtest/gtest.h>

#include <filesystem>

#include "cd/burn_output.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace {

std::vector<std::string> Split(std::string_view bytes) {
  std::vector<std::string> lines;
  ToolLineSplitter splitter;
  auto keep = [&](const std::string& line) { lines.push_back(line); };
  splitter.Feed(bytes, keep);
  splitter.Finish(keep);
  return lines;
}

TEST(ToolLines, CarriageReturnBackspaceAndTabAsATerminalShowsThem) {
  const struct {
    std::string bytes;
    std::vector<std::string> lines;
  } cases[] = {
      {"one\ntwo\r\nthree", {"one", "two", "three"}},
      // A counter rewritten with CR gives a line for each rewrite.
      {"Track 01:    1 of  3 MB written.\rTrack 01:    2 of  3 MB written.\r",
       {"Track 01:    1 of  3 MB written.", "Track 01:    2 of  3 MB written."}},
      // Backspaces step back over what the tool takes back; the line ends where the column is.
      {"  4 seconds.\b\b\b\b\b\b\b\b\b\b\b\b  3 seconds.\n", {"  3 seconds."}},
      {"abc\b\b\n", {"a"}},
      {"\b\bx\n", {"x"}},
      {"a\tb\n", {"a    b"}},
      {"\n\r\n\r\r", {}},
      {std::string(300, 'x') + "\n", {std::string(257, 'x'), std::string(43, 'x')}},
  };
  for (const auto& c : cases) EXPECT_EQ(Split(c.bytes), c.lines) << c.bytes;
  // Lines cut anywhere between two pieces come out whole.
  std::vector<std::string> lines;
  ToolLineSplitter splitter;
  for (char c : std::string("first\r\nsec\b\bcond\n"))
    splitter.Feed(std::string_view(&c, 1), [&](const std::string& l) { lines.push_back(l); });
  EXPECT_EQ(lines, (std::vector<std::string>{"first", "scond"}));
}

TEST(ToolLines, ProgressOfTheWriterAndOfTheImageMaker) {
  const struct {
    const char* line;
    double expected_mb;
    bool track;
    double written, total;
  } tracks[] = {
      {"Track 01:  648 of  648 MB written (fifo 100%) [buf  99%]  47.2x.", 0, true, 648, 648},
      {"Track 01:   12 of  300 MB written (fifo 100%) [buf  99%]  10.2x.", 0, true, 12, 300},
      {"TRACK 01:    5 of  300 MB written.", 600, true, 5, 600},
      {"Track 01: Total bytes read/written: 679477248/679477248 (331776 sectors).", 0, false},
      {"Starting new track at sector: 0", 0, false},
      {"Track", 0, false},
  };
  for (const auto& c : tracks) {
    double written = -1, total = -1;
    EXPECT_EQ(TrackProgress(c.line, c.expected_mb, written, total), c.track) << c.line;
    if (c.track) EXPECT_EQ(std::pair(written, total), std::pair(c.written, c.total)) << c.line;
  }
  EXPECT_EQ(PercentDone(" 45.67% done, estimate finish Thu Nov 26 00:50:12 2026"), 45);
  EXPECT_EQ(PercentDone("100.00% done, estimate finish Thu Nov 26 00:50:12 2026"), 100);
  EXPECT_EQ(PercentDone("Total extents written = 235"), -1);
}

// From a real burn with wodim 1.1.11 (Fedora 19), from "Starting to write" on.
const char* const kGoodBurn =
    "Starting to write CD/DVD at speed  48.0 in real TAO mode for single session.\n"
    "Last chance to quit, starting real write in    0 seconds. Operation starts.\n"
    "Track 01:  648 of  648 MB written (fifo 100%) [buf  99%]  47.2x.\n"
    "Track 01: Total bytes read/written: 679477248/679477248 (331776 sectors).\n"
    "Writing  time:  146.557s\nAverage write speed  32.7x.\nFixating...\n"
    "Fixating time:   11.459s\nBURN-Free was never needed.\n"
    "wodim: fifo had 10703 puts and 10703 gets.\n";

TEST(BurnResults, TimesSpeedAndErrorsOfRealBurns) {
  const struct {
    std::string output;
    bool good;
    std::int32_t speed;
    std::string errors;
  } cases[] = {
      {kGoodBurn, true, 48, "fifo had 10703 puts and 10703 gets."},
      {ReplaceAll(kGoodBurn, "146.557s", "1.020s"), false, 0,
       "fifo had 10703 puts and 10703 gets."},
      {ReplaceAll(kGoodBurn, "Fixating time:   11.459s", "Fixating..."), false, 0,
       "fifo had 10703 puts and 10703 gets."},
      // A write error from a real wodim run (Ubuntu forums, 2008), its fixating time raised to
      // 2 seconds: the times alone would pass a spoiled disc.
      {"Track 01:    0 of  695 MB written.\n"
       "Sense Code: 0x30 Qual 0x05 (cannot write medium - incompatible format) Fru 0x0\n"
       "/usr/bin/wodim: A write error occured.\n"
       "/usr/bin/wodim: Please properly read the error message above.\n"
       "write track data: error after 0 bytes\nWriting  time:   34.678s\n"
       "Fixating time:    2.004s\n",
       false, 0, "A write error occured.\r\nPlease properly read the error message above."},
      // Without a writer's own line the sense code tells what went wrong.
      {"Sense Key: 0x3 Medium Error, Segment 0\n"
       "Sense Code: 0x0C Qual 0x00 (write error) Fru 0x0\nWriting  time:    1.020s\n",
       false, 0, "0x0C Qual 0x00 (write error) Fru 0x0"},
      {"cdrecord: Warning: using inofficial version of libscg.\ncdrecord: No disk / Wrong disk!\n",
       false, 0, "No disk / Wrong disk!"},
  };
  for (const auto& c : cases) {
    std::int32_t speed = 0;
    EXPECT_EQ(BurnSucceeded(c.output, speed), c.good) << c.output;
    EXPECT_EQ(speed, c.speed) << c.output;
    EXPECT_EQ(CdrecordErrors(c.output), c.errors) << c.output;
  }
  EXPECT_EQ(NumberBehind("Blanking time:   12.345s", "Blanking time:"), 12);
  EXPECT_EQ(NumberBehind("Blanking time:", "Blanking time:"), -1);
}

TEST(BurnResults, ImageMakerErrorsOfARealRefusal) {
  // genisoimage 1.1.11 on two sources that meet under one name.
  const std::string output =
      "I: -input-charset not specified, using utf-8 (detected in locale settings)\n"
      "genisoimage: Warning: Directory loop (/tmp/src/LEVEL_0001/sub dev: fe00 ino: 10963640).\n"
      "Using A000.TXT;1 for  LEVEL_0001/a.txt (a.txt)\n"
      "genisoimage: Error: '/tmp/src/a.txt' and '/tmp/src/a.txt' have the same Rock Ridge name "
      "'a.txt'.\nUnable to sort directory LEVEL_0001\n";
  EXPECT_EQ(MkisofsErrors(output),
            "genisoimage: Warning: Directory loop (/tmp/src/LEVEL_0001/sub dev: fe00 ino: "
            "10963640).\r\ngenisoimage: Error: '/tmp/src/a.txt' and '/tmp/src/a.txt' have the "
            "same Rock Ridge name 'a.txt'.");
  EXPECT_EQ(RestOfLineBehind(output, "genisoimage:"),
            "Warning: Directory loop (/tmp/src/LEVEL_0001/sub dev: fe00 ino: 10963640).");
  EXPECT_EQ(MkisofsErrors("Total extents written = 235\n"), "");
}

std::string Recorded(const char* name) {
  return ReadWholeFile(std::filesystem::path(VARDOLIN_SOURCE_DIR) / "tests/cd/data" / name);
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
    const std::string output = Recorded(c.file);
    ASSERT_FALSE(output.empty()) << c.file;
    EXPECT_EQ(ParseScanBus(output, c.units), c.writers) << c.file;
    // The same text as a Windows tool wrote it, with CR LF.
    EXPECT_EQ(ParseScanBus(ReplaceAll(output, "\n", "\r\n"), c.units), c.writers) << c.file;
  }
  EXPECT_EQ(ParseScanBus("\t0,7,0\t  7) HOST ADAPTOR\n\t0,2,0\t  2) 'X' 'Y' 'Z' NON CCS Disk\n"
                         "\t10,10,0 1010) 'A' 'B' 'C' Removable CD-ROM\n",
                         {}),
            (std::vector<std::string>{"10'10'0'X:''A' 'B' 'C' "}));
}

TEST(ScanBus, DeviceStringsAreReadByTheirFields) {
  DeviceFields f;
  ASSERT_TRUE(ParseDeviceString("1'0'0'/media/cdrom0''HL-DT-ST' 'DVD-RAM GSA-H22N' '1.01' ", f));
  EXPECT_EQ(std::tuple(f.bus, f.target, f.lun, f.unit, f.vendor, f.model),
            std::tuple(1, 0, 0, std::string("/media/cdrom0"), std::string("HL-DT-ST"),
                       std::string("DVD-RAM GSA-H22N")));
  for (const char* bad : {"", "1'0'0'X:''A'", "1'x'0'X:''A' 'B' 'C' ", "1''0'X:''A' 'B' 'C' ",
                          "1'0'99999999999'X:''A' 'B' 'C' "})
    EXPECT_FALSE(ParseDeviceString(bad, f)) << bad;
}

TEST(IsoLongList, UnknownMonthsAndRepeatsAreLeftOut) {
  const std::string listing =
      "\nDirectory listing of /\n"
      "d---------   0    0    0            2048 Nov 26 2026 [     31 02]  . \n"
      "d---------   0    0    0            2048 Nov 26 2026 [     32 02]  LEVEL_0001 \n"
      "\nDirectory listing of /LEVEL_0001/\n"
      "----------   0    0    0               6 Feb  3 2026 [     35 00]  a b.txt \n"
      "----------   0    0    0               6 Foo  3 2026 [     36 00]  bad.txt \n"
      "----------   0    0    0               6 Feb  3 2026 [     35 00]  a b.txt \n";
  std::vector<std::string> bad;
  const std::vector<ReportItem> items = ParseIsoLongList(listing, &bad);
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[0].path, "/LEVEL_0001");
  EXPECT_EQ(items[1].path, "/LEVEL_0001/a b.txt");
  EXPECT_EQ(ReportLine(items[1]), "/LEVEL_0001/a b.txt\t6\t03/02/2026\r\n");
  EXPECT_EQ(bad.size(), 1u);
}

}  // namespace
}  // namespace vardolin
