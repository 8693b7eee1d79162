// Archiving into sets and restoring from them, on the play folder of a level that isn't active
// and on the editor folder of the active one.
#include <gtest/gtest.h>

#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "savegame_fixture.h"
#include "savegames/savegame_sets.h"
#include "savegames/text_ids.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using Ints = std::vector<int>;

struct SavegameSets : ::testing::Test, testing::SavegameFixture {
  // Empties the level's slots and archive, then fills its slots.
  void Start(std::int32_t code, const Ints& slots) {
    fs::remove_all(SlotsOf(code));
    fs::remove_all(ArchiveRoot(program, code));
    fs::create_directories(SlotsOf(code));
    Fill(SlotsOf(code), slots);
  }
};

// from, from + 1 ... to, or downwards when to is the smaller.
Ints Range(int from, int to) {
  Ints out;
  for (int i = from, step = from <= to ? 1 : -1; i != to + step; i += step) out.push_back(i);
  return out;
}

TEST_F(SavegameSets, Archive) {
  struct Case {
    const char* what;
    Ints slots;  // save numbers in savegame.0 onward
    int count;
    bool made;
    Ints set, left;  // save numbers in the new set and left in the slots
    int count_after;
  } cases[] = {
      {"one savegame is never archived", {5}, 15, false, {}, {5}, 15},
      {"two with 15: both archived, the newer stays", {7, 3}, 15, true, {3, 7}, {7}, 2},
      {"3 of 15: oldest go, rest renumbered", Range(15, 1), 3, true, {1, 2, 3}, Range(4, 15), 3},
      {"count equal to the number found", {9, 4, 6}, 3, true, {4, 6, 9}, {9}, 3},
      {"nothing in the slots", {}, 15, false, {}, {}, 15},
  };
  for (std::int32_t code : {1, 0}) {  // a level in its play folder, the active one in the editor
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(c.what) + " level " + std::to_string(code));
      Start(code, c.slots);
      std::int32_t count = c.count;
      EXPECT_EQ(ArchiveSlotSavegames(program, code, count), c.made);
      EXPECT_EQ(count, c.count_after);
      EXPECT_EQ(Numbers(SlotsOf(code)), c.left);
      EXPECT_EQ(Numbers(Set(code, 1)), c.set);
      EXPECT_EQ(FolderExists(Set(code, 1)), c.made);
      EXPECT_FALSE(FolderExists(SavegameWorkFolder(program)));
    }
  }
}

TEST_F(SavegameSets, SetsAreNumberedFromTheFirstGap) {
  Put(Set(1, 1), 0, 1, "n1");
  Put(Set(1, 3), 0, 99, "n99");
  Fill(SlotsOf(1), {10, 11, 12});
  std::int32_t count = 1;
  ASSERT_TRUE(ArchiveSlotSavegames(program, 1, count));
  EXPECT_EQ(Numbers(Set(1, 2)), Ints{10});
  // The restore walks 1, 2 and stops at the first missing number; set 3 was 4 before.
  fs::remove_all(Set(1, 2));
  ASSERT_TRUE(RestoreArchivedSavegames(program, 1));
  EXPECT_EQ(Numbers(SlotsOf(1)), (Ints{1, 11, 12}));
  EXPECT_EQ(Numbers(Set(1, 3)), Ints{99});
}

TEST_F(SavegameSets, Restore) {
  struct Case {
    const char* what;
    Ints slots, set;
    bool restored;
    Ints slots_after, set_after;  // save numbers left in the set (slot names stay)
  } cases[] = {
      {"15 in the slots: nothing at all", Range(1, 15), {20, 21}, false, Range(1, 15), {20, 21}},
      {"10, a set of 8: 5 missing come", Range(1, 10), Range(8, 15), true, Range(1, 15), {}},
      {"10 and a set of 8 newer",
       Range(1, 10),
       Range(20, 27),
       true,
       {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 23, 24, 25, 26, 27},
       {20, 21, 22}},
      {"all already in the slots: the set ends empty", {4, 5, 6}, {4, 5}, true, {4, 5, 6}, {}},
      {"empty slots", {}, {3, 1, 2}, true, {1, 2, 3}, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Start(2, c.slots);
    Fill(Set(2, 1), c.set);
    EXPECT_EQ(RestoreArchivedSavegames(program, 2), c.restored);
    EXPECT_EQ(Numbers(SlotsOf(2)), c.slots_after);
    Ints left;
    for (const auto& file : ListSavegames(program, Set(2, 1))) left.push_back(Number(file));
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, c.set_after);
    EXPECT_TRUE(FolderExists(Set(2, 1)));
  }
  // The emptied set is removed by the next restore, which then finds nothing.
  EXPECT_FALSE(RestoreArchivedSavegames(program, 2));
  EXPECT_FALSE(FolderExists(Set(2, 1)));
}

