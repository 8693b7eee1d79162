// The cd command group of vardolin-cli: reports of an image made by the real genisoimage.
#include <gtest/gtest.h>

#include "cd/burn_engine.h"
#include "cli_runner.h"
#include "test_program.h"

namespace vardolin {
namespace {

TEST(CdCommands, ReportListsAnImageOrSaysWhyNot) {
  testing::TestProgram t;
  testing::TempDir src;
  src.Write("LEVEL_0001/data/level.tr4", "level");
  BurnEngine engine(t.program);
  ASSERT_TRUE(engine.BurnCommand(cw_AddItem, (src / "LEVEL_0001").string()));
  engine.IsoPath = (src / "cd.iso").string();
  ASSERT_TRUE(engine.BurnCommand(cw_CreateIso)) << engine.ErrorMessage();

  testing::CliHome at;
  std::filesystem::create_directories(at.home);
  const struct {
    std::vector<std::string> args;
    int code;
    std::string says;
  } cases[] = {
      {{"FlatList", engine.IsoPath},
       0,
       "/LEVEL_0001\n/LEVEL_0001/data\n/LEVEL_0001/data/level.tr4\n"},
      {{"treelist", engine.IsoPath}, 0, "/LEVEL_0001\n            data\n"},
      {{"ReferenceList", engine.IsoPath}, 0, "/LEVEL_0001/data/level.tr4\t5\t"},
      {{"Sizes", engine.IsoPath}, 2, "KIND"},
      {{"FlatList", (src / "none.iso").string()}, 1, "Missing ISO image to analyse ("},
  };
  for (const auto& c : cases) {
    std::vector<std::string> args = {"cd", "report"};
    args.insert(args.end(), c.args.begin(), c.args.end());
    const testing::CliResult r = at.RunAt(args);
    EXPECT_EQ(r.code, c.code) << c.args[0] << r.err;
    EXPECT_NE(r.Said().find(c.says), std::string::npos) << c.args[0] << ": " << r.Said();
  }
}

}  // namespace
}  // namespace vardolin
