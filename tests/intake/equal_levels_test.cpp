#include <gtest/gtest.h>

#include <random>

#include "archive_fixture.h"
#include "intake/equal_levels.h"
#include "intake/level_file_list.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

using testing::WriteBytes;
namespace fs = std::filesystem;

template <typename T>
std::string Bytes(T value) {
  return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

TEST(LevelFileList, ReaderTakesTheBytesPresentNeverTheCount) {
  const std::string entry = "karnak.tr4" + std::string(70, ' ') + Bytes(45000.5) + Bytes(7);
  for (const auto& [count, ok] : {std::pair{1, true}, {-1, false}, {2, false}}) {
    LevelFileList list = {{"stale", 1, 1}};
    EXPECT_EQ(ParseLevelFileList(Bytes(count) + entry + "tail", list), ok) << count;
    EXPECT_EQ(list, (ok ? LevelFileList{{"karnak.tr4", 45000.5, 7}} : LevelFileList{}));
  }
}

struct Archive : testing::ArchiveFixture {
  fs::path incoming = Path("incoming");
  explicit Archive(std::size_t levels) {
    testing::StoreNamedLevels(program, Path("archive"), std::vector<std::string>(levels, "L"));
    fs::create_directories(incoming);
  }
};

TEST(FindEqualLevel, SameNameWithoutCaseAndSameSizeWhateverTheDate) {
  using Lists = std::vector<std::optional<LevelFileList>>;  // by code; nullopt: no list file
  const struct {
    const char* what;
    Lists stored;
    LevelFileList incoming;  // files of the folder; empty: level 1's stored list is used
    std::int32_t found;
    const char* file;
  } cases[] = {
      {"case, date", {{}, {{{"KARNAK.TR4", 1, 100}}}}, {{"karnak.tr4", 0, 100}}, 1, "KARNAK.TR4"},
      {"other size", {{}, {{{"karnak.tr4", 0, 101}}}}, {{"karnak.tr4", 0, 100}}, -1, ""},
      {"size 0 is a size", {{}, {}, {{{"a.tr4", 0, 0}}}}, {{"a.tr4", 0, 0}}, 2, "a.tr4"},
      {"first", {{}, {}, {{{"b.tr4", 0, 5}}}, {{{"B.tr4", 0, 5}}}}, {{"b.tr4", 0, 5}}, 2, "b.tr4"},
      {"never itself", {{}, {{{"c.tr4", 0, 3}}}, {}, {{{"C.tr4", 0, 3}}}}, {}, 3, "C.tr4"},
      {"no list file is never equal", {{}, std::nullopt}, {{"d.tr4", 0, 9}}, -1, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Archive a(4);
    for (std::size_t code = 0; code < c.stored.size(); ++code)
      if (c.stored[code]) WriteLevelFileList(a.program, std::int32_t(code), *c.stored[code]);
    for (const LevelFileEntry& e : c.incoming)
      WriteBytes(a.incoming / e.Name, std::string(std::size_t(e.Size), 'x'));
    WriteBytes(a.incoming / "other.dat", "");  // not a level file
    std::string file = "unchanged";
    const bool stored = c.incoming.empty();
    EXPECT_EQ(FindEqualLevel(a.program, a.incoming, stored ? 1 : 4, nullptr, file, false, stored),
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
      list.push_back({names[random() % names.size()], 0, std::int32_t(random() % 6)});
    WriteLevelFileList(a.program, code, list);
  }
  std::vector<EqualLevelFind> one_by_one;
  for (std::int32_t i = 0; i < 60; ++i) {
    std::string file;
    const std::int32_t equal = FindEqualLevel(a.program, {}, i, nullptr, file, false, true);
    if (equal >= 0) one_by_one.push_back({i, equal, file});
  }
  EXPECT_GT(one_by_one.size(), 10u);
  EXPECT_EQ(FindAllEqualLevels(a.program), one_by_one);
}

TEST(EqualLevelsMenu, ListsMadeFromPlainAndPackedLevelsShowThePairFromBothSides) {
  testing::StoreFixture f;  // levels 0 to 3 on disk but 3, which lives on CD 2
  for (std::int32_t code : {0, 1, 2}) fs::create_directories(f.Files(code));
  WriteBytes(f.Files(1) / "same.tr4", "level bytes");
  WriteBytes(f.Path("plain") / "SAME.TR4", "level bytes");
  testing::Pack(f.Path("plain") / "SAME.TR4", f.Files(2) / "SAME.TR4.zl");
  const LevelFileList kept = {{"kept.tr4", 0, 1}};
  WriteLevelFileList(f.program, 0, kept);

  f.ui.Answer(msg::kOk, "The CD of a level isn't in the drive");
  CreateAllLevelFileLists(f.program);
  LevelFileList list;
  EXPECT_TRUE(ReadLevelFileList(f.program, 0, list) && list == kept) << "a list stays as it is";

  f.ui.Answer(msg::kYes, "\"Level 1\" and \"Level 2\" hold the same level file SAME.TR4");
  f.ui.Answer(msg::kYes, "\"Level 2\" and \"Level 1\" hold the same level file same.tr4");
  f.ui.Answer(msg::kOk, "2 levels of the archive have an equal level.");
  EXPECT_EQ(CheckEqualLevelsInArchive(f.program), 2);
}

}  // namespace
}  // namespace vardolin
