#include "intake/level_info.h"

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "foundation/services/binary_io.h"

namespace vardolin::testing {
namespace {

namespace L = level_info_layout;

LevelInfo SampleInfo() {
  LevelInfo info;
  info.LevelName = "The Lost Caf\xC3\xA9";
  info.Note = "note";
  info.AuthorName = "Author";
  info.AuthorNote = "about";
  info.AuthorEmails = std::string("a@x.org") + '\0' + "b@x.org";
  info.AuthorSites = "https://x.org";
  // A group without a CD label: the list begins with an empty string.
  info.MediaFiles = std::string("") + '\0' + "a.wav" + '\0' + "b.wav" + '\0' + "c.wav";
  info.WadFiles = std::string("graphics\\wads\\x.was") + '\0' + "https://x.org/w.zip";
  info.WadsDescription = "wads";
  info.FileCopies = std::string("*.tr4") + '\0' + "level";
  info.MoreInfoFile = "readme.txt";
  info.SetupDestination = "0";
  info.ListedNames = {"level.tr4", "title.pak"};
  info.ListedSizes = {123456, 0};
  info.ListedFileCount = 2;
  info.TomLinks = std::string("level") + '\0' + "level.*";
  return info;
}

TEST(LevelInfoTest, FileHoldsEachFieldAtItsOffsetAndReadsBack) {
  ArchiveFixture f;
  LevelInfo info = SampleInfo();
  info.ListedNames = {"C:\\levels\\data\\level.tr4", "data/title.pak"};
  ASSERT_TRUE(WriteLevelInfoFile(f.program, f.Path("info.bin"), info));
  const std::string image = ReadFile(f.Path("info.bin"));
  const std::vector<std::pair<std::size_t, std::string>> fields = {
      {L::kLevelName, "The Lost Caf\xE9"}, {L::kAuthorName, "Author"},
      {L::kAuthorSites, "https://x.org"},  {L::kMediaFiles, std::string("\0a.wav", 6)},
      {L::kFileCopies, "*.tr4"},           {L::kMoreInfoFile, "readme.txt"},
      {L::kSetupDestination, "0 "},        {L::kListedFileCount, std::string("\2\0\0\0\x9\0", 6)}};
  for (const auto& [offset, start] : fields)
    EXPECT_EQ(image.substr(offset, start.size()), start) << offset;
  LevelInfo back;
  ASSERT_TRUE(ReadLevelInfoFile(f.program, f.Path("info.bin"), back));
  info.ListedNames = {"level.tr4", "title.pak"};
  EXPECT_EQ(back, info);

  // What a writer's buffer held behind a one-line text's end is not part of it.
  info.LevelName = std::string("Lara") + '\0' + "#junk";
  ASSERT_TRUE(WriteLevelInfoFile(f.program, f.Path("info.bin"), info));
  ASSERT_TRUE(ReadLevelInfoFile(f.program, f.Path("info.bin"), back));
  EXPECT_EQ(back.LevelName, "Lara");
}

TEST(LevelInfoTest, ListedFilesAreTakenFromTheBytesPresent) {
  auto head = [](std::int32_t count) {
    ByteWriter w;
    w.FixedString("Level", L::kListedFileCount);
    w.I32(count);
    return w.Take();
  };
  auto entry = [](std::int16_t length, std::string name, std::int32_t size) {
    ByteWriter w;
    w.I16(length);
    w.Raw(name);
    w.I32(size);
    return w.Take();
  };
  const std::string one = entry(5, "a.tr4", 7);
  struct Case {
    const char* what;
    std::string bytes;
    LevelInfoParse result;
    std::size_t listed;
    std::string tom_links;
  };
  const std::vector<Case> cases = {
      {"8710 bytes, no entry", head(0), LevelInfoParse::Ok, 0, ""},
      {"older file: ends behind its entries", head(1) + one, LevelInfoParse::Ok, 1, ""},
      {"tom links behind the entries",
       head(1) + one + entry(3, std::string("a\0b", 3), 0).substr(0, 5), LevelInfoParse::Ok, 1,
       std::string("a\0b", 3)},
      {"count beyond the bytes", head(2'000'000'000) + one, LevelInfoParse::BadEntry, 0, ""},
      {"negative count", head(-1), LevelInfoParse::BadEntry, 0, ""},
      {"negative name length", head(1) + entry(-5, "a.tr4", 7), LevelInfoParse::BadEntry, 0, ""},
      {"name past the end", head(1) + entry(90, "a.tr4", 7), LevelInfoParse::BadEntry, 0, ""},
      {"tom links past the end", head(0) + entry(9, "x", 0).substr(0, 3), LevelInfoParse::BadEntry,
       0, ""},
      {"fixed part cut short", head(0).substr(0, 8000), LevelInfoParse::ShortFixedPart, 0, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    LevelInfo info;
    info.LevelName = "unchanged";
    ASSERT_EQ(ParseLevelInfo(c.bytes, info), c.result);
    if (c.result != LevelInfoParse::Ok) {
      EXPECT_EQ(info.LevelName, "unchanged");
      continue;
    }
    EXPECT_EQ(info.ListedNames.size(), c.listed);
    EXPECT_EQ(info.ListedFileCount, static_cast<std::int32_t>(c.listed));
    EXPECT_EQ(info.TomLinks, c.tom_links);
  }
}

}  // namespace
}  // namespace vardolin::testing
