// Start-up and shut-down end to end: the main window loads, runs the whole start-up against a
// stand-in editor folder with the scripted Ui, and unloads.
#include "startup/startup.h"

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "editor_folder_fixture.h"
#include "environment.h"
#include "foundation/program_home.h"
#include "startup/command_line.h"
#include "startup/main_window.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::ScopedEnv;
using testing::ScriptedUi;
using testing::TempDir;
using testing::WriteBytes;

// One run of the program over a home that lasts between runs.
struct ProgramRun {
  ScriptedUi ui;
  testing::RecordingPlatform platform;
  Program program;
  MainWindow window{program};

  ProgramRun(const fs::path& home, const std::string& command_line = {})
      : program(home, ui, platform) {
    program.CommandLine = command_line;
  }
};

struct StartUpTest : ::testing::Test {
  testing::TempDir dir;
  fs::path home = dir / "home";
  fs::path editor = dir / "trle";
  fs::path archive = dir / "archive";

  void SetUp() override {
    ASSERT_TRUE(testing::BuildEditorFolder(editor));
    ASSERT_TRUE(PrepareHome(home));
    // The safe copy of the editor's files stands, as after any earlier start.
    fs::copy(editor, home / "backup_trle", fs::copy_options::recursive);
  }

  fs::path SettingsFile() const { return home / "Vardolin.prf"; }
  void WriteSettings(Preferences p) {
    if (p.EditorFolder.empty()) p.EditorFolder = editor.string();
    WriteBytes(SettingsFile(), SerializePreferences(p));
  }
  Preferences SavedSettings() const { return ParsePreferences(ReadFile(SettingsFile())).prefs; }
};

void ChooseNew(ScriptedUi& ui, const fs::path& folder) {
  ui.OnForm("Dialog_NewArc", [](Form& f) { f.Find<Button>("Pul_New")->Click(); });
  ui.Folder(folder.string());
}

TEST_F(StartUpTest, FirstRunMakesANewArchiveAndTheSecondStartOpensItWithoutQuestions) {
  WriteSettings({});
  fs::remove_all(home / "backup_trle");
  fs::path catalogue;
  {
    ProgramRun run(home);
    run.ui.Answer(msg::kYes, editor.string()).Answer(msg::kNo);  // this editor folder, partly
    ChooseNew(run.ui, archive);
    run.window.Load();
    ASSERT_TRUE(run.window.IsLoaded());
    ASSERT_EQ(run.program.catalogue.levels.size(), 1u);
    catalogue = run.program.prefs.LastArchive;
    EXPECT_TRUE(fs::is_regular_file(catalogue));
    EXPECT_EQ(run.program.catalogue.header.SecondaryDir, archive.string());
    // The base level was built from the editor folder.
    EXPECT_TRUE(run.program.BaseLevelBuilt);
    EXPECT_EQ(ReadFile(home / "LEVEL_0000/play/script.dat"), ReadFile(editor / "script.dat"));
    EXPECT_EQ(ReadFile(home / "LEVEL_0000/files/script.txt"),
              ReadFile(editor / "script/script.txt"));
    EXPECT_EQ(run.program.BackupFolder, (home / "backup_trle").string());
    run.window.Unload();
  }
  EXPECT_EQ(SavedSettings().LastArchive, catalogue.string());
  {
    ProgramRun run(home);
    run.window.Load();
    EXPECT_TRUE(run.ui.Questions().empty());
    EXPECT_EQ(run.program.prefs.LastArchive, catalogue.string());
    EXPECT_EQ(run.program.catalogue.levels.size(), 1u);
    EXPECT_FALSE(run.program.BaseLevelBuilt);  // it stood already
    run.window.Unload();
  }
}

TEST_F(StartUpTest, SettlesTheCheckIntervalAndAMissingJoystickAndWritesThemBack) {
  struct Case {
    std::int32_t tenths;
    bool joystick;
    std::int32_t used_tenths;
    bool enabled;
  };
  const Case cases[] = {{25, false, 10, false}, {5, true, 5, true}, {10, false, 10, false}};
  for (const Case& c : cases) {
    Preferences p;
    p.CheckTenths = c.tenths;
    p.EnableJoystick = true;
    p.Reserved = true;
    WriteSettings(p);
    ProgramRun run(home);
    run.platform.joystick_present = c.joystick;
    run.platform.joystick = {40000, 20000, 0, 0};
    ChooseNew(run.ui, dir / ("arc" + std::to_string(c.tenths)));
    run.window.Load();
    // The stick's rest is taken from a joystick that answers.
    EXPECT_EQ(run.program.JoystickNeutralX, c.joystick ? 40000u : 32767u);
    EXPECT_EQ(run.program.JoystickNeutralY, c.joystick ? 20000u : 32767u);
    EXPECT_EQ(run.program.prefs.CheckTenths, c.used_tenths);
    EXPECT_EQ(run.window.Timer1.Interval(), c.used_tenths * 100);
    EXPECT_EQ(run.program.prefs.EnableJoystick, c.enabled);
    run.window.Unload();
    Preferences saved = SavedSettings();
    EXPECT_EQ(saved.EnableJoystick, c.enabled);
    EXPECT_FALSE(saved.Reserved);
  }
}

