#include "intake/packed_level.h"

#include <gtest/gtest.h>

#include "foundation/services/binary_io.h"
#include "intake/byte_source.h"
#include "intake/packed_level_expand.h"
#include "intake/packed_level_header.h"
#include "intake/text_ids.h"
#include "store_fixture.h"

namespace vardolin::testing {
namespace {

namespace fs = std::filesystem;

struct PackedLevelTest : ArchiveFixture, ::testing::Test {
  FileArchive packed{program};
  ArchiveDirectory directory;
  fs::path level = Path("level");
  fs::path archive = level / "level.vpk";

  // An archive with its contents inside, holding `files` in this order.
  void Pack(const std::map<std::string, std::string>& files) {
    fs::create_directories(level);
    ASSERT_TRUE(packed.ArchiveOperation(archive, kArchiveCreate, {}, {}, directory));
    for (const auto& [name, bytes] : files) {
      WriteBytes(Path("in") / name, bytes);
      ASSERT_TRUE(packed.ArchiveOperation(archive, kArchiveAdd, (Path("in") / name).string(), {},
                                          directory))
          << packed.LastArchiveError();
    }
  }
  std::map<std::string, std::string> Contents() {
    fs::remove_all(Path("out"));
    fs::create_directories(Path("out"));
    EXPECT_TRUE(
        packed.ArchiveOperation(archive, kArchiveTakeAll, {}, Path("out").string(), directory));
    return Snapshot(Path("out"));
  }
};

TEST_F(PackedLevelTest, ArchiveKeepsItsFilesThroughEveryChange) {
  const std::map<std::string, std::string> files = {
      {"a.tr4", LevelBytes(1)}, {"b.dat", ""}, {"c.txt", "see"}};
  Pack(files);
  EXPECT_EQ(Contents(), files);
  EXPECT_TRUE(packed.ArchiveOperation(archive, kArchiveCheck, {}, {}, directory));

  // A file of a name that's there, in another case, replaces it in its place.
  WriteBytes(Path("new/B.DAT"), "new b");
  ASSERT_TRUE(
      packed.ArchiveOperation(archive, kArchiveAdd, Path("new/B.DAT").string(), {}, directory));
  EXPECT_EQ(directory.Names, (std::vector<std::string>{"a.tr4", "b.dat", "c.txt"}));
  ASSERT_TRUE(packed.ArchiveOperation(archive, kArchiveRemove, "A.TR4", {}, directory));
  ASSERT_TRUE(packed.ArchiveOperation(archive, kArchiveMoveOut, {}, {}, directory));
  EXPECT_TRUE(directory.External);
  ASSERT_TRUE(packed.ArchiveOperation(archive, kArchiveMoveIn, {}, {}, directory));
  EXPECT_EQ(Contents(), (std::map<std::string, std::string>{{"b.dat", "new b"}, {"c.txt", "see"}}));
  EXPECT_TRUE(packed.ArchiveOperation(archive, kArchiveCheck, {}, {}, directory));

  // A byte more than the directory tells is a damaged archive.
  std::ofstream(archive, std::ios::app) << 'x';
  ui.Answer(msg::kOk, program.GetText(text::ArchiveCheckLength));
  EXPECT_FALSE(packed.ArchiveOperation(archive, kArchiveCheck, {}, {}, directory));
}

TEST_F(PackedLevelTest, ExpandingTakesOutTheWorkingFilesAndKeepsTheRest) {
  const std::map<std::string, std::string> files = {
      {"level.TR4", "level"},        {"script.txt", "script"}, {"load.raw", "loading"},
      {"shot3.bmp", "kept picture"}, {"003.wav", "track"},     {"abc.wav", "sample"},
      {"notes.doc", "stays"}};
  Pack(files);
  ExpandPackedLevel(program, level, nullptr, nullptr);

  std::map<std::string, std::string> outside = files, inside;
  for (const char* stays : {"shot3.bmp", "notes.doc"}) {
    inside[stays] = files.at(stays);
    outside.erase(stays);
  }
  const std::string left = ReadFile(archive);
  fs::remove(archive);
  EXPECT_EQ(Snapshot(level), outside);
  WriteBytes(archive, left);
  EXPECT_EQ(Contents(), inside);

  // Nothing left to take out: the archive stays as it is.
  ExpandPackedLevel(program, level, nullptr, nullptr);
  EXPECT_EQ(ReadFile(archive), left);
  EXPECT_TRUE(ui.Messages().empty());
}

TEST_F(PackedLevelTest, NamesAreJudgedAsTheGameNamesItsFiles) {
  // Name, then T for an audio track, S for a savegame in any folder.
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"003.wav", "T"},     {"003.MP3", "T"},    {"abc.wav", ""},       {"0031.wav", ""},
      {"savegame.14", "S"}, {"SAVEGAME.0", "S"}, {"savegame.15", ""},   {"savegame.", ""},
      {"savegame.x", ""},   {"savegame.0a", ""}, {"savegame.014", "S"}, {"savegame.015", ""}};
  for (const auto& [name, kind] : cases)
    EXPECT_EQ(std::string(IsAudioTrackName(program, name) ? "T" : "") +
                  (IsSavegameName(program, name, true) ? "S" : ""),
              kind)
        << name;
  EXPECT_EQ(ScrambledString(""), std::string(4, '\0'));
  EXPECT_EQ(ScrambledString("\xC3\xA9").substr(0, 4), std::string("\x02\0\0\0", 4));
}

