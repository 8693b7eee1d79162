// Level activation on real folders: a stand-in editor folder with its backup, and an archive
// whose levels are put in and taken out. The editor folder must come back to what it was and no
// level's store may change, whatever the marker says.
#include "play/activation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

#include "archive/level_files.h"
#include "editor_folder_fixture.h"
#include "foundation/services/paths.h"
#include "play/active_level.h"
#include "play/active_level_file.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::Names;
using testing::ReadFile;
using testing::Snapshot;
using testing::WriteBytes;

struct ActivationTest : ::testing::Test, testing::StoreFixture {
  fs::path editor = Path("trle");
  fs::path backup = Path("home/backup_trle");

  ActivationTest() {
    testing::BuildEditorFolder(editor);
    fs::copy(editor, backup, fs::copy_options::recursive);
    program.prefs.EditorFolder = editor.string();
    program.BackupFolder = backup.string();
    program.prefs.FullBackupDone = true;
    // The base level's own savegame: it leaves with the base level and comes back with it.
    WriteBytes(editor / "savegame.3", "base slot 3");
    // Level 1 overwrites editor files and brings its own language file.
    WriteLevel(1, {{"a.tr4", "level a"},
                   {"title.tr4", "a's title"},
                   {"load.bmp", "a's picture"},
                   {"script.dat", "a's script"},
                   {"french.dat", "a's language"},
                   {"044.wav", "a's sound"},
                   {"readme_a.txt", "a's notes"}});
    // Level 2 replaces the editor's language file by name.
    WriteLevel(2, {{"b.tr4", "level b"},
                   {"script.dat", "b's script"},
                   {"english.dat", "b's language"},
                   {"new.wav", "b's sound"}});
  }
  void WriteLevel(std::int32_t code, const std::map<std::string, std::string>& files) {
    for (const auto& [name, bytes] : files) WriteBytes(Files(code) / name, bytes);
  }
  // While a level stands in the folder, the base level's savegame waits in its play folder.
  void BaseSavegameAside() {
    const fs::path play = GetLevelFolder(program, 0, false) / "play";
    fs::create_directories(play);
    fs::rename(editor / "savegame.3", play / "savegame.3");
  }
  std::string Marker() { return ReadFile(ActiveLevelFilePath(program)); }
  void WriteMarker(const std::string& text) { WriteBytes(ActiveLevelFilePath(program), text); }
};

TEST_F(ActivationTest, LevelsComeAndGoAndTheEditorFolderComesBackWhole) {
  const auto base = Snapshot(editor);
  const auto store1 = Snapshot(Files(1));
  const auto store2 = Snapshot(Files(2));

  ASSERT_TRUE(SetLevelInTrle(program, 1));
  EXPECT_EQ(GetActiveLevelCode(program), 1);
  EXPECT_EQ(ReadFile(editor / "data/a.tr4"), "level a");
  EXPECT_EQ(ReadFile(editor / "data/title.tr4"), "a's title");
  EXPECT_EQ(ReadFile(editor / "audio/044.wav"), "a's sound");
  EXPECT_EQ(ReadFile(editor / "load.bmp"), "a's picture");
  EXPECT_FALSE(fs::exists(editor / "english.dat"));  // the level's french.dat stands for it
  EXPECT_FALSE(fs::exists(editor / "savegame.3"));   // the base level's, kept aside
  const std::string marker = Marker();
  const auto replaced = SplitMarkerList(ReadMarkerField(marker, "Replaced files:"));
  for (const char* entry :
       {"\\data\\title.tr4", "\\load.bmp", "\\script.dat", "\\audio\\044.wav", "\\english.dat"})
    EXPECT_NE(std::find(replaced.begin(), replaced.end(), entry), replaced.end()) << entry;
  EXPECT_EQ(SplitMarkerList(ReadMarkerField(marker, "Level files:")).size(), 7u);

  // The game saved while level 1 was in: the savegame goes with level 1.
  WriteBytes(editor / "savegame.0", "a's slot 0");
  ASSERT_TRUE(SetLevelInTrle(program, 2));
  EXPECT_EQ(GetActiveLevelCode(program), 2);
  EXPECT_EQ(ReadFile(GetLevelFolder(program, 1, false) / "play/savegame.0"), "a's slot 0");
  EXPECT_FALSE(fs::exists(editor / "data/a.tr4"));
  EXPECT_FALSE(fs::exists(editor / "french.dat"));
  EXPECT_EQ(ReadFile(editor / "data/title.tr4"), testing::EditorFileContent("data/title.tr4"));
  EXPECT_EQ(ReadFile(editor / "english.dat"), "b's language");

  ASSERT_TRUE(SetLevelInTrle(program, 0));
  EXPECT_EQ(GetActiveLevelCode(program), 0);
  EXPECT_FALSE(fs::exists(ActiveLevelFilePath(program)));
  EXPECT_EQ(Snapshot(editor), base);
  EXPECT_EQ(Snapshot(Files(1)), store1);
  EXPECT_EQ(Snapshot(Files(2)), store2);

  // Level 1 again finds its savegame.
  ASSERT_TRUE(SetLevelInTrle(program, 1));
  EXPECT_EQ(ReadFile(editor / "savegame.0"), "a's slot 0");
  ASSERT_TRUE(ResetToBaseLevel(program));
  EXPECT_EQ(Snapshot(editor), base);
}

