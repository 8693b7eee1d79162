// Compiling through the real Wine: the Windows build of the stand-in converter, in a private
// prefix, is told the source as the Windows path Wine maps it to. Skipped only without Wine.
#include <gtest/gtest.h>

#include "editor/tom_converter.h"
#include "private_wine.h"
#include "tom_fixture.h"

namespace vardolin {
namespace {

TEST(WineConverter, ASourceIsCompiledThroughTheRealWine) {
  if (!testing::OnPath("wine")) GTEST_SKIP() << "wine is not installed";
  testing::TomFixture t;
  // The real clock; filling the new prefix takes a while: "stuck?" is answered No.
  t.program.SetWatchClock(nullptr);
  t.ui.AllowAnyMessage(msg::kNo);
  std::filesystem::copy_file(testing::Standin("windows/standin_tom2pc.exe"),
                             t.editor / "tom2pc.exe",
                             std::filesystem::copy_options::overwrite_existing);
  testing::PrivateWine wine(t.platform, t.dir / "wineprefix");
  testing::WriteBytes(t.dir / "level with blanks/castle.tom", testing::TomSource("normal"));
  testing::WriteBytes(t.editor / "graphics/wads/castle.was", "wad bytes");
  ASSERT_TRUE(RunTomConverter(t.program, t.dir / "level with blanks/castle.tom"));
  EXPECT_EQ(testing::ReadFile(t.editor / "data/castle.tr4"),
            "TR4 stand-in level castle\n" + testing::TomSource("normal") + "wad bytes");
}

}  // namespace
}  // namespace vardolin
