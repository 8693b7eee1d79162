// vardolin-cli search: the window's zip search for scripts, one found path a line.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

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
  h.dir.Write("downloads/sunken tomb.rar", "x");
  h.dir.Write("downloads/sunken tomb.txt", "x");
  const testing::CliResult inside =
      h.RunAt({"search", "tomb", "SUNKEN", "--in", disk.string(), "--inside-zips"});
  EXPECT_EQ(inside.code, 0) << inside.err;
  // A folder's own files come before its sub-folders'.
  EXPECT_EQ(inside.out,
            (disk / "sunken tomb.rar").string() + "\n" + (disk / "site/pack.zip").string() + "\n");
  const std::string recent =
      h.RunAt({"search", "--in", disk.string(), "--kind", "2", "--days", "1"}).out;
  EXPECT_EQ(std::count(recent.begin(), recent.end(), '\n'), 3);
  EXPECT_EQ(h.RunAt({"search", "x", "--in", (h.dir / "none").string()}).code, 1);
}

}  // namespace
}  // namespace vardolin
