// vardolin-cli search: the window's zip search for scripts, one found path a line.

#include <gtest/gtest.h>

#include "archive_writer.h"
#include "cli_runner.h"

namespace vardolin {
namespace {

TEST(Cli, SearchPrintsTheFoundPackages) {
  testing::CliHome h;
  ASSERT_EQ(h.NewCatalogue().code, 0);
  const auto disk = h.dir / "downloads";
  std::filesystem::create_directories(disk / "site");
  testing::WriteArchive(disk / "site/pack.zip", {{"Sunken Tomb/level.tr4", "x"}});
  // The order, the kinds and the dates are the window's search's own: one call shows the wiring.
  const testing::CliResult inside =
      h.RunAt({"search", "tomb", "SUNKEN", "--in", disk.string(), "--inside-zips"});
  EXPECT_EQ(inside.code, 0) << inside.err;
  EXPECT_EQ(inside.out, (disk / "site/pack.zip").string() + "\n");
  EXPECT_EQ(h.RunAt({"search", "x", "--in", (h.dir / "none").string()}).code, 1);
}

}  // namespace
}  // namespace vardolin
