// Compiling through the real Wine: the Windows build of the stand-in converter is the editor's
// tom2pc.exe, in a private prefix made in the test's folder, and is told the source as the
// Windows path Wine maps it to. Only a machine without Wine skips it.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "editor/tom_converter.h"
#include "private_wine.h"
#include "tom_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

TEST(WineConverter, ASourceIsCompiledThroughTheRealWine) {
  if (!testing::OnPath("wine")) GTEST_SKIP() << "wine is not installed";
  testing::TomFixture t;
  // The real clock: the first start fills the new prefix, which takes Wine a while; a question
  // whether it is stuck is answered No, and the watch goes on.
  t.program.SetWatchClock(nullptr);
  t.ui.AllowAnyMessage(msg::kNo);
  fs::copy_file(testing::Standin("windows/standin_tom2pc.exe"), t.editor / "tom2pc.exe",
                fs::copy_options::overwrite_existing);
  testing::PrivateWine wine(t.platform, t.dir / "wineprefix");
  const fs::path tom = t.dir / "level with blanks/castle.tom";
  testing::WriteBytes(tom, testing::TomSource("normal"));
  testing::WriteBytes(t.editor / "graphics/wads/castle.was", "wad bytes");
  ASSERT_TRUE(RunTomConverter(t.program, tom));
  const std::string level = testing::ReadFile(t.editor / "data/castle.tr4");
  EXPECT_TRUE(level.starts_with("TR4 stand-in level castle")) << level;
  EXPECT_NE(level.find("wad bytes"), std::string::npos);
}

}  // namespace
}  // namespace vardolin
