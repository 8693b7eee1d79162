// Levels that come as sources (.tom) end to end: the package goes through the level
// properties, the stand-in converter compiles its sources in the editor folder, and the level
// it made plays.

#include <gtest/gtest.h>

#include "archive/level_store.h"
#include "archive_writer.h"
#include "foundation/services/native_programs.h"
#include "intake/add_level.h"
#include "intake/dialog_assistant.h"
#include "intake/dialog_new_level.h"
#include "play/active_level.h"
#include "play_fixture.h"
#include "tom_fixture.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;
using testing::TomSource;

struct CompileFixture : testing::PlayFixture {
  CompileFixture() : testing::PlayFixture({"Base", "Old level"}) {
    program.prefs.LastArchive = (archive / "levels.vdc").string();
    program.prefs.NoDecompress = true;
    program.lists = BuildDataLists();
    fs::copy_file(testing::Standin("standin_tom2pc"), editor / "tom2pc.exe",
                  fs::copy_options::overwrite_existing);
    AllowNativeProgram(program.Home(), editor / "tom2pc.exe");
  }
  // `by_button`: the sources are compiled by the form's button before Done.
  std::optional<std::int32_t> Add(const fs::path& package, std::function<void()> questions,
                                  bool by_button = false) {
    ui.OnForm("Dialog_NewLevel", [by_button](Form& f) {
      auto& d = static_cast<Dialog_NewLevel&>(f);
      if (by_button) d.Pul_CompileTom.Click();
      d.Pul_Ok.Click();
      EXPECT_FALSE(d.IsLoaded()) << "Done stored the level";
    });
    questions();
    return AddLevel(program, package.string());
  }
};

TEST(CompileLevel, APackageOfTwoSourcesAndTheirWadSetsBecomesALevelThatPlays) {
  CompileFixture f;
  const auto editor_before = testing::Snapshot(f.editor, true);
  const fs::path zip = f.dir / "Twin Towers.zip";
  testing::WriteArchive(zip, {{"Twin Towers/north.tom", TomSource("normal")},
                              {"Twin Towers/north.was", "north wad"},
                              {"Twin Towers/north.wad", "north objects"},
                              {"Twin Towers/south.tom", TomSource("normal")},
                              {"Twin Towers/south.was", "south wad"},
                              {"Twin Towers/south.swd", "south sprites"},
                              {"Twin Towers/script.dat", "script"},
                              {"Twin Towers/readme.txt", "Wads: north.was, south.was"}});
  const auto code = f.Add(
      zip, [&] { f.ui.Answer(msg::kYes, "sources"); },  // their wads are checked
      true);
  ASSERT_TRUE(code);
  const fs::path files = GetLevelFolder(f.program, *code, false) / "files";
  EXPECT_EQ(testing::Names(testing::Snapshot(files)),
            (std::vector<std::string>{"north.tr4", "readme.txt", "script.dat", "south.tr4"}));
  EXPECT_EQ(testing::Snapshot(f.editor, true), editor_before);
  // It plays: the game finds the level the stand-in converter made in the editor folder.
  RefreshLevelList(*f.main);
  f.main->Combo_Livelli.SetListIndex(f.main->Combo_Livelli.FindData(*code));
  f.main->Pul_Play.Click();
  EXPECT_TRUE(f.program.GameRunning);
  EXPECT_EQ(ReadFile(f.editor / "data/south.tr4"),
            "TR4 stand-in level south\n" + TomSource("normal") + "south wad");
  f.EndGame();
  EXPECT_TRUE(f.TickUntilEnded());
}

TEST(CompileLevel, ASourceWithoutItsWadSetIsLinkedByTheReadmeAnalysis) {
  CompileFixture f;
  const fs::path zip = f.dir / "Keep.zip";
  testing::WriteArchive(
      zip, {{"Keep/keep.tom", TomSource("normal")},
            {"Keep/fort.was", "fort wad"},
            {"Keep/fortress.was", "fortress wad"},
            {"Keep/script.dat", "script"},
            {"Keep/install.txt", "To build it, compile keep.tom with the wads fortress.* set."}});
  const auto code = f.Add(zip, [&] {
    f.ui.Answer(msg::kOk, "compile");
    f.ui.Answer(msg::kYes, "sources");
    f.ui.Answer(msg::kOk, "\"keep.tom\"");  // no wad: the assistant helps
    f.ui.OnForm("Dialog_Assistant", [](Form& form) {
      auto& a = static_cast<Dialog_Assistant&>(form);
      EXPECT_EQ(a.List_Readme.SelectedText(), "install.txt");
      a.Pul_AutoAnalisi.Click();
      EXPECT_TRUE(a.ReportedDone);
    });
    f.ui.Answer(msg::kOk, "install.txt");  // the analysis reads it
    f.ui.Answer(msg::kYes, "keep is compiled with fortress");
    f.ui.Answer(msg::kOk, "linked");   // back in the properties
    f.ui.Answer(msg::kOk, "sources");  // the wads checked once more
  });
  ASSERT_TRUE(code);
  const fs::path files = GetLevelFolder(f.program, *code, false) / "files";
  EXPECT_NE(ReadFile(files / "keep.tr4").find("fortress wad"), std::string::npos);
}

TEST(ReadmeAnalysis, FindsTheWadSetNamedNearTheSource) {
  struct Case {
    std::string text;
    std::vector<std::string> sources, wads, expected;
  };
  const Case cases[] = {
      {"Use castle.wad for castle.tom", {"castle"}, {"castle", "tower"}, {"castle"}},
      // Inside a longer word: only the name and a dot are looked for.
      {"see bigcastle.tom (uses tower.was)", {"castle"}, {"tower"}, {"tower"}},
      // Several in the window: the longest common start wins, the earlier on a tie.
      {"lab.tom: lab2.was or lax.was", {"lab"}, {"lax", "lab2"}, {"lab2"}},
      {"x.tom: b.was, a.was", {"x"}, {"a", "b"}, {"a"}},
      // Too far away: 40 characters before, 80 in all.
      {"x.tom" + std::string(90, ' ') + "far.was", {"x"}, {"far"}, {""}},
      // No candidate at the first place: the search goes on behind it.
      {"x.tom alone. Later: x.tom with y.was", {"x"}, {"y"}, {"y"}},
      {"nothing here", {"x", "y"}, {"y"}, {"", ""}},
  };
  for (const Case& c : cases)
    EXPECT_EQ(MatchWadSetsInText(c.text, c.sources, c.wads), c.expected) << c.text;
}

}  // namespace
}  // namespace vardolin
