// vardolin-cli shots CODE, run as a child process: the level's screenshots in the panel's order.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>

#include "foundation/services/files.h"
#include "temp_dir.h"

namespace {

namespace fs = std::filesystem;

std::pair<int, std::string> RunShotsCli(const std::string& arguments) {
  const std::string command =
      std::string("\"") + VARDOLIN_BUILD_DIR "/app/cli/vardolin-cli\" " + arguments + " 2>&1";
  std::string out;
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return {-1, {}};
  std::array<char, 4096> buf;
  while (std::size_t n = fread(buf.data(), 1, buf.size(), pipe)) out.append(buf.data(), n);
  const int status = pclose(pipe);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out};
}

TEST(CliShots, ListsTheShotsOldestFirstAndRefusesAnUnknownLevel) {
  vardolin::testing::TempDir dir;
  const std::string home = "--home \"" + (dir / "home").string() + "\" ";
  ASSERT_EQ(RunShotsCli(home + "--answer \"" + (dir / "arc").string() + "\" new-catalogue").first,
            0);
  const fs::path shots = dir / "home" / "LEVEL_0000" / "screenshots";
  const auto epoch = std::chrono::system_clock::time_point(std::chrono::seconds(1700000000));
  struct Shot {
    const char* name;
    int seconds;
  } written[] = {{"late.jpg", 30}, {"same.bmp", 20}, {"same.jpg", 20}, {"early.bmp", 10}};
  for (const Shot& s : written) {
    const fs::path path = dir.Write("home/LEVEL_0000/screenshots/" + std::string(s.name), "x");
    vardolin::SetFileDateTime(path, epoch + std::chrono::seconds(s.seconds));
  }
  const auto [code, out] = RunShotsCli(home + "shots 0");
  ASSERT_EQ(code, 0) << out;
  const char* order[] = {"early.bmp", "same.jpg", "same.bmp", "late.jpg"};
  std::size_t at = 0;
  for (const char* name : order) {
    const std::size_t found = out.find((shots / name).string(), at);
    ASSERT_NE(found, std::string::npos) << name << "\n" << out;
    at = found;
  }
  const auto [missing_code, missing_out] = RunShotsCli(home + "shots 42");
  EXPECT_EQ(missing_code, 1);
  EXPECT_NE(missing_out.find("no level with code 42"), std::string::npos) << missing_out;
}

}  // namespace
