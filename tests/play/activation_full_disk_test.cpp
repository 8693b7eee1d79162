// Activation on a disk that fills up: the copy of a level's k-th file fails with ENOSPC (the
// fault hook's full-disk variant). The user must be told, no level's store may lose a file, and
// the next activation, of that level or another, must leave the editor folder exactly as a clean
// one would.
#include <gtest/gtest.h>

#include "activation_fixture.h"
#include "play/activation.h"
#include "play/active_level.h"
#include "play/text_ids.h"

namespace vardolin {
namespace {

using testing::Snapshot;

struct FullDiskTest : ::testing::Test, testing::ActivationFixture {
  FullDiskTest() {
    ui.AllowAnyMessage();
    // Level 2 is kept compressed: its files are expanded into a temporary folder first.
    for (const std::string& name : LevelFiles().at(2)) {
      testing::Pack(Files(2) / name, Files(2) / (name + ".zl"));
      std::filesystem::remove(Files(2) / name);
    }
  }
  ~FullDiskTest() override { unsetenv("VARDOLIN_FAULT_POINT"); }
  // What the editor folder holds with the level in it after a clean activation.
  std::map<std::string, std::string> CleanlyActive(std::int32_t code) {
    EXPECT_TRUE(SetLevelInTrle(program, code));
    auto snapshot = Snapshot(editor);
    EXPECT_TRUE(SetLevelInTrle(program, 0));
    return snapshot;
  }
};

TEST_F(FullDiskTest, ACopyThatFailsPartWayIsToldAndTheNextActivationPutsTheFolderRight) {
  const auto base = Snapshot(editor);
  const auto stores = Snapshot(archive);
  // The message names the file that didn't reach the editor folder.
  const std::string told = " could not be copied into the editor folder as " + editor.string();
  struct Case {
    std::int32_t failing, next;
  };
  int failures = 0;
  for (const Case& c : {Case{1, 2}, Case{2, 1}, Case{1, 0}, Case{2, 0}}) {
    const auto next_active = c.next == 0 ? base : CleanlyActive(c.next);
    const auto failing_active = CleanlyActive(c.failing);
    for (int k = 1;; ++k) {
      SCOPED_TRACE("level " + std::to_string(c.failing) + ", copy " + std::to_string(k));
      ASSERT_LT(k, 20) << "the level has fewer files than that";
      const std::size_t messages = ui.Messages().size();
      const std::string fault = "activation-copy:" + std::to_string(k) + ":enospc";
      setenv("VARDOLIN_FAULT_POINT", fault.c_str(), 1);
      const bool activated = SetLevelInTrle(program, c.failing);
      unsetenv("VARDOLIN_FAULT_POINT");
      if (activated) {
        // Every file was copied before the k-th copy came.
        EXPECT_EQ(ui.Messages().size(), messages);
        ASSERT_TRUE(SetLevelInTrle(program, 0));
        break;
      }
      ++failures;
      ASSERT_EQ(ui.Messages().size(), messages + 1);
      EXPECT_NE(ui.Messages().back().find(told), std::string::npos) << ui.Messages().back();
      EXPECT_EQ(Snapshot(archive), stores);
      // The marker still names the level, so its half copy is taken out with it; asked for
      // again, the level comes in whole.
      EXPECT_EQ(GetActiveLevelCode(program), c.failing);
      ASSERT_TRUE(SetLevelInTrle(program, c.failing));
      EXPECT_EQ(Snapshot(editor), failing_active);
      ASSERT_TRUE(SetLevelInTrle(program, c.next));
      EXPECT_EQ(Snapshot(editor), next_active);
      ASSERT_TRUE(SetLevelInTrle(program, 0));
      ASSERT_EQ(Snapshot(editor), base);
      EXPECT_EQ(Snapshot(archive), stores);
    }
  }
  // Each level fails once per file it brings.
  EXPECT_EQ(failures, 2 * (7 + 5));
}

}  // namespace
}  // namespace vardolin
