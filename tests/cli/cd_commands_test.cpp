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

// An image is remembered for its CD; a mount point given later takes its place.
TEST(CdCommands, AttachRemembersAnImageOrTakesAMountPoint) {
  testing::CliHome h;
  ASSERT_EQ(h.RunAt({"demo"}).code, 0);
  const auto disc = h.dir / "disc", image = h.dir / "cd1.iso";
  testing::WriteBytes(disc / "Levels1/LEVEL_0001/files/a.tr4", "level");
  ASSERT_EQ(
      std::system(("genisoimage -quiet -R -o " + image.string() + " " + disc.string()).c_str()), 0);
  for (const auto& where : {image, disc}) {
    const testing::CliResult r = h.RunAt({"cd", "attach", "1", where.string()});
    EXPECT_EQ(r.out, "cd 1: " + where.string() + "\n") << r.err;
  }
  EXPECT_EQ(testing::ReadFile(h.home / "cd_images.txt").find("cd1.iso"), std::string::npos);
}

}  // namespace
}  // namespace vardolin
