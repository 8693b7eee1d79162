// The level-CD commands from a script, on the demo home.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "cli_runner.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

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
