// The savegame commands of vardolin-cli, run as a child process on a catalogue it made, with the
// base level's savegames in the editor folder the settings name.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>

#include "foundation/program.h"
#include "foundation/settings/preferences.h"
#include "recording_platform.h"
#include "savegame_bytes.h"
#include "scripted_ui.h"
#include "temp_dir.h"

namespace {

namespace fs = std::filesystem;

struct Result {
  int code;
  std::string out;
};

Result RunCliCommand(const std::string& arguments) {
  const std::string command =
      std::string("\"") + VARDOLIN_BUILD_DIR "/app/cli/vardolin-cli\" " + arguments + " 2>&1";
  Result r{-1, {}};
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return r;
  std::array<char, 4096> buf;
  while (std::size_t n = fread(buf.data(), 1, buf.size(), pipe)) r.out.append(buf.data(), n);
  const int status = pclose(pipe);
  r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

TEST(SavegameCli, ListArchiveAndRestore) {
  vardolin::testing::TempDir dir;
  const std::string home = "--home \"" + (dir / "home").string() + "\" ";
  ASSERT_EQ(RunCliCommand(home + "--answer \"" + (dir / "arc").string() + "\" new-catalogue").code,
            0);
  {
    vardolin::testing::ScriptedUi ui;
    vardolin::testing::RecordingPlatform platform;
    vardolin::Program program(dir / "home", ui, platform);
    vardolin::LoadPreferences(program);
    program.prefs.EditorFolder = (dir / "trle").string();
    vardolin::SavePreferences(program);
  }
  fs::create_directories(dir / "trle");
  for (int i = 0; i < 4; ++i)
    std::ofstream(dir / "trle" / ("savegame." + std::to_string(i)), std::ios::binary)
        << vardolin::testing::GameSavegameBytes(10 + i, "Tomb " + std::to_string(i));

  struct Case {
    std::string arguments;
    int code;
    std::string contains;
  } cases[] = {
      {"savegames 0", 0, "0\t  10 Tomb 0  ("},
      {"savegames 7", 1, "no level with code 7"},
      {"archive 0 2", 0, "archived 2 savegames"},
      {"savegames 0", 0, "savegame.1\t  11 Tomb 1  ("},
      {"savegames 0", 0, "1\t  13 Tomb 3  ("},
      {"restore 0", 0, "4 savegames in the slots (2 before)"},
      {"restore 0", 1, "nothing restored"},
      {"archive 0", 0, "archived 4 savegames"},
      {"archive 0", 1, "nothing archived"},
  };
  for (const Case& c : cases) {
    const Result r = RunCliCommand(home + c.arguments);
    EXPECT_EQ(r.code, c.code) << c.arguments << "\n" << r.out;
    EXPECT_NE(r.out.find(c.contains), std::string::npos) << c.arguments << "\n" << r.out;
  }
}

}  // namespace
