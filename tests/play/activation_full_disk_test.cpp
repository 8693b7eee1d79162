// Activation on a disk that fills up: the copy of a level's k-th file fails with ENOSPC (the
// fault hook's full-disk variant). The user must be told, no level's store may lose a file, and
// the next activation must leave the editor folder exactly as a clean one would.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include "store_fixture.h"
#include "editor_folder_fixture.h"
#include "play/activation.h"
#include "play/active_level.h"
#include "play/text_ids.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Snapshot;

struct FullDiskTest : ::testing::Test, testing::StoreFixture {
  fs::path editor = Path("trle");

  FullDiskTest() {
    testing::BuildEditorFolder(editor);
    fs::copy(editor, Path("home/backup_trle"), fs::copy_options::recursive);
    program.prefs.EditorFolder = editor.string();
    program.BackupFolder = Path("home/backup_trle").string();
    program.prefs.FullBackupDone = true;
    ui.AllowAnyMessage();
    // Level 1 is kept plain and overwrites editor files in the root, data and audio.
    Write(1, {{"a.tr4", 5000},
              {"title.tr4", 7000},
              {"load.bmp", 900},
              {"script.dat", 300},
              {"french.dat", 800},
              {"044.wav", 4000},
              {"readme_a.txt", 200}});
    // Level 2 is kept compressed: its files are expanded into a temporary folder first.
    Write(2, {{"b.tr4", 9000}, {"script.dat", 300}, {"english.dat", 800}, {"new.wav", 3000}});
    for (const char* name : {"b.tr4", "script.dat", "english.dat"}) {
      testing::Pack(Files(2) / name, Files(2) / (std::string(name) + ".zl"));
      fs::remove(Files(2) / name);
    }
  }
  ~FullDiskTest() override { unsetenv("VARDOLIN_FAULT_POINT"); }
  void Write(std::int32_t code, const std::map<std::string, std::size_t>& files) {
    unsigned seed = static_cast<unsigned>(code) * 100;
    for (const auto& [name, size] : files)
      testing::WriteBytes(Files(code) / name, testing::LevelBytes(seed++, size));
  }
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
  const std::string told = program.GetText(text::LevelFilesNotReady);
  ASSERT_FALSE(told.empty());
  struct Case {
    std::int32_t failing, next;
  };
  int failures = 0;
  for (const Case& c : {Case{1, 2}, Case{2, 1}, Case{1, 0}, Case{2, 0}}) {
    const auto next_active = c.next == 0 ? base : CleanlyActive(c.next);
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
      EXPECT_EQ(ui.Messages().back(), told);
      EXPECT_EQ(Snapshot(archive), stores);
      // The marker still names the level, so its half copy is taken out with it.
      EXPECT_EQ(GetActiveLevelCode(program), c.failing);
      ASSERT_TRUE(SetLevelInTrle(program, c.next));
      EXPECT_EQ(Snapshot(editor), next_active);
      ASSERT_TRUE(SetLevelInTrle(program, 0));
      ASSERT_EQ(Snapshot(editor), base);
      EXPECT_EQ(Snapshot(archive), stores);
    }
  }
  // Each level fails once per file it brings.
  EXPECT_EQ(failures, 2 * (7 + 4));
}

}  // namespace
}  // namespace vardolin
