// Playing through the main window with the real platform: the chosen level goes into the editor
// folder, the stand-in game runs from there, the watcher sees its end and the next level takes
// its place.
#include <gtest/gtest.h>

#include "archive/standard_files.h"
#include "archive/text_ids.h"
#include "foundation/services/log.h"
#include "play/activation.h"
#include "play/active_level.h"
#include "play/game_launch.h"
#include "play/game_watcher.h"
#include "play/play_level.h"
#include "play/text_ids.h"
#include "play_fixture.h"
#include "savegames/savegame_store.h"
#include "store_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::PlayFixture;
using testing::ReadFile;
using testing::WriteBytes;

const std::vector<std::string> kNames = {"Base level", "Beta", "Gamma", "Delta"};

TEST(Play, AChosenLevelIsPlayedWatchedToItsEndAndReplacedByTheNext) {
  PlayFixture f(kNames);
  f.program.prefs.CheckTenths = 3;
  std::vector<std::string> steps;
  f.main->Watcher.joystick = [&] { steps.push_back("joystick"); };
  f.main->Watcher.f9_archive = [&] { steps.push_back("f9"); };
  f.main->Watcher.f11_restore = [&] { steps.push_back("f11"); };
  f.main->Watcher.full_slots = [&] { steps.push_back("full"); };
  f.main->Watcher.screenshot = [&] { steps.push_back("screenshot"); };
  f.main->Watcher.collect_media_shots = [&] { steps.push_back("media"); };

  for (int i = 0; i < 5; ++i)
    testing::WritePicture(GetLevelFolder(f.program, 1, false) / "screenshots" /
                          ("s" + std::to_string(i) + ".jpg"));
  f.Choose("Beta");
  f.main->Pul_Play.Click();
  ASSERT_TRUE(f.program.GameRunning);
  EXPECT_FALSE(f.program.MediaPlay);
  EXPECT_EQ(f.main->Timer1.Interval(), 300);
  EXPECT_EQ(GetActiveLevelCode(f.program), 1);
  EXPECT_EQ(ReadFile(f.editor / "data/Beta.tr4"), "level Beta");
  EXPECT_EQ(f.main->Combo_Livelli.SelectedText(), "Beta (*)");
  EXPECT_FALSE(f.main->Pul_Play.Enabled()) << "a double click starts one game";
  // The window says that the game runs, and its close box asks before it stops watching.
  const std::string running = f.program.GetText(text::GameRunningTitleMark);
  EXPECT_TRUE(f.main->Caption().ends_with(running)) << f.main->Caption();
  f.ui.Answer(msg::kNo, "still running");
  EXPECT_FALSE(f.main->QueryUnload());
  const std::string log = ReadFile(LogPath(f.program));
  EXPECT_EQ(log, "SetLevelInTrle()\nCommon level (non media files)\nCreate process for tom4: " +
                     (f.editor / "tomb4.exe").string() + "\n");

  // The game runs in the editor folder and saves there; the watcher runs its steps meanwhile.
  ASSERT_TRUE(testing::WaitFor([&] { return fs::exists(f.editor / "standin_started.txt"); }));
  f.main->Timer1.Tick();
  EXPECT_EQ(steps, (std::vector<std::string>{"joystick", "f9", "f11", "full", "screenshot"}));
  f.Tell("save 2 Beta\nexit 0\n");
  ASSERT_TRUE(f.TickUntilEnded());
  EXPECT_FALSE(f.program.GameProcess.Valid());
  EXPECT_EQ(f.main->Shots.current, 4) << "the panel shows the last pair";
  EXPECT_FALSE(f.main->Caption().ends_with(running));
  EXPECT_TRUE(f.main->Pul_Play.Enabled());
  EXPECT_TRUE(f.main->QueryUnload());
  // The panels were refreshed: the summary counts the new savegame in the editor folder.
  EXPECT_TRUE(f.main->Label_InfoDir.Caption().ends_with("0 + 1"))
      << f.main->Label_InfoDir.Caption();
  const std::size_t steps_at_end = steps.size();
  f.main->Timer1.Tick();
  EXPECT_EQ(steps.size(), steps_at_end) << "an ended game is no longer watched";

  // The level stays until the next one comes; that one takes Beta's savegame away with Beta.
  EXPECT_EQ(GetActiveLevelCode(f.program), 1);
  f.Choose("Gamma");
  f.main->Pul_Play.Click();
  ASSERT_TRUE(f.program.GameRunning);
  EXPECT_EQ(GetActiveLevelCode(f.program), 2);
  EXPECT_FALSE(fs::exists(f.editor / "data/Beta.tr4"));
  EXPECT_FALSE(fs::exists(f.editor / "savegame.2"));
  EXPECT_TRUE(fs::exists(GetLevelFolder(f.program, 1, false) / "play/savegame.2"));
  const std::string new_log = ReadFile(LogPath(f.program));
  EXPECT_EQ(new_log.rfind("SetLevelInTrle()"), 0u) << "the log starts anew";
  ASSERT_TRUE(testing::WaitFor([&] { return fs::exists(f.editor / "standin_started.txt"); }));
  f.EndGame();
  ASSERT_TRUE(f.TickUntilEnded());
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "media"), 0);
}