// A settings file of the earlier format: the new version offers the editor's restore once.
TEST_F(StartUpTest, AnUpgradeOffersTheRestoreOfTheEditor) {
  Preferences p;
  p.EditorFolder = editor.string();
  p.FullBackupDone = true;
  WriteBytes(SettingsFile(), SerializePreferences(p).substr(0, 1296));
  WriteBytes(editor / "maps/mine.prj", "my map");
  ProgramRun run(home);
  ChooseNew(run.ui, archive);
  run.ui.Answer(msg::kYes, "restore them now").Answer(msg::kOk, "is restored").AllowAnyMessage();
  run.window.Load();
  ASSERT_TRUE(run.window.IsLoaded());
  EXPECT_FALSE(fs::exists(editor / "maps/mine.prj"));
  EXPECT_TRUE(fs::exists(home / "standardfiles.zip"));
  run.window.Unload();
}

TEST(ParseCommandLine, TellsCataloguesFromSetupFoldersAndIgnoresUnquotedWords) {
  testing::ArchiveFixture f;
  struct Case {
    std::string line;
    std::string catalogue;
    std::string setup;
  };
  const Case cases[] = {
      {R"("/home/u/my levels.vdc")", "/home/u/my levels.vdc", ""},
      {R"(  "/a/ONE.VDC" "/b/two.vdc"  )", "/b/two.vdc", ""},
      {R"("/media/cd/trle_setup")", "", "/media/cd/trle_setup"},
      {R"("/media/cd/TRLE_SETUP/" "/x/a.vdc")", "/x/a.vdc", "/media/cd/TRLE_SETUP/"},
      {R"("/media/cd/trle_setup_old")", "", ""},
      {R"("/a/x.vdc" "" "/b/y.vdc")", "/a/x.vdc", ""},  // an empty token ends the walk
  };
  for (const Case& c : cases) {
    CommandLineArgs args = ParseCommandLine(f.program, c.line);
    EXPECT_EQ(args.catalogue, c.catalogue) << c.line;
    EXPECT_EQ(args.editor_setup, c.setup) << c.line;
  }
}

TEST(ProgramHomeTest, FirstStartCopiesResourcesAndLaterStartsKeepTheUsersFiles) {
  TempDir resources, home;
  resources.Write("english.trc", "shipped");
  resources.Write("pictures/splash.jpg", "picture");
  ScopedEnv env("VARDOLIN_RESOURCES", resources.path().c_str());

  fs::path target = home / "nested/home";
  ASSERT_TRUE(PrepareHome(target));
  EXPECT_EQ(ReadFile(target / "english.trc"), "shipped");
  EXPECT_EQ(ReadFile(target / "pictures/splash.jpg"), "picture");

  // A newer program: what it ships replaces what the older one put there, not what the user
  // changed.
  home.Write("nested/home/english.trc", "edited by the user");
  resources.Write("english.trc", "shipped, second version");
  resources.Write("pictures/splash.jpg", "picture, second version");
  resources.Write("italian.trc", "new in this version");
  ASSERT_TRUE(PrepareHome(target));
  EXPECT_EQ(ReadFile(target / "english.trc"), "edited by the user");
  EXPECT_EQ(ReadFile(target / "pictures/splash.jpg"), "picture, second version");
  EXPECT_EQ(ReadFile(target / "italian.trc"), "new in this version");

  // A home an older build made, before it kept a record of what it shipped: its files are
  // refreshed, and what stood there stays beside them.
  fs::remove(target / ".shipped_resources");
  home.Write("nested/home/italian.trc", "from an older build");
  ASSERT_TRUE(PrepareHome(target));
  EXPECT_EQ(ReadFile(target / "italian.trc"), "new in this version");
  EXPECT_EQ(ReadFile(target / "italian.trc.old"), "from an older build");
}

}  // namespace
}  // namespace vardolin