TEST_F(SavegameSets, RestoreKeepsAnotherPlaythroughsSavegameOfTheSameNumber) {
  Start(2, {4, 5, 6});
  Put(Set(2, 1), 0, 5, "n5", 7);  // the fifth save of another playthrough
  Put(Set(2, 1), 1, 4, "n4");     // the very savegame that stands in slot 0
  ASSERT_TRUE(RestoreArchivedSavegames(program, 2));
  EXPECT_EQ(Numbers(SlotsOf(2)), (Ints{4, 5, 5, 6}));
  EXPECT_TRUE(ListSavegames(program, Set(2, 1)).empty());
}

TEST_F(SavegameSets, RestoreOneIntoFullSlots) {
  Fill(Set(3, 1), {2, 40});
  // Full slots: No leaves all as it was; Yes archives them all first. The random test restores
  // one into slots that have room.
  Fill(SlotsOf(3), Range(11, 25));
  for (int answer : {msg::kNo, msg::kYes})
    ui.Answer(answer, program.GetText(text::RestoreOneSlotsFull, {"\r\n"}));
  EXPECT_FALSE(RestoreSavegameToSlot(program, 3, Set(3, 1) / "savegame.1"));
  EXPECT_EQ(Numbers(SlotsOf(3)), Range(11, 25));
  ASSERT_TRUE(RestoreSavegameToSlot(program, 3, Set(3, 1) / "savegame.1"));
  EXPECT_EQ(Numbers(SlotsOf(3)), (Ints{25, 40}));
  EXPECT_EQ(Numbers(Set(3, 2)), Range(11, 25));
}

TEST_F(SavegameSets, RecoveryPutsBackWhatAStoppedOperationLeft) {
  const fs::path work = SavegameWorkFolder(program);
  const std::string journal_name = program.GetText(text::SavegameWorkJournal).substr(1);
  const std::string home = "level 1\nhome " + SlotsOf(1).string() + "\n";
  struct Case {
    const char* what;
    std::string journal;  // "" for none
    Ints in_work, in_slots, slots_after;
    Ints active_set_after;  // a new set of the active level (0)
  };
  const Case cases[] = {
      {"journal names the slots", "operation archive\n" + home, {3, 9}, {5}, {3, 5, 9}, {}},
      {"a copy already at home is dropped", "operation restore\n" + home, {5, 9}, {5}, {5, 9}, {}},
      {"no journal: into a new set of the active level", "", {3, 9}, {5}, {5}, {3, 9}},
      {"unreadable journal", "operation nonsense\n", {4}, {}, {}, {4}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Start(1, c.in_slots);
    fs::remove_all(ArchiveRoot(program, 0));
    for (std::size_t i = 0; i < c.in_work.size(); ++i)
      Put(work, static_cast<int>(i) + 5, c.in_work[i], "n" + std::to_string(c.in_work[i]));
    if (!c.journal.empty()) testing::WriteBytes(work / journal_name, c.journal);
    ASSERT_TRUE(RecoverSavegameWork(program));
    EXPECT_FALSE(FolderExists(work));
    EXPECT_EQ(Numbers(SlotsOf(1)), c.slots_after);
    EXPECT_EQ(Numbers(Set(0, 1)), c.active_set_after);
  }
  // An operation that finds a work folder recovers first and then runs.
  Put(work, 0, 77, "n77");
  Fill(SlotsOf(0), {80, 81});
  std::int32_t count = 1;
  ASSERT_TRUE(ArchiveSlotSavegames(program, 0, count));
  EXPECT_EQ(Numbers(Set(0, 2)), Ints{77});
  EXPECT_EQ(Numbers(Set(0, 3)), Ints{80});
}

}  // namespace
}  // namespace vardolin
