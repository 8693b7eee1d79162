// Level activation on real folders: a stand-in editor folder with its backup, and an archive
// whose levels are put in and taken out. The editor folder must come back to what it was and no
// level's store may change, whatever the marker says.
#include "play/activation.h"

#include <gtest/gtest.h>

#include "archive/level_files.h"
#include "editor_folder_fixture.h"
#include "foundation/services/paths.h"
#include "play/active_level.h"
#include "play/active_level_file.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
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
  const auto base = Snapshot(editor);
  // An empty marker is told nothing; every other one that names no level is.
  for (const std::string marker :
       {"", "garbage without any key", "Level code:#\r\nLevel files:\\data\\title.tr4#",
        "Level code:12x#"}) {
    SCOPED_TRACE(marker);
    BaseSavegameAside();
    WriteMarker(marker);
    if (!marker.empty()) ui.Answer(msg::kOk, "names no level");
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

TEST_F(ActivationTest, HousekeepingPrunesSlotsBeyondTheGamesAndRestoresScriptFiles) {
  const std::vector<std::pair<std::string, bool>> cases = {{"savegame.14", true},
                                                           {"savegame.15", false},
                                                           {"savegame.abc", false},
                                                           {"savegame.-1", false}};
  for (const auto& [name, stays] : cases) WriteBytes(editor / name, "x");
  PruneSavegames(program);
  for (const auto& [name, stays] : cases) EXPECT_EQ(fs::exists(editor / name), stays) << name;
  fs::remove(editor / "english.dat");
  fs::remove(editor / "script.dat");
  FixScriptFiles(program);
  for (const char* name : {"english.dat", "script.dat"})
    EXPECT_EQ(ReadFile(editor / name), testing::EditorFileContent(name)) << name;
}

// Whatever shape a level's store has, it comes in as the game wants it and leaves the editor
// folder, and its store, as they were.
TEST_F(ActivationTest, EveryShapeOfLevelLeavesTheEditorFolderAsItWas) {
  struct Case {
    const char* what;
    std::map<std::string, std::string> files;
    bool packed;  // c.tr4 stored as .zl
    std::map<std::string, std::string> in_editor;
  };
  const Case cases[] = {
      {"names in capitals",
       {{"c.tr4", "level c"}, {"SCRIPT.DAT", "c's script"}, {"ENGLISH.DAT", "c's text"}},
       false,
       {{"script.dat", "c's script"}, {"english.dat", "c's text"}}},
      {"a store folder",
       {{"c.tr4", "level c"}, {"script.dat", "c's script"}, {"store/track.mcf", "stored media"}},
       false,
       {{"store/track.mcf", "stored media"}}},
      {"only its script",
       {{"script.dat", "c's script"}},
       false,
       {{"script.dat", "c's script"}, {"english.dat", testing::EditorFileContent("english.dat")}}},
      {"packed",
       {{"c.tr4", "level c"}, {"script.dat", "c's script"}},
       true,
       {{"data/c.tr4", "level c"}}},
  };
  program.catalogue.levels[3].CdNumber = 0;
  const auto base = Snapshot(editor);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    fs::remove_all(Files(3));
    WriteLevel(3, c.files);
    if (c.packed) testing::Pack(Files(3) / "c.tr4", Files(3) / "c.tr4.zl");
    if (c.packed) fs::remove(Files(3) / "c.tr4");
    const auto store = Snapshot(Files(3));
    ASSERT_TRUE(SetLevelInTrle(program, 3));
    for (const auto& [rel, bytes] : c.in_editor) EXPECT_EQ(ReadFile(editor / rel), bytes) << rel;
    for (const auto& [rel, bytes] : Snapshot(editor)) EXPECT_FALSE(rel.ends_with(".zl")) << rel;
    EXPECT_FALSE(fs::exists(TemporaryFilesFolder(program)));
    ASSERT_TRUE(ResetToBaseLevel(program));
    EXPECT_EQ(Snapshot(editor), base);
    EXPECT_EQ(Snapshot(Files(3)), store);
  }
}

}  // namespace
}  // namespace vardolin
