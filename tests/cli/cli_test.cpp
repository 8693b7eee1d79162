// vardolin-cli run as a child process, as scripts use it.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "temp_dir.h"

namespace {

namespace fs = std::filesystem;

struct Result {
  int code;
  std::string out;
};

Result RunCli(const std::string& arguments) {
  std::string command =
      std::string("\"") + VARDOLIN_BUILD_DIR "/app/cli/vardolin-cli\" " + arguments + " 2>&1";
  Result r{-1, {}};
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return r;
  std::array<char, 4096> buf;
  while (std::size_t n = fread(buf.data(), 1, buf.size(), pipe)) r.out.append(buf.data(), n);
  int status = pclose(pipe);
  r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

TEST(Cli, NewCatalogueThenListInfoAndOpen) {
  vardolin::testing::TempDir dir;
  std::string home = "--home \"" + (dir / "home").string() + "\" ";
  std::string archive = (dir / "arc").string();

  Result made = RunCli(home + "--answer \"" + archive + "\" new-catalogue");
  ASSERT_EQ(made.code, 0) << made.out;
  fs::path catalogue = dir / "home" / "Vardolin_archive.vdc";
  EXPECT_TRUE(fs::exists(catalogue)) << made.out;

  struct Case {
    std::string arguments;
    int code;
    std::string contains;
  };
  const Case cases[] = {
      {"list", 0, "0\t<Base level"},
      {"info 0", 0, "code: 0\nname: <Base level"},
      {"info 42", 1, "no level with code 42"},
      {"open \"" + (dir / "missing.vdc").string() + "\"", 1, "cannot open"},
      {"open \"" + catalogue.string() + "\"", 0, "1 levels"},
      {"info", 106, "CODE"},
  };
  for (const Case& c : cases) {
    Result r = RunCli(home + c.arguments);
    EXPECT_EQ(r.code, c.code) << c.arguments << "\n" << r.out;
    EXPECT_NE(r.out.find(c.contains), std::string::npos) << c.arguments << "\n" << r.out;
  }
}

TEST(Cli, WithoutAFolderAnswerNoCatalogueIsMadeAndListSaysSo) {
  vardolin::testing::TempDir dir;
  std::string home = "--home \"" + (dir / "home").string() + "\" ";
  Result made = RunCli(home + "new-catalogue");
  EXPECT_EQ(made.code, 1) << made.out;
  Result listed = RunCli(home + "list");
  EXPECT_EQ(listed.code, 1);
  EXPECT_NE(listed.out.find("no catalogue yet"), std::string::npos) << listed.out;
}

}  // namespace
