// Archive, restore and renumbering killed at chosen points: a child process (this test program
// run again) is killed by SIGKILL in the middle of the operation, then the recovery of the next
// start runs. Every savegame that stood before must stand afterwards, with its note.
#include <gtest/gtest.h>

#include <csignal>

#include "fault_child.h"
#include "foundation/services/files.h"
#include "savegame_fixture.h"
#include "savegames/savegame_sets.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

constexpr const char* kChildVariable = "VARDOLIN_SAVEGAME_CHILD";
constexpr std::int32_t kLevel = 1;

void Configure(Program& program, const fs::path& root) {
  program.prefs.EditorFolder = (root / "trle").string();
  program.catalogue = testing::SampleCatalogue(4, (root / "archive").string());
}

bool RunOperation(Program& program, const std::string& operation) {
  if (operation == "archive") {
    std::int32_t count = 5;
    return ArchiveSlotSavegames(program, kLevel, count);
  }
  if (operation == "restore") return RestoreArchivedSavegames(program, kLevel);
  return CompactSlots(program, SlotFolder(program, kLevel));
}

// Runs only as the child: the operation named in the variable ("operation|root"), killed on the
// way by the fault point the parent chose.
TEST(SavegameKillChild, Run) {
  const auto job = testing::ReadFaultJob(kChildVariable);
  if (!job) GTEST_SKIP() << "runs only as the child of the kill test";
  testing::ChildProgram child(job->root / "home");
  Program& program = child.program;
  Configure(program, job->root);
  EXPECT_TRUE(RunOperation(program, job->what));
}

// 1 when the fault point killed the child, 0 when it finished.
int RunChild(const std::string& operation, const fs::path& root, const std::string& point) {
  return testing::RunFaultChild("SavegameKillChild.Run", kChildVariable,
                                operation + "|" + root.string(), point);
}

struct SavegameKillTest : ::testing::Test, testing::SavegameFixture {
  // The savegames of each operation's case; some have no note, and the restore's sets hold
  // copies of two slot savegames (same bytes, same note), which the restore removes by design.
  void Prepare(const std::string& operation) {
    fs::remove_all(SlotsOf(kLevel));
    fs::remove_all(ArchiveRoot(program, kLevel));
    fs::create_directories(SlotsOf(kLevel));
    auto note = [](int n) { return n % 4 == 0 ? std::string() : "n" + std::to_string(n); };
    if (operation == "archive") {
      for (int i = 0; i < 12; ++i) Put(SlotsOf(kLevel), i, 100 - 3 * i, note(100 - 3 * i));
      fs::create_directories(Set(kLevel, 1));
      Put(Set(kLevel, 1), 0, 5, "n5");
      Put(Set(kLevel, 1), 1, 6, "");
    } else if (operation == "restore") {
      for (int i = 0; i < 6; ++i) Put(SlotsOf(kLevel), i, 50 + i, note(50 + i));
      fs::create_directories(Set(kLevel, 1));
      fs::create_directories(Set(kLevel, 2));
      for (int i = 0; i < 4; ++i) Put(Set(kLevel, 1), i, 10 + i, note(10 + i));
      for (int i = 0; i < 10; ++i) Put(Set(kLevel, 2), i, 20 + 2 * i, note(20 + 2 * i));
      Put(Set(kLevel, 2), 10, 51, note(51));
      Put(Set(kLevel, 2), 11, 53, note(53));
    } else {
      const int slots[] = {1, 3, 4, 8, 12, 14}, numbers[] = {7, 3, 9, 1, 8, 2};
      for (int i = 0; i < 6; ++i) Put(SlotsOf(kLevel), slots[i], numbers[i], note(numbers[i]));
    }
  }
};

TEST_F(SavegameKillTest, NothingIsLostWhereverTheOperationStops) {
  Configure(program, dir.path());
  int kills = 0;
  const std::pair<const char*, const char*> rounds[] = {
      {"archive", "savegame-archive"}, {"archive", "savegame-copy"},
      {"restore", "savegame-restore"}, {"restore", "savegame-copy"},
      {"compact", "savegame-compact"}, {"compact", "savegame-copy"}};
  for (const auto& [operation, point] : rounds)
    for (int n = 1; n <= 80; ++n) {
      const std::string fault = std::string(point) + ":" + std::to_string(n);
      SCOPED_TRACE(std::string(operation) + " " + fault);
      Prepare(operation);
      const auto before = Distinct(kLevel);
      const int killed = RunChild(operation, dir.path(), fault);
      kills += killed;
      // What the next start does.
      ASSERT_TRUE(RecoverSavegameWork(program));
      ASSERT_FALSE(FolderExists(SavegameWorkFolder(program)));
      ASSERT_EQ(Distinct(kLevel), before);
      Numbers(SlotsOf(kLevel));  // no gaps, and each note with its savegame
      if (!killed) break;        // the operation has fewer points of this kind
    }
  EXPECT_GE(kills, 100);
  std::printf("savegame operations killed at %d points\n", kills);
}

}  // namespace
}  // namespace vardolin
