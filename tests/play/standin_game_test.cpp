// The stand-in game through the real Linux platform: it must behave toward Vardolin as the game
// does, or the tests of play and savegames prove nothing.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "foundation/platform/linux_platform.h"
#include "foundation/services/binary_io.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

fs::path StandinGame() {
  const char* env = std::getenv("VARDOLIN_STANDINS");
  return (env && *env ? fs::path(env) : fs::path(VARDOLIN_BUILD_DIR) / "standins") / "standin_game";
}

std::string Read(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// The header as the savegame store reads it: title up to the first comma, save number at 75.
struct Header {
  std::string title;
  int number = -1;
};
Header ReadHeader(const fs::path& path) {
  const std::string bytes = Read(path);
  Header h;
  if (bytes.size() < 77) return h;
  std::string field = bytes.substr(0, 75);
  h.title = field.substr(0, field.find(','));
  h.number = ByteReader(bytes, 75).I16();
  return h;
}

bool WaitForFile(const fs::path& path, std::chrono::milliseconds limit = 5000ms) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (std::chrono::steady_clock::now() < end) {
    if (fs::exists(path)) return true;
    std::this_thread::sleep_for(10ms);
  }
  return false;
}

struct StandinGameTest : ::testing::Test {
  testing::TempDir dir;
  LinuxPlatform platform;
  fs::path editor = dir / "trle";
  void SetUp() override {
    fs::create_directories(editor);
    ASSERT_TRUE(fs::exists(StandinGame())) << "build the standin_game target";
  }
  Process Start(std::vector<std::string> args) {
    auto p = platform.Start({StandinGame(), std::move(args), editor, false});
    EXPECT_TRUE(p && p->Valid());
    return p ? *p : Process{};
  }
  void Command(const std::string& line) {
    std::ofstream(editor / "standin_commands.txt", std::ios::app) << line << "\n";
  }
};

TEST_F(StandinGameTest, ArgumentsWriteSavegamesInTheWorkingFolderAndTheTimeEndsIt) {
  struct Case {
    std::string arg;
    std::string file;
    std::string title;
    int number;
  };
  const Case cases[] = {
      {"3:The Lost Temple", "savegame.3", "The Lost Temple", 3},
      {"0:", "savegame.0", "", 0},
      {"14:" + std::string(90, 'x'), "savegame.14", std::string(74, 'x'), 14},
  };
  std::vector<std::string> args;
  for (const Case& c : cases) args.insert(args.end(), {"--save", c.arg});
  args.insert(args.end(), {"--exit-after", "50", "--exit-code", "7"});
  Process game = Start(args);
  ASSERT_EQ(platform.Wait(game, 5000ms), WaitResult::Ended);
  EXPECT_EQ(platform.ExitCode(game), 7);
  EXPECT_EQ(Read(editor / "standin_started.txt"), fs::canonical(editor).string() + "\n");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file);
    Header h = ReadHeader(editor / c.file);
    EXPECT_EQ(h.title, c.title);
    EXPECT_EQ(h.number, c.number);
  }
}

TEST_F(StandinGameTest, CommandFileDrivesSavesShotsAndTheExit) {
  const fs::path clipboard = dir / "clipboard.bmp";
  setenv("VARDOLIN_FAKE_CLIPBOARD", clipboard.c_str(), 1);
  Process game = Start({});
  unsetenv("VARDOLIN_FAKE_CLIPBOARD");
  ASSERT_TRUE(WaitForFile(editor / "standin_started.txt"));
  EXPECT_TRUE(platform.IsRunning(game));

  Command("save 5 Catacombs of Rome");
  Command("shot");
  ASSERT_TRUE(WaitForFile(clipboard));
  EXPECT_TRUE(platform.IsRunning(game)) << "a save and a shot don't end the game";
  Header h = ReadHeader(editor / "savegame.5");
  EXPECT_EQ(h.title, "Catacombs of Rome");
  EXPECT_EQ(h.number, 5);

  // The picture is a whole 24-bit bitmap, as a screen grab lands on the clipboard.
  const std::string bmp = Read(clipboard);
  ByteReader in(bmp);
  EXPECT_EQ(bmp.substr(0, 2), "BM");
  in.Skip(2);
  EXPECT_EQ(in.I32(), static_cast<std::int32_t>(bmp.size()));

  // A later save of the same slot replaces it, with the new number.
  Command("save 5 Catacombs again");
  Command("exit 3");
  ASSERT_EQ(platform.Wait(game, 5000ms), WaitResult::Ended);
  EXPECT_EQ(platform.ExitCode(game), 3);
  EXPECT_EQ(ReadHeader(editor / "savegame.5").title, "Catacombs again");
  const std::string done = "save 5 Catacombs of Rome\nshot\nsave 5 Catacombs again\nexit 3\n";
  EXPECT_EQ(Read(editor / "standin_done.txt"), done);

  // The game consumed its commands: the next one in the folder doesn't replay them.
  EXPECT_FALSE(fs::exists(editor / "standin_commands.txt"));
  EXPECT_FALSE(fs::exists(editor / "standin_commands.taken"));
  Process second = Start({"--exit-after", "300", "--exit-code", "9"});
  ASSERT_EQ(platform.Wait(second, 5000ms), WaitResult::Ended);
  EXPECT_EQ(platform.ExitCode(second), 9);
  EXPECT_EQ(Read(editor / "standin_done.txt"), done);
}

TEST_F(StandinGameTest, WithoutAClipboardStandInAShotWritesNothing) {
  unsetenv("VARDOLIN_FAKE_CLIPBOARD");
  Process game = Start({"--shot"});
  Command("shot");
  Command("exit 0");
  ASSERT_EQ(platform.Wait(game, 5000ms), WaitResult::Ended);
  EXPECT_EQ(platform.ExitCode(game), 0);
  for (const auto& entry : fs::directory_iterator(editor))
    EXPECT_NE(entry.path().extension(), ".bmp") << entry.path();
}

TEST_F(StandinGameTest, EndingItFromOutsideIsSeenAsAnEnd) {
  Process game = Start({});
  ASSERT_TRUE(WaitForFile(editor / "standin_started.txt"));
  platform.End(game);
  EXPECT_FALSE(platform.IsRunning(game));
}

}  // namespace
}  // namespace vardolin
