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
  const std::string image = engine.IsoPath, none = (src / "none.iso").string();
  const struct {
    std::vector<std::string> args;
    int code;
    std::string says;
  } cases[] = {
      {{"cd", "report", "FlatList", image},
       0,
       "/LEVEL_0001\n/LEVEL_0001/data\n/LEVEL_0001/data/level.tr4\n"},
      {{"cd", "report", "ReferenceList", image}, 0, "/LEVEL_0001/data/level.tr4\t5\t"},
      {{"cd", "report", "Sizes", image}, 2, "KIND"},
      {{"cd", "report", "FlatList", none}, 1, "Missing ISO image to analyse (" + none},
  };
  for (const auto& c : cases) {
    const testing::CliResult r = at.RunAt(c.args);
    EXPECT_EQ(r.code, c.code) << c.args[2] << r.err;
    EXPECT_NE(r.Said().find(c.says), std::string::npos) << c.args[2] << ": " << r.Said();
  }
}

}  // namespace
}  // namespace vardolin
