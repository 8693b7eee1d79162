// Activation killed at chosen points: a child process (this test program run again) is killed
// by SIGKILL in the middle of the copy or the removal, and the next activations must still bring
// the editor folder back to its base state without touching any level's store.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "activation_fixture.h"
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
  testing::ScriptedUi ui;
  ui.AllowAnyMessage();
  testing::RecordingPlatform platform;
  Program program(job->root / "home", ui, platform);
  program.texts.EnglishTexts = testing::ReadEnglishForTests();
  testing::ConfigureActivation(program, job->root);
  SetLevelInTrle(program, std::stoi(job->what));
}

// 1 when the fault point killed the child, 0 when it finished.
int RunChild(std::int32_t code, const fs::path& root, const std::string& point) {
  return testing::RunFaultChild("ActivationCrashChild.Activate", kChildVariable,
                                std::to_string(code) + "|" + root.string(), point);
}

struct ActivationCrashTest : ::testing::Test, testing::ActivationFixture {};

TEST_F(ActivationCrashTest, KilledActivationsLeaveNothingBehind) {
  const auto base = Snapshot(Path("trle"));
  const auto stores = Snapshot(Path("archive"));
  int kills = 0;
  struct Round {
    std::int32_t before, killed, after;
  };
  for (const Round& round : {Round{1, 2, 1}, Round{0, 1, 2}, Round{2, 0, 1}})
    for (const char* point : {"activation-copy", "activation-remove"})
      for (int n = 1; n <= 40; ++n) {
        const std::string fault = std::string(point) + ":" + std::to_string(n);
        SCOPED_TRACE(std::to_string(round.killed) + " " + fault);
        ASSERT_TRUE(SetLevelInTrle(program, round.before));
        const int killed = RunChild(round.killed, dir.path(), fault);
        kills += killed;
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
