// vardolin-cli run as a child process, as scripts use it: the conventions of a command line and
// the commands that read and change a catalogue it made.

#include <gtest/gtest.h>

#include "archive_writer.h"
#include "cli_runner.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/settings/preferences.h"
#include "recording_platform.h"
#include "savegame_bytes.h"
#include "scripted_ui.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::CliHome;
using testing::CliResult;

TEST(Cli, KeepsTheConventionsOfACommandLine) {
  CliHome at;
  ASSERT_EQ(at.NewCatalogue().code, 0);
  const fs::path catalogue = at.home / "Vardolin_archive.vdc";
  const fs::path garbage = at.dir.Write("garbage.vdc", "not a catalogue");
  const std::string missing_home = (at.dir / "mistyped").string();
  const fs::path cut = at.dir.Write("cut.zip", std::string("PK\x03\x04 and then nothing", 24));
  const fs::path good = at.dir / "good.zip";
  testing::WriteArchive(good, {{"room.tr4", "r"}, {"script.dat", "s"}});
  CliHome bare;  // a home whose first new-catalogue got no folder
  const fs::path source = at.dir.Write("song.wav", "RIFF, kept as it is");
  struct Case {
    std::vector<std::string> args;
    int code;
    std::string says;  // on standard output when it worked, else on standard error
  };
  const Case cases[] = {
      {{}, 2, "Usage: vardolin-cli"},
      {{"--help"}, 0, "Usage: vardolin-cli"},
      {{"list", "--help"}, 0, "--json"},
      {{"--version"}, 0, "vardolin-cli 1."},
      {{"frobnicate", "0"}, 2, "frobnicate"},
      {{"audio", "convert", "--to", "4", "a.wav", "--out", "x"}, 2, "--to"},
      {at.At({"audio", "info", "gone.mp3"}), 1, "gone.mp3: no such file"},
      {at.At({"audio", "convert", "--to", "2", source.string(), "--out", at.dir.path().string()}),
       1, "song.wav: the result would replace this source"},
      {{"info"}, 2, "CODE"},
      {at.At({"info", "0"}), 0, "code: 0\nname: <Base level"},
      {{"list", "--home", at.home.string()}, 0, "0\t<Base level"},
      {at.At({"list", "--json"}), 0, "[\n  {\"code\": 0, \"name\": \"<Base level"},
      {at.At({"info", "0", "--json"}), 0, "{\"code\": 0, \"name\": \"<Base level"},
      {at.At({"shots", "0", "--json"}), 0, "[\n]\n"},
      {at.At({"info", "42"}), 1, "no level with code 42 in the catalogue " + catalogue.string()},
      {at.At({"open", (at.dir / "missing.vdc").string()}), 1, "missing.vdc: no such file"},
      {at.At({"add", (at.dir / "missing.zip").string()}), 1, "there is no file or folder"},
      {at.At({"add", good.string(), cut.string()}), 1,
       "cut.zip could not be added to the level. \"cut.zip\" can't be read as a zip"},
      {at.At({"open", garbage.string()}), 1, "garbage.vdc: the file is shorter than"},
      {at.At({"open", catalogue.string()}), 0, "1 levels"},
      {{"--home", missing_home, "list"}, 1, "there is no program home " + missing_home},
      {bare.At({"new-catalogue"}), 1, "no new catalogue was made in " + bare.home.string()},
      {bare.At({"list"}), 1, "Vardolin.prf name no catalogue yet"},
  };
  for (const Case& c : cases) {
    const CliResult r = testing::RunCli(c.args);
    const std::string shown = ::testing::PrintToString(c.args);
    EXPECT_EQ(r.code, c.code) << shown << "\n" << r.out << r.err;
    EXPECT_NE(r.Said().find(c.says), std::string::npos) << shown << "\n" << r.out << r.err;
    if (c.code == 1) {
      EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << shown << r.err;
    }
  }
  EXPECT_FALSE(fs::exists(missing_home));
  EXPECT_EQ(testing::ReadFile(source), "RIFF, kept as it is");

  // The package that couldn't be added kept the level out.
  EXPECT_EQ(testing::RunCli(at.At({"list"})).out.find("good"), std::string::npos);
}

TEST(Cli, SavegamesAndShotsOfALevel) {
  CliHome at;
  ASSERT_EQ(at.NewCatalogue().code, 0);
  {
    testing::ScriptedUi ui;
    testing::RecordingPlatform platform;
    Program program(at.home, ui, platform);
    LoadPreferences(program);
    program.prefs.EditorFolder = (at.dir / "trle").string();
    SavePreferences(program);
  }
  for (int i = 0; i < 4; ++i)
    at.dir.Write("trle/savegame." + std::to_string(i),
                 testing::GameSavegameBytes(10 + i, "Tomb " + std::to_string(i)));
  // The panel orders shots by date, and a picture of the same moment after its JPEG twin.
  const auto epoch = std::chrono::system_clock::time_point(std::chrono::seconds(1700000000));
  const std::pair<const char*, int> written[] = {
      {"late.jpg", 30}, {"same.bmp", 20}, {"same.jpg", 20}, {"early.bmp", 10}};
  for (const auto& [name, seconds] : written)
    SetFileDateTime(at.dir.Write("home/LEVEL_0000/screenshots/" + std::string(name), "x"),
                    epoch + std::chrono::seconds(seconds));
  const std::string shots = (at.home / "LEVEL_0000/screenshots").string();
  const std::string zip = (at.dir / "out.zip").string();

  struct Case {
    std::vector<std::string> args;
    int code;
    std::string says;
  };
  const Case cases[] = {
      {{"savegames", "0"}, 0, "0\t  10 Tomb 0  ("},
      {{"savegames", "0", "--json"}, 0, "{\"slot\": 3, \"caption\": \"  13 Tomb 3  ("},
      {{"archive", "0", "2"}, 0, "archived 2 savegames"},
      {{"savegames", "0"}, 0, "savegame.1\t  11 Tomb 1  ("},
      {{"savegames", "0"}, 0, "1\t  13 Tomb 3  ("},
      {{"restore", "0"}, 0, "4 savegames in the slots (2 before)"},
      {{"restore", "0"}, 1, "nothing restored"},
      {{"archive", "0"}, 0, "archived 4 savegames"},
      // Taken back in, the newest savegame, still in the slots, is a twin that an unattended run
      // keeps.
      {{"savegames", "0", "--export", zip}, 0, "5 savegames into"},
      {{"savegames", "0", "--import", zip}, 0, "3 savegames into"},
  };
  for (const Case& c : cases) {
    const CliResult r = at.RunAt(c.args);
    const std::string shown = ::testing::PrintToString(c.args);
    EXPECT_EQ(r.code, c.code) << shown << "\n" << r.out << r.err;
    EXPECT_NE(r.Said().find(c.says), std::string::npos) << shown << "\n" << r.out << r.err;
  }
  const CliResult listed = at.RunAt({"shots", "0"});
  std::size_t seen = 0;
  for (const char* name : {"early.bmp", "same.jpg", "same.bmp", "late.jpg"}) {
    seen = listed.out.find(shots + "/" + name, seen);
    ASSERT_NE(seen, std::string::npos) << name << "\n" << listed.out;
  }
}

}  // namespace
}  // namespace vardolin