// A note belongs to the savegame it was written for: a save the game writes over the slot starts
// without it, and the note is kept in the level's folder.
TEST(Play, ASaveOverASlotStartsWithoutTheNoteOfTheSaveItReplaced) {
  PlayFixture f(kNames);
  f.Choose("Beta");
  f.main->Pul_Play.Click();
  const fs::path save = f.editor / "savegame.1";
  const fs::path note = SavegameNoteFile(f.program, save);
  for (const char* title : {"First", "Second"}) {
    f.Tell(std::string("save 1 ") + title + "\n");
    // The stand-in notes a command once its savegame is written and closed.
    ASSERT_TRUE(testing::WaitFor(
        [&] { return ReadFile(f.editor / "standin_done.txt").find(title) != std::string::npos; }));
    f.main->Timer1.Tick();
    EXPECT_FALSE(fs::exists(note)) << title;
    WriteBytes(note, std::string("Note of ") + title);
    f.main->Timer1.Tick();
    EXPECT_TRUE(fs::exists(note)) << "a note written while the game runs stays";
  }
  EXPECT_EQ(ReadFile(GetLevelFolder(f.program, 1, false) / "replaced_notes/savegame_note_1_1.txt"),
            "Note of First");
  f.EndGame();
  ASSERT_TRUE(f.TickUntilEnded());
}

