// Compiling a level's sources in the borrowed editor folder: whichever way the dialog is left,
// and when the program is killed between two of its steps, the editor folder ends as it began.
#include "intake/dialog_compila.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>

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
  struct Case {
    const char* name;
    std::string mode;
    bool no_auto_compile;
    std::function<void(testing::TomFixture&)> script;  // answers, before the dialog prepares
    std::function<void(Dialog_Compila&)> act;          // what the user does in the dialog
    bool compiled;
  };
  const Case cases[] = {
      {"compiled at once", "normal", false, [](auto&) {}, nullptr, true},
      {"converter fails, cancelled", "nooutput", false,
       [](testing::TomFixture& t) {
         t.ui.Answer(msg::kNo, "\"castle.tom\"").Answer(msg::kOk, "did not compile");
       },
       [](Dialog_Compila& d) { d.Pul_Annulla.Click(); }, false},
      {"stuck converter stopped, closed", "hang", false,
       [](testing::TomFixture& t) {
         t.ui.Answer(msg::kYes, "stuck").Answer(msg::kNo, "Keep");
         t.ui.Answer(msg::kNo, "\"castle.tom\"").Answer(msg::kOk, "did not compile");
       },
       [](Dialog_Compila& d) { d.Unload(); }, false},
      {"crashed converter, Done then Cancel", "crash", false,
       [](testing::TomFixture& t) {
         t.ui.Answer(msg::kNo, "\"castle.tom\"").Answer(msg::kOk, "did not compile");
         t.ui.Answer(msg::kOk, "\"castle.tr4\"");
       },
       [](Dialog_Compila& d) {
         d.Pul_Done.Click();
         EXPECT_FALSE(d.ReportedDone);
         d.Pul_Annulla.Click();
       },
       false},
      {"no auto compile: the user runs the converter, Done", "normal", true, [](auto&) {},
       [](Dialog_Compila& d) {
         ASSERT_TRUE(
             RunTomConverter(d.program(), d.program().prefs.EditorFolder + "/maps/castle.tom"));
         d.Pul_Done.Click();
         EXPECT_TRUE(d.ReportedDone);
       },
       true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    testing::TomFixture t;
    PrepareLevel(t.dir.path(), c.mode);
    t.program.prefs.NoAutoCompile = c.no_auto_compile;
    const auto before = testing::FolderState(t.editor);
    c.script(t);
    {
      Dialog_Compila d(t.program);
      d.ImpostaValori(t.dir / "level", 1);
      EXPECT_EQ(d.ReportedDone, !c.act);
      if (c.act) {
        // While the dialog is up the editor holds the level's set, not its own.
        EXPECT_EQ(ReadFile(t.editor / "graphics/wads/castle.was"), "the level's wad");
        EXPECT_EQ(ReadFile(t.editor / "graphics/wads/castle.txt"), "the level's sound list");
        EXPECT_EQ(ReadFile(t.editor / "maps/castle.tom"), TomSource(c.mode));
        c.act(d);
      }
    }
    EXPECT_EQ(testing::FolderState(t.editor), before);
    EXPECT_TRUE(t.ui.Done());
    const fs::path level = t.dir / "level";
    EXPECT_EQ(fs::exists(level / "castle.tr4"), c.compiled);
    // A compiled level keeps no sources and no wad set; readme stays either way.
    EXPECT_EQ(fs::exists(level / "castle.tom"), !c.compiled);
    EXPECT_EQ(fs::exists(level / "castle.was"), !c.compiled);
    EXPECT_TRUE(fs::exists(level / "readme.txt"));
    if (c.compiled) {
      const std::string tr4 = ReadFile(level / "castle.tr4");
      EXPECT_NE(tr4.find("the level's wad"), std::string::npos);
    }
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
    const auto before = testing::FolderState(dir / "trle");
    const int killed = testing::RunFaultChild("DialogCompilaKillChild.Compile", kChildVariable,
                                              "compile|" + dir.path().string(),
                                              "folder-loan:" + std::to_string(n));
    kills += killed;
    testing::ChildProgram next(dir / "home");
    EXPECT_EQ(ClearLeftovers(next.program) > 0, killed == 1);
    EXPECT_EQ(testing::FolderState(dir / "trle"), before);
    if (!killed) break;
  }
  EXPECT_GE(kills, 8);
}

}  // namespace
}  // namespace vardolin