TEST_F(PackedLevelTest, HostileArchivesAreRefusedWithoutHarm) {
  auto archive_of = [](std::int32_t count, const std::vector<std::string>& names, std::int32_t size,
                       std::string tail = {}) {
    ByteWriter w;
    w.I32(count);
    w.Flag(false);
    w.Raw(ScrambledString(""));
    for (const std::string& name : names) {
      w.Raw(ScrambledString(name));
      w.I32(size);
      w.F64(45000);
      w.F64(45000);
    }
    w.Raw(tail);
    return w.Take();
  };
  std::string odd = archive_of(1, {"ab"}, 0);
  odd[10] = 3;  // the name's byte count
  struct Case {
    const char* what;
    std::string bytes;
    bool directory_reads;
  };
  const std::vector<Case> cases = {
      {"count of two billion", archive_of(2'000'000'000, {"a"}, 1, "x"), false},
      {"negative count", archive_of(-1, {}, 0), false},
      {"negative size", archive_of(1, {"a.tr4"}, -5), false},
      {"odd byte count of a name", odd, false},
      {"name longer than the file", archive_of(1, {"a"}, 0).substr(0, 12), false},
      {"name with ..", archive_of(1, {"..\\a.tr4"}, 1, "x"), false},
      {"name with a folder", archive_of(1, {"sub/a.tr4"}, 1, "x"), false},
      {"contents past the end", archive_of(1, {"a.tr4"}, 1'000'000, "short"), true},
  };
  ui.AllowAnyMessage();
  fs::create_directories(level);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    WriteBytes(archive, c.bytes);
    EXPECT_EQ(packed.ArchiveOperation(archive, kArchiveReadDirectory, {}, {}, directory),
              c.directory_reads);
    ExpandPackedLevel(program, level, nullptr, nullptr);
    EXPECT_EQ(ReadFile(archive), c.bytes);
    const std::vector<std::string> untouched = {"home/no_image.jpg", "home/vardo_log.txt",
                                                "level/level.vpk"};
    EXPECT_EQ(Names(Snapshot(dir.path())), untouched);
  }
}

TEST(PackageHeaderTest, OnlyTheNamesOfAGoodHeaderCount) {
  auto header = [](const std::string& signature, std::int32_t count) {
    ByteWriter w;
    w.Raw(signature);
    w.Zeros(4 + 16 + 16);
    w.Raw(ScrambledString("title"));
    w.I32(count);
    for (const char* name : {"cover.bmp", "map.bmp"}) w.Raw(ScrambledString(name));
    w.I32(7);
    return w.Take();
  };
  const std::vector<std::pair<std::string, HeaderParse>> cases = {
      {header("vph1.2", 2), HeaderParse::Ok},
      {header("VPHx.2", 2), HeaderParse::NotHeader},
      {header("ABC1.2", 2), HeaderParse::NotHeader},
      {header("VPH1.2", 1'000'000), HeaderParse::Short},
      {header("VPH1.2", 3), HeaderParse::BadName}};
  for (const auto& [bytes, result] : cases) {
    MemorySource source(bytes);
    PackageHeader read;
    EXPECT_EQ(ParsePackageHeader(source, "VPH", read), result);
    EXPECT_EQ(read.Names.size(), result == HeaderParse::Ok ? 2u : 0u);
  }
}

}  // namespace
}  // namespace vardolin::testing
