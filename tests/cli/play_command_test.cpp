// vardolin-cli play, run as a child process over a home that a first start of the program
// would have left: settings naming the editor folder and the catalogue, and the editor's backup.
// While one command plays, the home is its own.

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>

#include <fstream>

#include "archive/catalogue_file.h"
#include "archive/level_store.h"
#include "archive_fixture.h"
#include "cli_runner.h"
#include "editor_folder_fixture.h"
#include "environment.h"
#include "foundation/program_home.h"
#include "foundation/services/native_programs.h"
#include "foundation/settings/preferences.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::CliResult;
using testing::WriteBytes;

// Level 1 brings the game its orders (it saves and ends on its own); level 2 plays until told.
struct PlayHome : ::testing::Test, testing::CliHome {
  fs::path editor = dir / "trle";
  void SetUp() override {
    ASSERT_TRUE(PrepareHome(home));
    testing::ScriptedUi ui;
    testing::RecordingPlatform platform;
    Program program(home, ui, platform);
    program.texts.EnglishTexts = testing::ReadEnglishForTests();
    ASSERT_TRUE(testing::BuildEditorFolder(editor));
    fs::copy_file(testing::Standin("standin_game"), editor / "tomb4.exe",
                  fs::copy_options::overwrite_existing);
    ASSERT_TRUE(AllowNativeProgram(home, editor / "tomb4.exe"));
    program.prefs.EditorFolder = editor.string();
    program.prefs.LastArchive = (dir / "levels.vdc").string();
    program.prefs.FullBackupDone = true;
    program.catalogue = testing::SampleCatalogue(3, (dir / "archive").string());
    program.catalogue.levels[1].Name = "Cli Temple";
    program.catalogue.levels[2].Name = "Cli \"Vault\"\tTwo";  // JSON must escape both
    for (int code : {1, 2}) {
      const fs::path files = GetLevelFolder(program, code, false) / "files";
      WriteBytes(files / "temple.tr4", "temple");
      WriteBytes(files / "script.dat", "temple's script");
    }
    WriteBytes(GetLevelFolder(program, 1, false) / "files/standin_commands.txt",
               "save 1 Cli Temple\nexit 5\n");
    fs::create_directories(GetLevelFolder(program, 0, false));
    ASSERT_TRUE(SaveCatalogueFile(program, program.prefs.LastArchive));
    SavePreferences(program);
  }
  void MakeBackup() const {
    if (!fs::exists(home / "backup_trle"))
      fs::copy(editor, home / "backup_trle", fs::copy_options::recursive);
  }
  static bool AppearsIn(const fs::path& file, const std::string& text) {
    return testing::WaitFor([&] { return testing::ReadFile(file).find(text) != std::string::npos; },
                            std::chrono::seconds(30));
  }
};

TEST_F(PlayHome, TheLevelIsPlayedToTheEndOfTheGameAndStaysInTheEditorFolder) {
  struct Case {
    std::vector<std::string> args;
    bool backup;
    int code;
    std::string says;
  };
  const Case cases[] = {
      {{"play", "1"}, false, 1, "no backup yet"},
      {{"play", "1"}, true, 0, "the game ended with exit code 5"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.args));
    if (c.backup) MakeBackup();
    const CliResult r = RunAt(c.args);
    EXPECT_EQ(r.code, c.code) << r.out << r.err;
    EXPECT_NE(r.Said().find(c.says), std::string::npos) << r.out << r.err;
  }
  EXPECT_TRUE(fs::exists(editor / "data/temple.tr4"));
  EXPECT_TRUE(fs::exists(editor / "savegame.1"));
}

TEST_F(PlayHome, AHomeIsHeldByOneProcessUntilItEndsEvenByAKill) {
  MakeBackup();
  const pid_t player = testing::StartCli(At({"play", "2"}), dir / "player.txt");
  ASSERT_TRUE(AppearsIn(editor / "standin_started.txt", editor.string()))
      << testing::ReadFile(dir / "player.txt");
  struct Case {
    std::vector<std::string> args;
    int code;
    std::string says;
  };
  const std::string holder = "in use by vardolin-cli (process " + std::to_string(player) + ")";
  const Case beside[] = {
      {{"activate", "1"}, 1, holder},
      {{"reset"}, 1, holder},
      {{"list"}, 0, "2\t"},
      {{"active"}, 0, "2\n"},
      {{"info", "2", "--json"}, 0, "{\"code\": 2, \"name\": \"Cli \\\"Vault\\\"\\tTwo\""},
  };
  for (const Case& c : beside) {
    SCOPED_TRACE(::testing::PrintToString(c.args));
    const CliResult r = RunAt(c.args);
    EXPECT_EQ(r.code, c.code) << r.out << r.err;
    EXPECT_NE(r.Said().find(c.says), std::string::npos) << r.out << r.err;
  }
  kill(player, SIGKILL);
  waitpid(player, nullptr, 0);
  // The game it started plays on, and holds nothing of the home.
  const CliResult after = RunAt({"reset"});
  EXPECT_EQ(after.code, 0) << after.out << after.err;
  EXPECT_EQ(after.out, "active: 0\n");
  std::ofstream(editor / "standin_commands.txt", std::ios::app) << "exit 0\n";
  EXPECT_TRUE(AppearsIn(editor / "standin_done.txt", "exit 0"));
}

}  // namespace
}  // namespace vardolin
