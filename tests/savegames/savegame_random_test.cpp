// Long random sequences of what a player and the panel do to one level's savegames: the game
// saves, archive, restore, delete, renumber, restore one. After each step nothing is lost but
// what was deleted (and the copies a restore removes by design), the slots have no gaps and are
// oldest first where the operation says so, and every note stays with its savegame.
#include <gtest/gtest.h>

#include <random>

#include "foundation/services/files.h"
#include "savegame_fixture.h"
#include "savegames/savegame_sets.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

struct SavegameRandomTest : ::testing::Test, testing::SavegameFixture {};

TEST_F(SavegameRandomTest, NothingIsLostButWhatWasDeleted) {
  int steps = 0;
  for (std::int32_t code : {0, 2}) {  // the active level in the editor folder, another one
    for (unsigned seed = 1; seed <= 6; ++seed) {
      std::mt19937 random(seed * 7919 + static_cast<unsigned>(code));
      auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
      fs::remove_all(SlotsOf(code));
      fs::remove_all(ArchiveRoot(program, code));
      fs::create_directories(SlotsOf(code));
      std::set<testing::SavedGame> expected;
      int next_number = 1;
      for (int step = 0; step < 60; ++step, ++steps) {
        const fs::path slots = SlotsOf(code);
        const auto in_slots = ListSavegames(program, slots);
        const auto archived = ListArchivedSavegames(program, code);
        const int action = pick(10);
        std::string what;
        bool sorted = true;  // the slots end oldest first
        if (action <= 3) {
          // The game saves into its first free slot; a full game overwrites the oldest slot,
          // which the player chose, so it counts as deleted.
          what = "save";
          const int number = next_number++;
          const std::string note = pick(3) ? "n" + std::to_string(number) : "";
          int slot = static_cast<int>(in_slots.size());
          if (slot >= kSavegameSlots) {
            slot = 0;
            const auto old = slots / "savegame.0";
            expected.erase(
                {testing::ReadFile(old), testing::ReadFile(SavegameNoteFile(program, old))});
            DeleteSavegame(program, old);
            sorted = false;
          }
          const auto path = Put(slots, slot, number, note, seed);
          expected.insert({testing::ReadFile(path), note});
          if (slot == 0 && in_slots.size() >= kSavegameSlots) CompactSlots(program, slots);
        } else if (action == 4) {
          what = "archive";
          std::int32_t count = pick(17);
          ArchiveSlotSavegames(program, code, count);
        } else if (action == 5) {
          what = "restore";
          RestoreArchivedSavegames(program, code);
        } else if (action == 6 || action == 7) {
          what = "delete";
          std::vector<fs::path> all = in_slots;
          all.insert(all.end(), archived.begin(), archived.end());
          if (all.empty()) continue;
          const fs::path victim = all[static_cast<std::size_t>(pick(static_cast<int>(all.size())))];
          const testing::SavedGame gone{testing::ReadFile(victim),
                                        testing::ReadFile(SavegameNoteFile(program, victim))};
          ASSERT_TRUE(DeleteSavegame(program, victim));
          if (victim.parent_path() == slots) CompactSlots(program, slots);
          // A savegame archived while also left in slot 0, or restored one by one, stands twice.
          const auto now = Everything(code);
          if (std::find(now.begin(), now.end(), gone) == now.end()) expected.erase(gone);
        } else if (action == 8) {
          what = "compact";
          CompactSlots(program, slots);
        } else {
          what = "restore one";
          if (archived.empty() || in_slots.size() >= kSavegameSlots) continue;
          RestoreSavegameToSlot(
              program, code,
              archived[static_cast<std::size_t>(pick(static_cast<int>(archived.size())))]);
        }
        SCOPED_TRACE("level " + std::to_string(code) + " seed " + std::to_string(seed) + " step " +
                     std::to_string(step) + " " + what);
        ASSERT_EQ(Distinct(code), expected);
        const std::vector<int> numbers = Numbers(slots);  // no gaps, notes with their savegames
        ASSERT_LE(numbers.size(), static_cast<std::size_t>(kSavegameSlots));
        EXPECT_TRUE(!sorted || std::is_sorted(numbers.begin(), numbers.end()));
        ASSERT_FALSE(FolderExists(SavegameWorkFolder(program)));
      }
    }
  }
  std::printf("savegame store checked after %d random steps\n", steps);
}

}  // namespace
}  // namespace vardolin