TEST_F(ActivationTest, WithoutAFullBackupTheLevelsAudioStays) {
  program.prefs.FullBackupDone = false;
  fs::remove_all(backup / "audio");  // a partial backup keeps none of the editor's sounds
  ASSERT_TRUE(SetLevelInTrle(program, 1));
  ASSERT_TRUE(SetLevelInTrle(program, 0));
  EXPECT_EQ(ReadFile(editor / "audio/044.wav"), "a's sound");
  EXPECT_FALSE(fs::exists(editor / "data/a.tr4"));
}

TEST_F(ActivationTest, BrokenMarkersAreToldAndLeaveTheBaseLevel) {
  struct Case {
    std::string marker;
    std::string message;  // empty: no message
  };
  const std::vector<Case> cases = {
      {"", ""},
      {"garbage without any key", "names no level"},
      {"Level code:#\r\nLevel files:\\data\\title.tr4#", "names no level"},
      {"Level code:12x#", "names no level"},
  };
  const auto base = Snapshot(editor);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.marker);
    BaseSavegameAside();
    WriteMarker(c.marker);
    if (!c.message.empty()) ui.Answer(msg::kOk, c.message);
    EXPECT_TRUE(SetLevelInTrle(program, 0));
    EXPECT_FALSE(fs::exists(ActiveLevelFilePath(program)));
    EXPECT_EQ(Snapshot(editor), base);
  }
}

TEST_F(ActivationTest, HostileMarkerNamesNeverReachOutOfTheEditorFolder) {
  const fs::path victim = Path("victim.txt");
  WriteBytes(victim, "keep me");
  WriteBytes(backup.parent_path() / "outside_backup.txt", "not for the editor");
  const std::vector<std::string> names = {
      "\\..\\victim.txt", "..\\victim.txt",     "\\data\\..\\..\\victim.txt", victim.string(),
      "C:\\victim.txt",   "\\..\\trle_sibling", "\\..\\outside_backup.txt"};
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    WriteMarker("Level code:0001#\r\nReplaced files:" + name + "#\r\nLevel files:" + name + "#");
    ASSERT_TRUE(SetLevelInTrle(program, 2));
    EXPECT_EQ(ReadFile(victim), "keep me");
    EXPECT_FALSE(fs::exists(Path("outside_backup.txt")));
    EXPECT_FALSE(fs::exists(Path("trle_sibling")));
    ASSERT_TRUE(ResetToBaseLevel(program));
  }
}

TEST_F(ActivationTest, AnIncompleteLevelAsksAndTheRepairIsNotOffered) {
  fs::remove(Files(2) / "script.dat");
  const auto base = Snapshot(editor);
  ui.Answer(msg::kYes, "incomplete").Answer(msg::kOk, "isn't available");
  EXPECT_FALSE(SetLevelInTrle(program, 2));
  ui.Answer(msg::kNo, "incomplete");
  EXPECT_FALSE(SetLevelInTrle(program, 2));
  EXPECT_FALSE(fs::exists(ActiveLevelFilePath(program)));
  ASSERT_TRUE(ResetToBaseLevel(program));
  EXPECT_EQ(Snapshot(editor), base);
}

