#include <gtest/gtest.h>

#include "archive/editor_backup.h"
#include "editor_test_fixture.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/services/paths.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

constexpr const char* kConfirm = "Is this the right folder";
constexpr const char* kFull = "full backup";
constexpr const char* kRoom = "not be enough room";

struct BackupTest : EditorTest {
  using EditorTest::EditorTest;
  fs::path Backup(std::string_view rel = {}) const { return Path("home/backup_trle") / rel; }
};

TEST(MakeEditorBackupTest, PartialBackupSavesTheEditorsOwnFiles) {
  BackupTest t;
  t.program.prefs.FullBackupDone = true;
  t.ui.Answer(msg::kYes, kConfirm).Answer(msg::kNo, kFull);
  EXPECT_TRUE(MakeEditorBackup(t.program, false));
  EXPECT_FALSE(t.program.prefs.FullBackupDone);
  for (const char* rel : {"tomb4.exe", "script.dat", "data/title.tr4", "script/english.txt"})
    EXPECT_EQ(ReadFile(t.Backup(rel)), EditorFileContent(rel)) << rel;
  EXPECT_TRUE(fs::is_directory(t.Backup("graphics/wads")));
  // The heavy parts stay out of a partial copy.
  for (const char* rel : {"audio/044.wav", "graphics/wads/tut1.wad", "maps/tut1.prj"})
    EXPECT_FALSE(fs::exists(t.Backup(rel))) << rel;
  EXPECT_TRUE(BackupComplete(t.program));
  EXPECT_EQ(ProgressDialog(t.program), nullptr);
}

struct RoomCase {
  const char* name;
  bool forced;
  bool full;  // the answer to the full-or-partial question
  double free_bytes;
  int room_answer;  // 0: the question mustn't come
  bool result;
};

TEST(MakeEditorBackupTest, TooLittleRoomAsksWhetherToGoOn) {
  const double mb = 1024 * 1024;
  const RoomCase cases[] = {
      {"partial fits", false, false, 91 * mb, 0, true},
      {"partial short, stop", false, false, 89 * mb, msg::kNo, false},
      {"full short", false, true, 100 * mb, msg::kNo, false},
      {"forced needs nothing", true, true, 0, 0, true},
  };
  for (const RoomCase& c : cases) {
    SCOPED_TRACE(c.name);
    BackupTest t;
    t.platform.free_bytes = c.free_bytes;
    t.ui.Answer(msg::kYes, kConfirm);
    if (!c.forced) t.ui.Answer(c.full ? msg::kYes : msg::kNo, kFull);
    if (c.room_answer) t.ui.Answer(c.room_answer, kRoom);
    EXPECT_EQ(MakeEditorBackup(t.program, c.forced), c.result);
    EXPECT_EQ(fs::exists(t.Backup()), c.result);
    if (c.room_answer) {
      std::string asked = t.ui.Messages().back();
      EXPECT_NE(asked.find(t.dir.path().string() + ": "), std::string::npos) << asked;
      EXPECT_NE(asked.find(FormatFileSize(c.free_bytes) + " free"), std::string::npos) << asked;
    }
    if (c.result) {
      EXPECT_EQ(t.program.prefs.FullBackupDone, c.full);
    }
  }
}

}  // namespace
}  // namespace vardolin::testing