TEST(Play, FailedLaunchesAreToldAndLeaveNoGameWatched) {
  struct Case {
    std::string name;
    std::string choose;
    std::vector<std::pair<int, std::string>> answers;
    std::int32_t active_after;
    std::string gone = {};  // removed from the archive before the level is chosen
  };
  const std::vector<Case> cases = {
      {"game won't start", "Beta", {{msg::kOk, "The game couldn't be started"}}, 1},
      // Found out before the level moves, naming the folder the player is taken from.
      {"media player missing", "Delta", {{msg::kOk, "play_the_game.exe is missing in /"}}, 0},
      {"files folder missing",
       "Beta",
       {{msg::kNo, "LEVEL_0001/files\" is missing"}, {msg::kOk, "couldn't be put"}},
       0,
       "LEVEL_0001/files"},
      {"level folder missing",
       "Beta",
       {{msg::kOk, "/LEVEL_0001. Its files"},
        {msg::kNo, "LEVEL_0001\" is missing"},
        {msg::kOk, "couldn't be put"}},
       0,
       "LEVEL_0001"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    PlayFixture f(kNames, {{}, {}, {}, {"intro.mcf"}});
    // A program file that may not be run, in the folder and in the backup it comes back from.
    for (const fs::path& folder : {f.editor, f.backup})
      fs::permissions(folder / "tomb4.exe",
                      fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec,
                      fs::perm_options::remove);
    if (!c.gone.empty()) fs::remove_all(f.archive / c.gone);
    for (const auto& [answer, text] : c.answers) f.ui.Answer(answer, text);
    f.Choose(c.choose);
    f.main->Pul_Play.Click();
    EXPECT_FALSE(f.program.GameRunning);
    EXPECT_FALSE(f.program.MediaPlay);
    EXPECT_EQ(GetActiveLevelCode(f.program), c.active_after);
    EXPECT_TRUE(c.name != "game won't start" ||
                ReadFile(LogPath(f.program)).ends_with("Error code: 13\n"));
    EXPECT_TRUE(c.name != "media player missing" ||
                f.ui.Messages().back().find(f.program.Home().string()) != std::string::npos);
    f.main->Timer1.Tick();
    EXPECT_FALSE(f.program.GameRunning);
  }
}

TEST(Play, NothingMovesInTheEditorFolderWhileTheGameRuns) {
  PlayFixture f(kNames);
  ASSERT_TRUE(SetLevelInTrle(f.program, 1));
  f.program.GameRunning = true;
  const auto before = testing::Snapshot(f.editor);
  const std::string refused = f.program.GetText(text::EditorFolderInUse);
  f.Choose("Gamma");
  f.ui.Answer(msg::kOk, refused).Answer(msg::kOk, "couldn't be put");
  f.main->Pul_Play.Click();
  f.ui.Answer(msg::kOk, refused);
  EXPECT_FALSE(ResetToBaseLevel(f.program));
  f.Choose("Beta (*)");
  f.ui.Answer(msg::kYes, "\"Beta\" ?").Answer(msg::kOk, refused);
  f.main->mnu_RemoveLevel.Click();
  EXPECT_EQ(f.program.catalogue.levels.size(), kNames.size()) << "the level stays";
  EXPECT_EQ(testing::Snapshot(f.editor), before);
  EXPECT_TRUE(f.ui.Done());
}

TEST(Play, AMediaLevelIsPlayedThroughPlayTheGameAndItsEndCollectsThePictures) {
  PlayFixture f(kNames, {{}, {}, {}, {"intro.mcf"}});
  PlayFixture::InstallGame(f.program.Home() / "play_the_game.exe");
  int collected = 0;
  f.main->Watcher.collect_media_shots = [&] { ++collected; };
  f.main->Watcher.joystick = [] { ADD_FAILURE() << "a media game runs no common steps"; };

  f.Choose("Delta");
  f.main->Pul_Play.Click();
  ASSERT_TRUE(f.program.GameRunning);
  EXPECT_TRUE(f.program.MediaPlay);
  EXPECT_EQ(f.main->Timer1.Interval(), kMediaTickMs);
  EXPECT_FALSE(f.program.GameProcess.Valid());
  const std::string log = ReadFile(LogPath(f.program));
  EXPECT_NE(log.find("Level use media files\nVerify for presence of play_the_game.exe at: " +
                     (f.editor / "play_the_game.exe").string() +
                     "\nLaunch play_the_game.exe with command line: tomb4.exe\n"),
            std::string::npos)
      << log;

  ASSERT_TRUE(testing::WaitFor([&] { return fs::exists(f.editor / "standin_started.txt"); }));
  f.main->Timer1.Tick();
  EXPECT_EQ(collected, 0);
  f.EndGame();
  ASSERT_TRUE(f.TickUntilEnded());
  EXPECT_EQ(collected, 1);
}

TEST(Play, RemovingTheActiveLevelTakesItOutOfTheEditorFolderFirst) {
  PlayFixture f(kNames, {{}, {"load.bmp"}});
  const auto base = testing::Snapshot(f.editor);
  ASSERT_TRUE(SetLevelInTrle(f.program, 1));
  WriteBytes(f.editor / "savegame.4", "Beta's slot 4");
  RefreshLevelList(*f.main);
  f.Choose("Beta (*)");
  ASSERT_TRUE(EnsureStandardFilesPackage(f.program));
  f.ui.Answer(msg::kYes, "the level \"Beta\" ?");
  f.ui.Answer(msg::kOk, "is restored");
  f.ui.Answer(msg::kNo, "delete its files");
  f.main->mnu_RemoveLevel.Click();
  EXPECT_EQ(GetActiveLevelCode(f.program), 0);
  EXPECT_FALSE(fs::exists(ActiveLevelFilePath(f.program)));
  EXPECT_EQ(f.program.catalogue.levels.size(), 3u);
  // The editor's own files are back; the level's savegame went to its play folder.
  auto after = testing::Snapshot(f.editor);
  EXPECT_EQ(after["load.bmp"], base.at("load.bmp"));
  EXPECT_EQ(after.count("data/Beta.tr4"), 0u);
  EXPECT_EQ(ReadFile(GetLevelFolder(f.program, 1, false) / "play/savegame.4"), "Beta's slot 4");
}

TEST(Play, RemovingTheActiveLevelIsRefusedWhileAFileOfItCantBeTakenOut) {
  PlayFixture f(kNames);
  ASSERT_TRUE(SetLevelInTrle(f.program, 1));
  // A folder where the level's file stood can't be deleted as a file.
  fs::remove(f.editor / "data/Beta.tr4");
  WriteBytes(f.editor / "data/Beta.tr4/held", "x");
  RefreshLevelList(*f.main);
  f.Choose("Beta (*)");
  f.ui.Answer(msg::kYes, "the level \"Beta\" ?");
  f.ui.Answer(msg::kOk, "data/Beta.tr4");
  f.main->mnu_RemoveLevel.Click();
  EXPECT_EQ(f.program.catalogue.levels.size(), kNames.size()) << "the level stays";
  EXPECT_EQ(GetActiveLevelCode(f.program), 1);
  EXPECT_TRUE(f.ui.Done());
}

}  // namespace
}  // namespace vardolin
