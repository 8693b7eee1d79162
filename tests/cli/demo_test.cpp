// `vardolin-cli demo` makes the home `make run` starts in: the window opens on it asking nothing.

#include <gtest/gtest.h>

#include "cli_runner.h"
#include "foundation/program.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "startup/main_window.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

struct DemoHomeTest : ::testing::Test, testing::CliHome {};

// The window opens on the demo asking nothing, and each kind of package the demo keeps for
// Levels > Add becomes a level of the name it says.
TEST_F(DemoHomeTest, TheWindowOpensOnTheDemoAndEveryPackageBecomesALevel) {
  const testing::CliResult made = RunAt({"demo"});
  ASSERT_EQ(made.code, 0) << made.out << made.err;
  EXPECT_EQ(made.err, "") << "the demo answers its questions itself and prints none";
  {
    testing::ScriptedUi ui;
    testing::RecordingPlatform platform;
    Program program(home, ui, platform);
    MainWindow window(program);
    window.Load();
    ASSERT_TRUE(window.IsLoaded());
    EXPECT_TRUE(ui.Questions().empty());
    EXPECT_EQ(window.Combo_Livelli.ListCount(), 4);
    window.Unload();
  }
  const std::pair<const char*, std::vector<std::string>> packages[] = {
      {"Sunken Tomb.zip", {"name: Sunken Tomb\n"}},
      {"Desert Gate.tar.gz", {"name: Desert Gate\n"}},
      {"Frozen Keep Setup.exe", {"name: Frozen Keep\n"}},
      {"Tower of Winds (exported).zip", {"author: Ada Stone"}},
      // Its install script named the author; its readme is still proposed as More info.
      {"Cave of Echoes.zip", {"author: Bo Marsh", "more_info: Readme.txt\n"}},
      {"Grey Ruins.zip", {"name: Grey Ruins\n"}},
  };
  std::string code;
  for (const auto& [package, says] : packages) {
    const testing::CliResult added =
        RunAt({"add", (home / "packages" / package).string(), "--note", "from the demo"});
    ASSERT_EQ(added.code, 0) << package << added.err;
    code = added.out.substr(0, added.out.find('\n'));
    const testing::CliResult info = RunAt({"info", code});
    for (const std::string& said : says)
      EXPECT_NE(info.out.find(said), std::string::npos) << package << "\n" << info.out;
    EXPECT_NE(info.out.find("note: from the demo"), std::string::npos) << info.out;
    EXPECT_EQ(RunAt({"files", code}).out.find("vardolin_install"), std::string::npos)
        << package << ": the install script is read, not kept among the level's files";
  }
  EXPECT_NE(RunAt({"files", code, "--json"}).out.find("{\"name\": \"ruins.tr4\", \"size\": "),
            std::string::npos);

  // The level of sources compiles on Done: Ok to compile, yes to the check of the wads.
  const testing::CliResult towers = RunAt(
      {"add", (home / "packages/Twin Towers.zip").string(), "--answer", "ok", "--answer", "yes"});
  ASSERT_EQ(towers.code, 0) << towers.out << towers.err;
  code = towers.out.substr(0, towers.out.find('\n'));
  // A source that came into the stored level later is compiled by the compile command.
  const std::string folder = "LEVEL_" + std::string(4 - code.size(), '0') + code;
  testing::WriteBytes(home / "archive" / folder / "files/annex.tom", "project of the annex");
  testing::WriteBytes(home / "archive" / folder / "files/annex.was", "annex wad");
  const testing::CliResult compiled = RunAt({"compile", code, "--yes"});
  EXPECT_EQ(compiled.code, 0) << compiled.out << compiled.err;
  const std::string files = RunAt({"files", code}).out;
  EXPECT_NE(files.find("annex.tr4"), std::string::npos) << files;
  EXPECT_NE(files.find("south.tr4"), std::string::npos) << files;
  EXPECT_EQ(files.find(".tom"), std::string::npos) << "no source is kept: " << files;
  // The demo's wads go into its editor, their level's name into its texts.
  const testing::CliResult wads =
      RunAt({"import-wads", (home / "packages" / "Temple Wads.zip").string(), "--yes"});
  EXPECT_EQ(wads.code, 0) << wads.err;
  EXPECT_NE(wads.out.find("temple.was -> editor\\graphics\\wads\\  [ok]"), std::string::npos)
      << wads.out;
  EXPECT_NE(testing::ReadFile(home / "trle/script/english.txt").find("Temple of the Wads"),
            std::string::npos);
}

}  // namespace
}  // namespace vardolin
