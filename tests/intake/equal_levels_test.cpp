#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "archive_fixture.h"
#include "intake/equal_levels.h"
#include "intake/level_file_list.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

using testing::ArchiveFixture;
using testing::WriteBytes;
namespace fs = std::filesystem;

std::string Entry(const std::string& name, double date, std::int32_t size) {
  std::string bytes = name + std::string(80 - name.size(), ' ');
  bytes.append(reinterpret_cast<const char*>(&date), 8);
  return bytes.append(reinterpret_cast<const char*>(&size), 4);
}
std::string Count(std::int32_t n) {
  return std::string(reinterpret_cast<const char*>(&n), 4);
}

TEST(LevelFileList, ReaderTakesTheBytesPresentNeverTheCount) {
  const std::string one = Entry("karnak.tr4", 45000.5, 7);
  const struct {
    std::string bytes;
    bool ok;
    std::size_t entries;
  } cases[] = {
      {"", false, 0},
      {Count(0), true, 0},
      {Count(1) + one, true, 1},
      {Count(-1) + one, false, 0},
      {Count(2) + one, false, 0},
      {Count(0x7fffffff) + one, false, 0},
      {Count(1) + one + one.substr(0, 50), true, 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bytes.size());
    LevelFileList list = {{"stale", 1, 1}};
    EXPECT_EQ(ParseLevelFileList(c.bytes, list), c.ok);
    ASSERT_EQ(list.size(), c.entries);
    if (c.entries) {
      EXPECT_EQ(list[0], (LevelFileEntry{"karnak.tr4", 45000.5, 7}));
    }
  }
}

struct Archive : ArchiveFixture {
  fs::path incoming = Path("incoming");
  explicit Archive(std::size_t levels) {
    testing::StoreNamedLevels(program, Path("archive"), std::vector<std::string>(levels, "Level"));
    fs::create_directories(incoming);
  }
  void Store(std::int32_t code, const LevelFileList& list) {
    ASSERT_TRUE(WriteLevelFileList(program, code, list));
  }
};

TEST(FindEqualLevel, SameNameWithoutCaseAndSameSizeWhateverTheDate) {
  using Lists = std::vector<std::optional<LevelFileList>>;  // by code; nullopt: no list file
  const struct {
    const char* what;
    Lists stored;
    LevelFileList incoming;  // files of the folder; with useStored level 1's list is used
    bool use_stored;
    std::int32_t found;
    const char* file;
  } cases[] = {
      {"case and date differ",
       {{}, {{{"KARNAK.TR4", 44000, 100}}}},
       {{"karnak.tr4", 0, 100}},
       false,
       1,
       "KARNAK.TR4"},
      {"other size", {{}, {{{"karnak.tr4", 0, 101}}}}, {{"karnak.tr4", 0, 100}}, false, -1, ""},
      {"size 0 is a size", {{}, {}, {{{"a.tr4", 0, 0}}}}, {{"a.tr4", 0, 0}}, false, 2, "a.tr4"},
      {"the first level wins",
       {{{{"x.tr4", 0, 1}}}, {}, {{{"b.tr4", 0, 5}}}, {{{"b.tr4", 0, 5}}}},
       {{"b.tr4", 0, 5}},
       false,
       2,
       "b.tr4"},
      {"a level never equals itself", {{}, {{{"c.tr4", 0, 3}}}}, {}, true, -1, ""},
      {"itself skipped, the next counts",
       {{}, {{{"c.tr4", 0, 3}}}, {}, {{{"C.tr4", 0, 3}}}},
       {},
       true,
       3,
       "C.tr4"},
      {"no list file is never equal", {{}, std::nullopt}, {{"d.tr4", 0, 9}}, false, -1, ""},
      {"no list of its own", {{}, std::nullopt, {{{"d.tr4", 0, 9}}}}, {}, true, -1, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Archive a(4);
    for (std::size_t code = 0; code < c.stored.size(); ++code)
      if (c.stored[code]) a.Store(static_cast<std::int32_t>(code), *c.stored[code]);
    for (const LevelFileEntry& e : c.incoming)
      WriteBytes(a.incoming / e.Name, std::string(static_cast<std::size_t>(e.Size), 'x'));
    WriteBytes(a.incoming / "other.dat", "");  // not a level file
    std::string file = "unchanged";
    const std::int32_t index = c.use_stored ? 1 : 4;
    EXPECT_EQ(FindEqualLevel(a.program, a.incoming, index, nullptr, file, false, c.use_stored),
              c.found);
    EXPECT_EQ(file, c.found < 0 ? "unchanged" : c.file);
  }
}

TEST(FindAllEqualLevels, TellsEachLevelWhatFindEqualLevelTellsIt) {
  Archive a(60);
  std::mt19937 random(7);
  const std::vector<std::string> names = {"a.tr4", "B.tr4", "b.TR4", "c.tr4", "d.tr4"};
  for (std::int32_t code = 0; code < 60; ++code) {
    if (random() % 5 == 0) continue;  // some levels have no list
    LevelFileList list;
    for (unsigned n = random() % 4; n > 0; --n)
      list.push_back({names[random() % names.size()], 0, static_cast<std::int32_t>(random() % 6)});
    a.Store(code, list);
  }
  const std::vector<EqualLevelFind> all = FindAllEqualLevels(a.program);
  std::vector<EqualLevelFind> one_by_one;
  for (std::int32_t i = 0; i < 60; ++i) {
    std::string file;
    const std::int32_t equal = FindEqualLevel(a.program, {}, i, nullptr, file, false, true);
    if (equal >= 0) one_by_one.push_back({i, equal, file});
  }
  EXPECT_GT(all.size(), 10u);
  EXPECT_EQ(all, one_by_one);
}

}  // namespace
}  // namespace vardolin

namespace vardolin {
namespace {

TEST(EqualLevelsMenu, ListsMadeFromPlainAndPackedLevelsShowThePairFromBothSides) {
  testing::StoreFixture f;  // levels 0 to 3 on disk but 3, which lives on CD 2
  WriteBytes(f.Files(1) / "same.tr4", "level bytes");
  WriteBytes(f.Path("plain") / "SAME.TR4", "level bytes");
  for (std::int32_t code : {0, 2}) fs::create_directories(f.Files(code));
  testing::Pack(f.Path("plain") / "SAME.TR4", f.Files(2) / "SAME.TR4.zl");
  const LevelFileList kept = {{"kept.tr4", 0, 1}};
  ASSERT_TRUE(WriteLevelFileList(f.program, 0, kept));

  f.ui.Answer(msg::kOk, "The CD of a level isn't in the drive");
  CreateAllLevelFileLists(f.program);
  LevelFileList list;
  EXPECT_TRUE(ReadLevelFileList(f.program, 0, list) && list == kept) << "a list stays as it is";
  EXPECT_FALSE(ReadLevelFileList(f.program, 3, list)) << "its CD isn't there: no list";

  f.ui.Answer(msg::kYes, "\"Level 1\" and \"Level 2\" hold the same level file SAME.TR4");
  f.ui.Answer(msg::kYes, "\"Level 2\" and \"Level 1\" hold the same level file same.tr4");
  f.ui.Answer(msg::kOk, "2 levels of the archive have an equal level.");
  EXPECT_EQ(CheckEqualLevelsInArchive(f.program), 2);
}

}  // namespace
}  // namespace vardolin
