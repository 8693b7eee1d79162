// Level CDs from a script, on the demo home: the plan, then the CDs as images.

#include <gtest/gtest.h>

#include "cli_runner.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

struct CdMakeCommandsTest : ::testing::Test, testing::CliHome {};

TEST_F(CdMakeCommandsTest, PlanThenImagesMoveTheDemoLevelsOntoCdImages) {
  ASSERT_EQ(RunAt({"demo"}).code, 0);
  testing::CliResult r = RunAt({"cd", "plan", "--mb", "700"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out.rfind("CD 1 (archive1)\n  1\tDemo: The Plain Tomb\t", 0), 0u) << r.out;

  const fs::path images = dir / "images";
  r = RunAt({"cd", "image", images.string()});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(r.out, "CD 1: 1 2 3\nimage: " + (images / "archive1.iso").string() + "\n");
  EXPECT_FALSE(fs::exists(home / "archive/LEVEL_0002/files"));
  EXPECT_TRUE(fs::exists(home / "archive/LEVEL_0002/play"));
  r = RunAt({"info", "2", "--json"});
  EXPECT_NE(r.out.find("\"cd\": 1"), std::string::npos) << r.out;

  r = RunAt({"cd", "plan"});
  EXPECT_EQ(r.out, "no level lies on hard disk\n");
}

}  // namespace
}  // namespace vardolin
