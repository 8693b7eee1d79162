// Activation killed at chosen points: a child process (this test program run again) is killed
// by SIGKILL in the middle of the copy, the removal, the saving of play files or the expansion
// of a packed level, and the next run (its clean-up, then activations) must still bring the
// editor folder back to its base state without losing any level's store or savegame.
#include <gtest/gtest.h>

#include "activation_fixture.h"
#include "archive/leftovers.h"
#include "archive/level_files.h"
#include "fault_child.h"
#include "play/activation.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Snapshot;

constexpr const char* kChildVariable = "VARDOLIN_ACTIVATION_CHILD";

// Runs only as the child: activates the level named in the variable ("code|root") and is killed
// on the way by the fault point the parent chose.
TEST(ActivationCrashChild, Activate) {
  const auto job = testing::ReadFaultJob(kChildVariable);
  if (!job) GTEST_SKIP() << "runs only as the child of the crash test";
  testing::ChildProgram child(job->root / "home");
  Program& program = child.program;
  testing::ConfigureActivation(program, job->root);
  SetLevelInTrle(program, std::stoi(job->what));
}

// 1 when the fault point killed the child, 0 when it finished.
int RunChild(std::int32_t code, const fs::path& root, const std::string& point) {
  return testing::RunFaultChild("ActivationCrashChild.Activate", kChildVariable,
                                std::to_string(code) + "|" + root.string(), point);
}

struct ActivationCrashTest : ::testing::Test, testing::ActivationFixture {
  // Level 2 is kept packed, and every level has savegames: the base level's in the slots of the
  // editor folder, the others' in their play folders.
  ActivationCrashTest() {
    for (const std::string& name : LevelFiles().at(2)) {
      testing::Pack(Files(2) / name, Files(2) / (name + ".zl"));
      fs::remove(Files(2) / name);
    }
    testing::WriteBytes(editor / "savegame.0", "the base level's slot 0");
    testing::WriteBytes(editor / "savegame.3", "the base level's slot 3");
    for (std::int32_t code : {1, 2})
      testing::WriteBytes(Files(code).parent_path() / "play" / "savegame.1",
                          "slot 1 of " + std::to_string(code));
  }
};

TEST_F(ActivationCrashTest, KilledActivationsLeaveNothingBehind) {
  const auto base = Snapshot(Path("trle"));
  const auto stores = Snapshot(Path("archive"));
  std::map<std::int32_t, std::map<std::string, std::string>> active = {{0, base}};
  for (std::int32_t code : {1, 2}) {
    ASSERT_TRUE(SetLevelInTrle(program, code));
    active[code] = Snapshot(Path("trle"));
    ASSERT_TRUE(SetLevelInTrle(program, 0));
  }
  int kills = 0;
  struct Round {
    std::int32_t before, killed, after;
  };
  for (const Round& round : {Round{1, 2, 1}, Round{0, 1, 2}, Round{2, 0, 1}, Round{0, 2, 1}})
    for (const char* point :
         {"activation-copy", "activation-remove", "activation-play", "folder-swap", "level-expand"})
      for (int n = 1; n <= 40; ++n) {
        const std::string fault = std::string(point) + ":" + std::to_string(n);
        SCOPED_TRACE(std::to_string(round.killed) + " " + fault);
        ASSERT_TRUE(SetLevelInTrle(program, round.before));
        const int killed = RunChild(round.killed, dir.path(), fault);
        kills += killed;
        ClearLeftovers(program);
        ASSERT_FALSE(fs::exists(TemporaryFilesFolder(program)));
        // Activating the killed level again puts all of it in, whatever the kill left.
        ASSERT_TRUE(SetLevelInTrle(program, round.killed));
        ASSERT_EQ(Snapshot(Path("trle")), active[round.killed]);
        ASSERT_TRUE(SetLevelInTrle(program, round.after));
        ASSERT_TRUE(SetLevelInTrle(program, 0));
        ASSERT_EQ(Snapshot(Path("trle")), base);
        ASSERT_EQ(Snapshot(Path("archive")), stores);
        if (!killed) break;  // the operation has fewer points of this kind
      }
  // Most points lie inside the operation; the report of the run names the count.
  EXPECT_GE(kills, 50);
  std::printf("activation killed at %d points\n", kills);
}

}  // namespace
}  // namespace vardolin
