// A headless machine from nothing to a played level, by a script: install-editor, setup,
// import-wads, add, play, and the level sent out again by export, each a child process on one
// fresh home.

#include <gtest/gtest.h>

#include "cli_runner.h"
#include "editor_package.h"
#include "editor_test_fixture.h"
#include "foundation/program.h"
#include "foundation/services/home_lock.h"
#include "foundation/services/native_programs.h"
#include "recording_platform.h"
#include "scripted_ui.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::CliResult;

void Expect(const CliResult& r, int code, const std::string& says, const std::string& what) {
  EXPECT_TRUE(r.code == code && r.Said().find(says) != r.Said().npos) << what << r.out << r.err;
}

TEST(SetupCommand, AScriptInstallsTheEditorSetsUpAddsPlaysAndExports) {
  testing::CliHome at;
  testing::ScopedWinePrefix prefix{at.dir / "wine"};
  testing::ScopedEnv data{"XDG_DATA_HOME", (at.dir / "xdg").string()};
  testing::ScopedEnv config{"XDG_CONFIG_HOME", (at.dir / "config").string()};
  // The editor's converter is the stand-in, which compiles the demo level as it installs.
  fs::create_directories(at.home);
  ASSERT_TRUE(AllowNativeProgram(at.home, testing::Standin("standin_tom2pc")));
  std::vector<std::string> install = {"install-editor", "--answer", "yes"};  // Ok to Ok/Cancel
  {
    testing::ScriptedUi ui;
    testing::RecordingPlatform platform;
    Program scratch(at.dir / "scratch", ui, platform);
    for (const fs::path& zip : testing::BuildEditorPackage(scratch, at.dir / "package"))
      install.push_back(zip.string());
  }
  Expect(at.RunAt(install), 0, "editor: ", "install-editor");
  const fs::path editor = at.dir / "wine/drive_c/Program Files/Core Design/trle";
  // The machine's game is the stand-in, which this home allows as the demo's does.
  fs::copy_file(testing::Standin("standin_game"), editor / "tomb4.exe",
                fs::copy_options::overwrite_existing);
  ASSERT_TRUE(AllowNativeProgram(at.home, editor / "tomb4.exe"));
  const std::string levels = (at.dir / "levels").string();

  // The answer given comes before --yes: No to the editor folder stops the setup.
  Expect(at.RunAt({"setup", "--answer", "no", "--yes", "--archive", levels}), 1, "was not made",
         "setup refused");
  EXPECT_FALSE(fs::exists(at.home / "backup_trle/tomb4.exe"));
  Expect(at.RunAt({"setup", "--yes", "--archive", levels}), 0, "editor: " + editor.string(),
         "setup");
  EXPECT_TRUE(fs::exists(at.home / "backup_trle/tomb4.exe") && fs::exists(at.home / "LEVEL_0000"));

  at.dir.Write("wads/temple.was", "a wad");
  Expect(at.RunAt({"import-wads", (at.dir / "wads").string(), "--yes"}), 0,
         "temple.was -> editor\\graphics\\wads\\  [ok]", "import-wads");
  EXPECT_TRUE(fs::exists(editor / "graphics/wads/temple.was") &&
              fs::exists(at.home / "backup_trle/graphics/wads/temple.was"));

  at.dir.Write("Script Tomb/tomb.tr4", "a level");
  at.dir.Write("Script Tomb/script.dat", "its script");
  at.dir.Write("Script Tomb/standin_commands.txt", "save 1 Scripted\nexit 7\n");
  const CliResult added =
      at.RunAt({"add", (at.dir / "Script Tomb").string(), "--name", "Script Tomb", "--yes"});
  Expect(added, 0, "", "add");
  const std::string code = added.out.substr(0, added.out.find('\n'));
  EXPECT_TRUE(fs::is_directory(fs::path(levels) / ("LEVEL_000" + code))) << code;
  Expect(at.RunAt({"play", code}), 0, "the game ended with exit code 7", "play");
  EXPECT_TRUE(fs::exists(editor / "savegame.1"));

  // Export holds the home: what a killed export left goes before the next command, a file that
  // stands is replaced only on yes, the home's own never, and a home held elsewhere refuses it.
  const std::string zip = (at.dir / "out.zip").string(), prf = (at.home / "Vardolin.prf").string();
  {
    testing::ScopedEnv kill{"VARDOLIN_FAULT_POINT", "zip-entry:2"};
    at.RunAt({"export", code, (at.dir / "killed.zip").string()});
  }
  ASSERT_TRUE(fs::exists(at.dir / "killed.zip.part") && fs::exists(at.home / "export_level"));
  Expect(at.RunAt({"export", code, zip}), 0, zip, "export");
  EXPECT_FALSE(fs::exists(at.dir / "killed.zip.part") || fs::exists(at.dir / "killed.zip"));
  Expect(at.RunAt({"export", code, zip}), 1, "exists already", "export again");
  Expect(at.RunAt({"export", code, zip, "--yes"}), 0, zip, "export --yes");
  Expect(at.RunAt({"savegames", code, "--export", prf, "-y"}), 1, "own data", "savegames");
  HomeLock held;
  ASSERT_TRUE(held.Acquire(at.home, "a window"));
  Expect(at.RunAt({"export", code, zip, "--yes"}), 1, "in use by a window", "export held");
}

}  // namespace
}  // namespace vardolin
