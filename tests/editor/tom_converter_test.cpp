// The converter run: the stand-in tom2pc behaves as its source tells it, and the watch clock
// runs a minute in milliseconds.
#include "editor/tom_converter.h"

#include <gtest/gtest.h>

#include "tom_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::WriteBytes;

TEST(TomConverter, WatchesAndAsksOnlyWhenTheFilesStopGrowing) {
  struct Case {
    std::string mode;
    bool with_wad;
    std::vector<std::pair<int, const char*>> answers;
    const char* level;  // the compiled level's head; empty when none must stand
    int divisor = 1000;
  };
  const char* const compiled = "TR4 stand-in level castle";
  const Case cases[] = {
      {"normal", true, {}, compiled},
      {"normal", false, {}, ""},  // without its wad the converter makes nothing
      {"nooutput", true, {}, ""},
      {"crash", true, {}, ""},
      {"hang", true, {{msg::kYes, "stuck"}, {msg::kYes, "\"castle.tr4\""}}, "TR4 half a level"},
      {"hang", true, {{msg::kYes, "stuck"}, {msg::kNo, "Keep"}}, ""},
      {"hang", true, {{msg::kNo, "stuck"}, {msg::kYes, "stuck"}, {msg::kNo, "Keep"}}, ""},
      // Looks every 600 ms while the work file grows every 10 ms for 1.5 s: never a question.
      {"slow 10 150", true, {}, compiled, 100},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.mode + " " + std::to_string(c.answers.size()));
    testing::TomFixture t;
    testing::ScaledWatchClock clock(c.divisor);
    t.program.SetWatchClock(&clock);
    const fs::path tom = t.editor / "maps/castle.tom";
    WriteBytes(tom, testing::TomSource(c.mode));
    if (c.with_wad) WriteBytes(t.editor / "graphics/wads/castle.was", "wad bytes");
    WriteBytes(t.editor / "data/castle.tr4", "an old compiled level");
    for (const auto& [result, contains] : c.answers) t.ui.Answer(result, contains);
    const std::string level = c.level;
    EXPECT_EQ(RunTomConverter(t.program, tom), !level.empty());
    EXPECT_EQ(fs::exists(t.editor / "data/castle.tr4"), !level.empty());
    EXPECT_TRUE(testing::ReadFile(t.editor / "data/castle.tr4").starts_with(level));
    // The first look comes after 5 s and never counts as stuck; each later one a minute apart.
    ASSERT_GE(clock.periods.size(), c.answers.empty() ? 1 : c.answers.size());
    EXPECT_EQ(clock.periods.front(), 5s);
    for (std::size_t i = 1; i < clock.periods.size(); ++i) EXPECT_EQ(clock.periods[i], 60s);
  }
}

TEST(TomConverter, ANativeConverterRunsOnlyWhenTheHomeAllowsIt) {
  testing::TomFixture t;
  fs::copy_file(testing::Standin("standin_echo"), t.editor / "tom2pc.exe",
                fs::copy_options::overwrite_existing);
  WriteBytes(t.editor / "maps/castle.tom", testing::TomSource("normal"));
  WriteBytes(t.editor / "graphics/wads/castle.was", "wad bytes");
  EXPECT_FALSE(RunTomConverter(t.program, t.editor / "maps/castle.tom"));
}

}  // namespace
}  // namespace vardolin
