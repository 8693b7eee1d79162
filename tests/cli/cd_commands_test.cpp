// The level-CD commands from a script, on the demo home.

#include <gtest/gtest.h>

#include <filesystem>

#include "cli_runner.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

TEST(CdCommands, AttachRemembersAnImageOrTakesAMountPoint) {
  testing::CliHome h;
  ASSERT_EQ(h.RunAt({"demo"}).code, 0);
  const fs::path image = h.dir / "cd1.iso";
  const fs::path disc = h.dir / "disc";
  testing::WriteBytes(disc / "Levels1/LEVEL_0001/files/a.tr4", "level");
  ASSERT_EQ(
      std::system(
          ("genisoimage -quiet -J -R -o '" + image.string() + "' '" + disc.string() + "'").c_str()),
      0);
  const fs::path broken = h.dir / "broken.iso";
  testing::WriteBytes(broken, std::string(70000, 'x'));
  struct Case {
    std::string where;
    int code;
    std::string said;
  };
  const Case cases[] = {
      {broken.string(), 1, "broken.iso can't be read"},
      {(h.dir / "nowhere").string(), 1, "neither an image file nor a folder"},
      {image.string(), 0, "cd 1: " + image.string()},
      {disc.string(), 0, "cd 1: " + disc.string()},
  };
  for (const Case& c : cases) {
    const testing::CliResult r = h.RunAt({"cd", "attach", "1", c.where});
    EXPECT_EQ(r.code, c.code) << c.where << r.err;
    EXPECT_NE(r.Said().find(c.said), std::string::npos) << r.Said();
  }
  // The mount point took the place of the image.
  EXPECT_EQ(testing::ReadFile(h.home / "cd_images.txt").find("cd1.iso"), std::string::npos);
}

}  // namespace
}  // namespace vardolin
