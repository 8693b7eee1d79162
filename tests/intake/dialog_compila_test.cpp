// Compiling a level's sources in the borrowed editor folder: whichever way the dialog is left,
// and when the program is killed between two of its steps, the editor folder ends as it began.
#include "intake/dialog_compila.h"

#include <gtest/gtest.h>

#include "archive/leftovers.h"
#include "editor/tom_converter.h"
#include "fault_child.h"
#include "tom_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::TomSource;
using testing::WriteBytes;

constexpr const char* kChildVariable = "VARDOLIN_COMPILA_CHILD";

// A level with one source, its wad set (a side file among it) and a readme; the editor holds a
// wad and a compiled level of the same name of its own, which must come back.
void PrepareLevel(const fs::path& root, const std::string& mode) {
  WriteBytes(root / "level/castle.tom", TomSource(mode));
  WriteBytes(root / "level/castle.was", "the level's wad");
  WriteBytes(root / "level/castle.swd", "the level's swd");
  WriteBytes(root / "level/castle.txt", "the level's sound list");
  WriteBytes(root / "level/readme.txt", "Compile castle.tom with castle.was");
  WriteBytes(root / "trle/graphics/wads/castle.was", "the editor's own wad");
  WriteBytes(root / "trle/data/castle.tr4", "the editor's own level");
}

TEST(DialogCompila, EveryWayOutGivesTheEditorFolderBack) {
  using Answers = std::vector<std::pair<int, const char*>>;
  const Answers gave_up = {{msg::kNo, "\"castle.tom\""}, {msg::kOk, "did not compile"}};
  struct Case {
    const char* name;
    std::string mode;
    Answers answers;
    std::function<void(Dialog_Compila&)> act;  // the user in the dialog; none: done at once
    bool compiled;
  };
  const Case cases[] = {
      {"compiled at once", "normal", {}, nullptr, true},
      {"no output, cancelled", "nooutput", gave_up, [](auto& d) { d.Pul_Annulla.Click(); }},
      {"stuck, stopped, closed",
       "hang",
       {{msg::kYes, "stuck"}, {msg::kNo, "Keep"}, gave_up[0], gave_up[1]},
       [](auto& d) { d.Unload(); }},
      {"crashed, Done stays, Cancel",
       "crash",
       {gave_up[0], gave_up[1], {msg::kOk, "castle.tr4"}},
       [](auto& d) {
         d.Pul_Done.Click();
         d.Pul_Annulla.Click();
       }},
      // With auto-compile off the user runs the converter on the source lent to the maps.
      {"by hand, Done",
       "normal",
       {},
       [](auto& d) {
         ASSERT_TRUE(
             RunTomConverter(d.program(), d.program().prefs.EditorFolder + "/maps/castle.tom"));
         d.Pul_Done.Click();
       },
       true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    testing::TomFixture t;
    PrepareLevel(t.dir.path(), c.mode);
    t.program.prefs.NoAutoCompile = c.name == std::string("by hand, Done");
    const auto before = testing::Snapshot(t.editor, true);
    for (const auto& [result, contains] : c.answers) t.ui.Answer(result, contains);
    {
      Dialog_Compila d(t.program);
      d.ImpostaValori(t.dir / "level", 1);
      if (c.act) {
        // While the dialog is up the editor holds the level's set, not its own.
        EXPECT_EQ(ReadFile(t.editor / "graphics/wads/castle.was"), "the level's wad");
        EXPECT_EQ(ReadFile(t.editor / "graphics/wads/castle.txt"), "the level's sound list");
        c.act(d);
      }
      EXPECT_EQ(d.ReportedDone, c.compiled);
    }
    EXPECT_EQ(testing::Snapshot(t.editor, true), before);
    EXPECT_TRUE(t.ui.Done());
    // A compiled level keeps no sources and no wad set; the readme stays either way.
    const fs::path level = t.dir / "level";
    EXPECT_EQ(fs::exists(level / "castle.tom"), !c.compiled);
    EXPECT_EQ(fs::exists(level / "castle.was"), !c.compiled);
    EXPECT_TRUE(fs::exists(level / "readme.txt"));
    EXPECT_EQ(
        ReadFile(level / "castle.tr4"),
        c.compiled ? "TR4 stand-in level castle\n" + TomSource(c.mode) + "the level's wad" : "");
  }
}

TEST(DialogCompila, ALevelWithoutSourcesIsDoneAtOnce) {
  testing::TomFixture t;
  WriteBytes(t.dir / "level/castle.tr4", "compiled");
  t.ui.Answer(msg::kOk, "no level source");
  Dialog_Compila d(t.program);
  d.ImpostaValori(t.dir / "level", 1);
  EXPECT_TRUE(d.ReportedDone);
}

// Runs only as the child: a compile killed where the fault point says.
TEST(DialogCompilaKillChild, Compile) {
  const auto job = testing::ReadFaultJob(kChildVariable);
  if (!job) GTEST_SKIP() << "runs as the kill test's child";
  testing::ScriptedUi ui;
  ui.AllowAnyMessage(msg::kNo);
  LinuxPlatform platform;
  Program program(job->root / "home", ui, platform);
  testing::SetUpTomProgram(program, job->root);
  Dialog_Compila d(program);
  d.ImpostaValori(job->root / "level", 1);
}

TEST(DialogCompila, AKilledCompileIsPutRightByTheNextStart) {
  int kills = 0;
  for (int n = 1; n < 40; ++n) {
    SCOPED_TRACE(n);
    testing::TempDir dir;
    testing::PrepareTomScene(dir.path());
    PrepareLevel(dir.path(), "normal");
    const auto before = testing::Snapshot(dir / "trle", true);
    const int killed = testing::RunFaultChild("DialogCompilaKillChild.Compile", kChildVariable,
                                              "compile|" + dir.path().string(),
                                              "folder-loan:" + std::to_string(n));
    kills += killed;
    testing::ChildProgram next(dir / "home");
    EXPECT_EQ(ClearLeftovers(next.program) > 0, killed == 1);
    EXPECT_EQ(testing::Snapshot(dir / "trle", true), before);
    if (!killed) break;
  }
  EXPECT_GE(kills, 8);
}

}  // namespace
}  // namespace vardolin
