// The ways back and the archive care from a script, on the demo home.

#include <gtest/gtest.h>

#include "cli_runner.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

struct MaintenanceCommandsTest : ::testing::Test, testing::CliHome {};

TEST_F(MaintenanceCommandsTest, RestoreMoveRecoverAndBackUpFromAScript) {
  ASSERT_EQ(RunAt({"demo"}).code, 0);
  testing::WriteBytes(home / "trle/maps/mine.prj", "my map");
  testing::CliResult r = RunAt({"restore-editor", "--full"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.err.find((home / "set_aside_").string()), std::string::npos) << r.err;
  EXPECT_FALSE(fs::exists(home / "trle/maps/mine.prj"));

  r = RunAt({"sizes", "--json"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.out.find("\"files\": "), std::string::npos) << r.out;

  const fs::path moved = dir / "moved";
  r = RunAt({"move-archive", moved.string()});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out, "archive: " + moved.string() + "\n");
  EXPECT_EQ(RunAt({"activate", "1"}).code, 0);

  r = RunAt({"recover-archive", moved.string()});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.out.find("levels: 3\n"), std::string::npos) << r.out;
  EXPECT_EQ(RunAt({"activate", "2"}).code, 0);

  // A level's files on the first level CD: that CD is read, and no next one is wanted.
  const fs::path cds = dir / "cds";
  fs::create_directories(cds / "Levels1/LEVEL_0002");
  fs::copy(moved / "LEVEL_0002/files", cds / "Levels1/LEVEL_0002/files");
  EXPECT_EQ(RunAt({"recover-archive", moved.string(), "--cd", (cds / "Levels2").string()}).code, 1);
  r = RunAt(
      {"recover-archive", moved.string(), "--cd", (cds / "Levels1").string(), "--answer", "no"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.out.find("levels: 3\ncds: 1\n"), std::string::npos) << r.out;

  r = RunAt({"backup-editor", "--full", "--answer", "yes"});
  EXPECT_EQ(r.code, 0) << r.err;
}

}  // namespace
}  // namespace vardolin