TEST_F(ActivationTest, SavegamesBeyondTheGamesSlotsArePruned) {
  const std::vector<std::pair<std::string, bool>> cases = {{"savegame.14", true},
                                                           {"savegame.15", false},
                                                           {"savegame.abc", false},
                                                           {"savegame.-1", false}};
  for (const auto& [name, stays] : cases) WriteBytes(editor / name, "x");
  PruneSavegames(program);
  for (const auto& [name, stays] : cases) EXPECT_EQ(fs::exists(editor / name), stays) << name;
}

TEST_F(ActivationTest, AMissingScriptOrLanguageFileComesFromTheBackup) {
  fs::remove(editor / "english.dat");
  fs::remove(editor / "script.dat");
  FixScriptFiles(program);
  EXPECT_EQ(ReadFile(editor / "english.dat"), testing::EditorFileContent("english.dat"));
  EXPECT_EQ(ReadFile(editor / "script.dat"), testing::EditorFileContent("script.dat"));
}

TEST_F(ActivationTest, FilesNamedInCapitalsLeaveTheEditorsNamesAsTheyWere) {
  const auto base = Snapshot(editor);
  WriteLevel(3, {{"c.tr4", "level c"}, {"SCRIPT.DAT", "c's script"}, {"ENGLISH.DAT", "c's text"}});
  program.catalogue.levels[3].CdNumber = 0;
  ASSERT_TRUE(SetLevelInTrle(program, 3));
  EXPECT_EQ(ReadFile(editor / "script.dat"), "c's script");
  EXPECT_EQ(ReadFile(editor / "english.dat"), "c's text");
  ASSERT_TRUE(ResetToBaseLevel(program));
  EXPECT_EQ(Names(Snapshot(editor)), Names(base));
}

TEST_F(ActivationTest, AStoreFolderComesWithTheLevelAndGoesWithIt) {
  WriteBytes(Files(2) / "store" / "track.mcf", "stored media");
  const auto store = Snapshot(Files(2));
  ASSERT_TRUE(SetLevelInTrle(program, 2));
  EXPECT_EQ(ReadFile(editor / "store/track.mcf"), "stored media");
  ASSERT_TRUE(ResetToBaseLevel(program));
  EXPECT_FALSE(fs::exists(editor / "store"));
  EXPECT_EQ(Snapshot(Files(2)), store);
}

TEST_F(ActivationTest, ALevelWithOnlyItsScriptKeepsTheEditorsLanguageFile) {
  WriteLevel(3, {{"script.dat", "c's script"}});
  fs::create_directories(GetLevelFolder(program, 3, false));
  program.catalogue.levels[3].CdNumber = 0;
  ASSERT_TRUE(SetLevelInTrle(program, 3));
  EXPECT_EQ(ReadFile(editor / "script.dat"), "c's script");
  EXPECT_EQ(ReadFile(editor / "english.dat"), testing::EditorFileContent("english.dat"));
}

TEST_F(ActivationTest, APackedLevelIsExpandedOnTheWayAndItsStoreStaysPacked) {
  testing::Pack(Files(1) / "a.tr4", Files(1) / "a.tr4.zl");
  fs::remove(Files(1) / "a.tr4");
  const auto store = Snapshot(Files(1));
  const auto base = Snapshot(editor);
  ASSERT_TRUE(SetLevelInTrle(program, 1));
  EXPECT_EQ(ReadFile(editor / "data/a.tr4"), "level a");
  EXPECT_FALSE(fs::exists(editor / "a.tr4.zl"));
  EXPECT_FALSE(fs::exists(TemporaryFilesFolder(program)));
  ASSERT_TRUE(ResetToBaseLevel(program));
  EXPECT_EQ(Snapshot(editor), base);
  EXPECT_EQ(Snapshot(Files(1)), store);
}

}  // namespace
}  // namespace vardolin
