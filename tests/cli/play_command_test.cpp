// vardolin-cli play, run as a child process over a home that a first start of the program
// would have left: settings naming the editor folder and the catalogue, and the editor's backup.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "../archive/archive_fixture.h"
#include "archive/catalogue_file.h"
#include "archive/level_store.h"
#include "editor_folder_fixture.h"
#include "foundation/program_home.h"
#include "foundation/settings/preferences.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::WriteBytes;

std::pair<int, std::string> RunCli(const std::string& arguments) {
  const std::string command =
      std::string("\"") + VARDOLIN_BUILD_DIR "/app/cli/vardolin-cli\" " + arguments + " 2>&1";
  std::string out;
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return {-1, out};
  std::array<char, 4096> buf;
  while (std::size_t n = fread(buf.data(), 1, buf.size(), pipe)) out.append(buf.data(), n);
  const int status = pclose(pipe);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out};
}

fs::path StandinGame() {
  const char* env = std::getenv("VARDOLIN_STANDINS");
  return (env && *env ? fs::path(env) : fs::path(VARDOLIN_BUILD_DIR) / "standins") / "standin_game";
}

TEST(CliPlay, TheLevelIsPlayedToTheEndOfTheGameAndStaysInTheEditorFolder) {
  testing::TempDir dir;
  const fs::path home = dir / "home", editor = dir / "trle", catalogue = dir / "levels.vdc";
  ASSERT_TRUE(PrepareHome(home));
  {
    testing::ScriptedUi ui;
    testing::RecordingPlatform platform;
    Program program(home, ui, platform);
    program.texts.EnglishTexts = testing::ReadEnglishForTests();
    ASSERT_TRUE(testing::BuildEditorFolder(editor));
    fs::copy_file(StandinGame(), editor / "tomb4.exe", fs::copy_options::overwrite_existing);
    program.prefs.EditorFolder = editor.string();
    program.prefs.LastArchive = catalogue.string();
    program.prefs.FullBackupDone = true;
    program.catalogue = testing::SampleCatalogue(2, (dir / "archive").string());
    program.catalogue.levels[1].Name = "Cli Temple";
    // The level brings the game its orders: it saves and ends on its own.
    const fs::path files = GetLevelFolder(program, 1, false) / "files";
    WriteBytes(files / "temple.tr4", "temple");
    WriteBytes(files / "script.dat", "temple's script");
    WriteBytes(files / "standin_commands.txt", "save 1 Cli Temple\nexit 5\n");
    fs::create_directories(GetLevelFolder(program, 0, false));
    ASSERT_TRUE(SaveCatalogueFile(program, catalogue));
    SavePreferences(program);
  }
  const std::string at = "--home \"" + home.string() + "\" ";

  struct Case {
    std::string arguments;
    bool backup;
    int code;
    std::string says;
  };
  const Case cases[] = {
      {"play 1", false, 1, "no backup yet"},
      {"play 42", true, 1, "no level with code 42"},
      {"play 1", true, 0, "the game ended with exit code 5"},
      {"play", true, 106, "CODE"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.arguments);
    if (c.backup && !fs::exists(home / "backup_trle"))
      fs::copy(editor, home / "backup_trle", fs::copy_options::recursive);
    const auto [code, out] = RunCli(at + c.arguments);
    EXPECT_EQ(code, c.code) << out;
    EXPECT_NE(out.find(c.says), std::string::npos) << out;
  }
  EXPECT_TRUE(fs::exists(editor / "data/temple.tr4"));
  EXPECT_TRUE(fs::exists(editor / "savegame.1"));
}

}  // namespace
}  // namespace vardolin
