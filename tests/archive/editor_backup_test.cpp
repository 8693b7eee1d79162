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

TEST(BackupCompleteTest, NeedsTheFolderAndItsThreeFiles) {
  const std::pair<std::vector<const char*>, bool> cases[] = {
      {{}, false},
      {{"tom2pc.exe", "winroomedit.exe"}, false},
      {{"tom2pc.exe", "script.exe"}, false},
      {{"TOM2PC.EXE", "winroomedit.exe", "script.exe"}, true},
  };
  for (const auto& [files, complete] : cases) {
    BackupTest t;
    for (const char* f : files) WriteBytes(t.Backup(f), "x");
    EXPECT_EQ(BackupComplete(t.program), complete) << files.size();
  }
}

TEST(MakeEditorBackupTest, ACompleteBackupIsKeptWithoutAskingUnlessForced) {
  for (bool forced : {false, true}) {
    SCOPED_TRACE(forced);
    BackupTest t;
    for (const char* f : {"tom2pc.exe", "winroomedit.exe", "script.exe"})
      WriteBytes(t.Backup(f), "old");
    if (forced) t.ui.Answer(msg::kYes, kConfirm);
    EXPECT_TRUE(MakeEditorBackup(t.program, forced));
    EXPECT_EQ(t.ui.Questions().size(), forced ? 1u : 0u);
    EXPECT_EQ(ReadFile(t.Backup("tom2pc.exe")), forced ? EditorFileContent("tom2pc.exe") : "old");
  }
}

TEST(MakeEditorBackupTest, FullBackupCopiesTheWholeFolder) {
  BackupTest t;
  t.ui.Answer(msg::kYes, kConfirm).Answer(msg::kYes, kFull);
  EXPECT_TRUE(MakeEditorBackup(t.program, false));
  EXPECT_TRUE(t.program.prefs.FullBackupDone);
  for (const std::string& rel : EditorFolderFiles())
    EXPECT_EQ(ReadFile(t.Backup(rel)), EditorFileContent(rel)) << rel;
  EXPECT_TRUE(BackupComplete(t.program));
  EXPECT_EQ(t.ui.ModelessShown(), std::vector<std::string>{"Dialog_Progress"});
  EXPECT_EQ(ProgressDialog(t.program), nullptr);
}

TEST(MakeEditorBackupTest, AFullCopyLackingAMarkerFileCountsAsPartial) {
  const std::pair<const char*, EditorFolderOptions> cases[] = {
      {"no game", {.with_game = false}},
      {"no title level", {.with_title_level = false}},
  };
  for (const auto& [name, options] : cases) {
    SCOPED_TRACE(name);
    BackupTest t(options);
    t.program.prefs.FullBackupDone = true;
    t.ui.Answer(msg::kYes, kConfirm).Answer(msg::kYes, kFull);
    EXPECT_TRUE(MakeEditorBackup(t.program, false));
    EXPECT_FALSE(t.program.prefs.FullBackupDone);
    // What the partial backup adds stands as well.
    EXPECT_TRUE(fs::is_directory(t.Backup("graphics/wads")));
    EXPECT_TRUE(BackupComplete(t.program));
  }
}

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

TEST(MakeEditorBackupTest, RefusingTheEditorFolderStopsEverything) {
  BackupTest t;
  t.program.prefs.FullBackupDone = true;
  t.ui.Answer(msg::kNo, t.editor.string());
  t.ui.Answer(msg::kOk, "can't go on");
  EXPECT_FALSE(MakeEditorBackup(t.program, false));
  EXPECT_FALSE(fs::exists(t.Backup()));
  EXPECT_TRUE(t.program.prefs.FullBackupDone);
  ASSERT_EQ(t.ui.Questions().size(), 2u);
  EXPECT_EQ(t.ui.Questions()[1].style, msg::kError);
  EXPECT_NE(t.ui.Messages()[1].find("start the program again"), std::string::npos);
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
      {"partial short, go on", false, false, 89 * mb, msg::kYes, true},
      {"full short", false, true, 100 * mb, msg::kNo, false},
      {"full fits", false, true, 241 * mb, 0, true},
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

TEST(MakeEditorBackupTest, ABackupFolderThatCantBeMadeIsTold) {
  BackupTest t({.with_game = false});
  WriteBytes(t.Path("home/backup_trle"), "a file where the folder should be");
  t.ui.Answer(msg::kYes, kConfirm).Answer(msg::kNo, kFull);
  t.ui.Answer(msg::kOk, "backup folder could not be created");
  EXPECT_FALSE(MakeEditorBackup(t.program, false));
}

}  // namespace
}  // namespace vardolin::testing
