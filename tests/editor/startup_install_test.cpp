#include <gtest/gtest.h>

#include "editor_package.h"
#include "editor_test_fixture.h"
#include "foundation/program_home.h"
#include "startup/main_window.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

// A setup folder named on the command line is installed before the editor is looked for; a
// failed install ends the program.
TEST(StartUpInstallTest, TheEditorSetupFolderOfTheCommandLineIsInstalledFirst) {
  for (bool whole : {true, false}) {
    SCOPED_TRACE(whole);
    TempDir dir;
    ScopedWinePrefix prefix(dir / "wine");
    ScopedEnv data("XDG_DATA_HOME", (dir / "xdg").string());
    ScopedEnv config("XDG_CONFIG_HOME", (dir / "config").string());
    // Start-up puts the program's shortcut on the desktop: the test's own, not the user's.
    ScopedEnv user_home("HOME", (dir / "user").string());
    StageEditorPackage(dir / "cd");
    fs::rename(dir / "cd/trle", dir / "cd/trle_setup");
    if (!whole) fs::remove(dir / "cd/trle_setup/winroomedit.exe");
    ASSERT_TRUE(PrepareHome(dir / "home"));
    ScriptedUi ui;
    RecordingPlatform platform;
    Program program(dir / "home", ui, platform);
    program.CommandLine = "\"" + (dir / "cd/trle_setup").string() + "\"";
    MainWindow window(program);
    const fs::path target = dir / "wine/drive_c/Program Files/Core Design/trle";
    if (whole) {
      ui.Answer(msg::kOk, "has been installed")
          .Answer(msg::kYes, target.string())  // the backup's folder is this one
          .Answer(msg::kNo)                    // a partial backup
          .OnForm("Dialog_NewArc", [](Form& f) { f.Find<Button>("Pul_New")->Click(); })
          .Folder((dir / "archive").string());
    } else {
      ui.Answer(msg::kOk, "winroomedit.exe)").Answer(msg::kOk, "could not be installed");
    }
    window.Load();
    EXPECT_EQ(window.IsLoaded(), whole);
    EXPECT_EQ(program.prefs.EditorFolder, whole ? target.string() : std::string());
    EXPECT_EQ(program.catalogue.levels.size(), whole ? 1u : 0u);
    if (window.IsLoaded()) window.Unload();
  }
}

}  // namespace
}  // namespace vardolin::testing
