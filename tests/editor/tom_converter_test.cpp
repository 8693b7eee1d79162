// The converter run: the stand-in tom2pc behaves as told by its source, the watch clock runs a
// minute in milliseconds.
#include "editor/tom_converter.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "tom_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ReadFile;
using testing::TomSource;
using testing::WriteBytes;

struct Answer {
  int result;
  const char* contains;
};

TEST(TomConverter, WatchesAndAsksOnlyWhenTheFilesStopGrowing) {
  struct Case {
    const char* name;
    std::string mode;
    bool with_wad;
    std::vector<Answer> answers;
    bool compiled;
    const char* level_starts;  // the compiled level's head, when it stands
    int divisor = 1000;
  };
  const Case cases[] = {
      {"compiles", "normal", true, {}, true, "TR4 stand-in level castle"},
      {"no wad: no level", "normal", false, {}, false, ""},
      {"ends without output", "nooutput", true, {}, false, ""},
      {"crashes", "crash", true, {}, false, ""},
      {"stuck, stopped, half level kept",
       "hang",
       true,
       {{msg::kYes, "stuck"}, {msg::kYes, "\"castle.tr4\""}},
       true,
       "TR4 half a level"},
      {"stuck, stopped, half level dropped",
       "hang",
       true,
       {{msg::kYes, "stuck"}, {msg::kNo, "Keep"}},
       false,
       ""},
      {"stuck, left to run, then stopped",
       "hang",
       true,
       {{msg::kNo, "stuck"}, {msg::kYes, "stuck"}, {msg::kNo, "Keep"}},
       false,
       ""},
      // Looks every 600 ms while the work file grows every 10 ms for 1.5 s: never a question.
      {"writes slowly", "slow 10 150", true, {}, true, "TR4 stand-in level castle", 100},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    testing::TomFixture t;
    testing::ScaledWatchClock clock(c.divisor);
    t.program.SetWatchClock(&clock);
    const fs::path tom = t.editor / "maps/castle.tom";
    WriteBytes(tom, TomSource(c.mode));
    if (c.with_wad) WriteBytes(t.editor / "graphics/wads/castle.was", "wad bytes");
    WriteBytes(t.editor / "data/castle.tr4", "an old compiled level");
    for (const Answer& a : c.answers) t.ui.Answer(a.result, a.contains);
    EXPECT_EQ(RunTomConverter(t.program, tom), c.compiled);
    EXPECT_TRUE(t.ui.Done());
    const fs::path level = t.editor / "data/castle.tr4";
    EXPECT_EQ(fs::exists(level), c.compiled);
    if (c.compiled) EXPECT_TRUE(ReadFile(level).starts_with(c.level_starts));
    if (c.mode == "hang") {
      // The first look comes after 5 s and never counts; each later one a minute apart.
      ASSERT_GE(clock.periods.size(), c.answers.size());
      EXPECT_EQ(clock.periods.front(), 5s);
      for (std::size_t i = 1; i < clock.periods.size(); ++i) EXPECT_EQ(clock.periods[i], 60s);
    }
  }
}

TEST(TomConverter, AskingRunsAgainUntilTheUserGivesUp) {
  testing::TomFixture t;
  const fs::path tom = t.editor / "maps/castle.tom";
  WriteBytes(tom, TomSource("normal"));
  t.ui.Answer(msg::kYes, "\"castle.tom\"");
  // The second try finds the wad the user put in meanwhile.
  t.ui.Answer(msg::kNo, "\"castle.tom\"");
  EXPECT_FALSE(RunTomConverterAsking(t.program, tom));
  WriteBytes(t.editor / "graphics/wads/castle.was", "wad bytes");
  EXPECT_TRUE(RunTomConverterAsking(t.program, tom));
}

TEST(TomConverter, ANativeConverterRunsOnlyWhenTheHomeAllowsIt) {
  testing::TomFixture t;
  fs::copy_file(testing::Standin("standin_echo"), t.editor / "tom2pc.exe",
                fs::copy_options::overwrite_existing);
  const fs::path tom = t.editor / "maps/castle.tom";
  WriteBytes(tom, TomSource("normal"));
  WriteBytes(t.editor / "graphics/wads/castle.was", "wad bytes");
  EXPECT_FALSE(RunTomConverter(t.program, tom));
}

TEST(IsWadSetFile, TheSetsExtensionsAndSideFilesWithTheirWad) {
  testing::TomFixture t;
  WriteBytes(t.dir / "set/castle.wad", "w");
  WriteBytes(t.dir / "set/tower.WAS", "w");
  const std::pair<const char*, bool> cases[] = {
      {"castle.SWD", true}, {"castle.tom", true},  {"castle.txt", true},
      {"tower.tga", true},  {"castle.tga", true},  {"readme.txt", false},
      {"ruins.tga", false}, {"castle.tr4", false}, {"castle.wav", false},
  };
  for (const auto& [name, expected] : cases)
    EXPECT_EQ(IsWadSetFile(t.program, t.dir / "set" / name), expected) << name;
}

}  // namespace
}  // namespace vardolin
