// Copying, moving, deleting and renumbering single savegames: each note goes where its savegame
// goes, and nothing but the savegame asked for disappears.
#include <gtest/gtest.h>

#include "foundation/services/files.h"
#include "savegame_fixture.h"
#include "savegames/savegame_files.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;

struct SavegameStore : ::testing::Test, testing::SavegameFixture {};

TEST_F(SavegameStore, CopyAndMoveTakeTheNoteAlong) {
  struct Case {
    const char* what;
    bool source_note, destination_note, remove;
  } cases[] = {
      {"copy with note", true, false, false},
      {"move with note", true, false, true},
      {"copy without note over a savegame with one", false, true, false},
      {"move with note over a savegame with one", true, true, true},
      {"move without note", false, false, true},
  };
  int round = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const fs::path from = Path("from" + std::to_string(round)),
                   to = Path("to" + std::to_string(round));
    ++round;
    const auto source = Put(from, 4, 40, c.source_note ? "source note" : "");
    const auto destination = Put(to, 9, 90, c.destination_note ? "old note" : "");
    const std::string bytes = ReadFile(source);
    ASSERT_TRUE(CopySavegame(program, source, destination, c.remove));
    EXPECT_EQ(ReadFile(destination), bytes);
    // The note that stood at the destination belonged to the savegame that was replaced.
    EXPECT_EQ(ReadFile(SavegameNoteFile(program, destination)), c.source_note ? "source note" : "");
    EXPECT_EQ(FileExists(destination.parent_path() / savegame_files::kPartialCopyName), false);
    EXPECT_EQ(FileExists(source), !c.remove);
    EXPECT_EQ(FileExists(SavegameNoteFile(program, source)), c.source_note && !c.remove);
  }
}

TEST_F(SavegameStore, CopyKeepsTheDateAndFailsWithoutLosingTheSource) {
  const auto source = Put(Path("a"), 1, 10, "note");
  const auto when = std::chrono::system_clock::now() - std::chrono::hours(500);
  ASSERT_TRUE(SetFileDateTime(source, when));
  fs::create_directories(Path("b"));
  ASSERT_TRUE(CopySavegame(program, source, Path("b/savegame.2"), true));
  EXPECT_LT(std::chrono::file_clock::to_sys(fs::last_write_time(Path("b/savegame.2"))),
            std::chrono::system_clock::now() - std::chrono::hours(400));
  // A destination folder that doesn't exist: nothing moves.
  EXPECT_FALSE(CopySavegame(program, Path("b/savegame.2"), Path("missing/savegame.3"), true));
  EXPECT_EQ(ReadFile(Path("b/savegame.2")).size(), 200u);
  EXPECT_EQ(ReadFile(SavegameNoteFile(program, Path("b/savegame.2"))), "note");
  EXPECT_FALSE(CopySavegame(program, Path("b/savegame.9"), Path("b/savegame.3"), false));
}

TEST_F(SavegameStore, CompactClosesTheGaps) {
  struct Case {
    const char* what;
    std::vector<std::pair<int, int>> slot_number;  // existing slots and their save numbers
    int deleted;                                   // slot deleted first, -1 for none
    std::vector<int> expected;                     // save numbers of savegame.0 onward
  } cases[] = {
      {"deleting savegame.3 of 5", {{0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}}, 3, {1, 2, 3, 5}},
      {"a single savegame.7 becomes savegame.0", {{7, 70}}, -1, {70}},
      {"a single savegame.0 stays", {{0, 5}}, -1, {5}},
      {"order by save number, not by slot", {{2, 30}, {5, 10}, {9, 20}}, -1, {10, 20, 30}},
      {"deleting the last of two", {{0, 8}, {1, 9}}, 1, {8}},
      {"nothing left", {{4, 1}}, 4, {}},
      {"all fifteen",
       {{0, 15},
        {1, 14},
        {2, 13},
        {3, 12},
        {4, 11},
        {5, 10},
        {6, 9},
        {7, 8},
        {8, 7},
        {9, 6},
        {10, 5},
        {11, 4},
        {12, 3},
        {13, 2},
        {14, 1}},
       -1,
       {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
  };
  int round = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const fs::path folder = Path("slots" + std::to_string(round++));
    fs::create_directories(folder);
    for (auto [slot, number] : c.slot_number)
      Put(folder, slot, number, "n" + std::to_string(number));
    if (c.deleted >= 0)
      ASSERT_TRUE(DeleteSavegame(program, folder / ("savegame." + std::to_string(c.deleted))));
    ASSERT_TRUE(CompactSlots(program, folder));
    EXPECT_EQ(Numbers(folder), c.expected);  // also checks each note against its savegame
    EXPECT_FALSE(FolderExists(SavegameWorkFolder(program)));
  }
}

}  // namespace
}  // namespace vardolin
