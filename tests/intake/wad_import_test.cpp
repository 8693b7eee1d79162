#include <gtest/gtest.h>

#include "archive/editor_backup.h"
#include "foundation/services/files.h"
#include "intake/completeness.h"
#include "intake/dialog_add_wads.h"
#include "intake/dialog_scambia_nomi.h"
#include "intake/editor_script_files.h"
#include "store_fixture.h"
#include "tom_fixture.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace {

using namespace std::string_literals;
using testing::ReadFile;
using testing::WriteBytes;
namespace fs = std::filesystem;

const ScriptKeys kKeys{"[Level]", "Name=", 5, "Level=", ".tr4"};
const LanguageMarks kMarks{"[Strings]", "[PSXStrings]"};

constexpr auto& Entry = MakeScriptEntry;

TEST(ParseScriptFile, BlocksWithTheirFileAndName) {
  const std::string temple = "[Level]\r\nName=\t My Temple\r\nLevel=DATA\\MINE,105\r\n";
  const struct {
    const char* what;
    std::string bytes;
    std::string head;
    std::vector<std::string> entries;
  } cases[] = {
      {"head and block",
       "; mine\r\n" + temple,
       "; mine\r\n",
       {Entry("MINE.tr4", "My Temple", temple)}},
      {"LF-only lines read as CR LF",
       "; mine\n[level]\nname=A\nlevel=x\\A\n",
       "; mine\r\n",
       {Entry("A.tr4", "A", "[level]\r\nname=A\r\nlevel=x\\A\r\n")}},
      {"no head", temple, "", {Entry("MINE.tr4", "My Temple", temple)}},
      {"ends that change within a block, and a last line without one",
       "[Level]\r\nName=A\nLevel=x\\A\r\n[Level]\r\nName=B\r\nLevel=y\\B",
       "",
       {Entry("A.tr4", "A", "[Level]\r\nName=A\r\nLevel=x\\A\r\n"),
        Entry("B.tr4", "B", "[Level]\r\nName=B\r\nLevel=y\\B\r\n")}},
      {"a name in code page 1252 keeps its bytes",
       "[Level]\r\nName=Caf\xe9\r\nLevel=D\\C\r\n",
       "",
       {Entry("C.tr4", "Caf\xe9", "[Level]\r\nName=Caf\xe9\r\nLevel=D\\C\r\n")}},
      {"a block without its name empties all", temple + "[Level]\r\nLevel=D\\B\r\n", "", {}},
      {"a block without a backslash empties all",
       "h\r\n[Level]\r\nName=B\r\nLevel=B\r\n" + temple,
       "h\r\n",
       {}},
      {"two blocks for one file are both kept",
       temple + temple,
       "",
       {Entry("MINE.tr4", "My Temple", temple), Entry("MINE.tr4", "My Temple", temple)}},
  };
  for (const auto& c : cases) {
    std::string head = "stale";
    EXPECT_EQ(ParseScriptFile(c.bytes, kKeys, head), c.entries) << c.what;
    EXPECT_EQ(head, c.head) << c.what;
  }
}

TEST(ParseLanguageText, TheListOfStringsWithItsMarkerFirst) {
  const struct {
    const char* what;
    std::string bytes;
    std::vector<std::string> list;
    std::string head, tail;
  } cases[] = {
      {"three stretches",
       "[General]\r\nx\r\n[Strings]\r\nA\r\n\r\n; note\r\nB\r\n[PSXStrings]\r\nP\r\n",
       {"[Strings]", "A", "B"},
       "[General]\r\nx\r\n",
       "[PSXStrings]\r\nP\r\n"},
      {"LF-only, no end marker", "[strings]\nA\nB\n", {"[strings]", "A", "B"}, "", ""},
      {"no marker: all head", "A\r\nB\r\n", {}, "A\r\nB\r\n", ""},
  };
  for (const auto& c : cases) {
    std::string head, tail;
    EXPECT_EQ(ParseLanguageText(c.bytes, kMarks, head, tail), c.list) << c.what;
    EXPECT_EQ(head, c.head) << c.what;
    EXPECT_EQ(tail, c.tail) << c.what;
  }
}

TEST(WriteScriptFile, EachItemIsALineOfItsOwn) {
  testing::TempDir dir;
  const std::string block = "[Level]\r\nName=A\r\nLevel=D\\A\r\n";
  ASSERT_TRUE(WriteScriptFile(dir / "script.txt", {Entry("A.tr4", "A", block)}, "; h\r\n"));
  EXPECT_EQ(ReadFile(dir / "script.txt"), "; h\r\n\r\n" + block + "\r\n");
  ASSERT_TRUE(WriteLanguageText(dir / "english.txt", {"[Strings]", "A"}, "H\r\n", "T\r\n"));
  EXPECT_EQ(ReadFile(dir / "english.txt"), "H\r\n\r\n[Strings]\r\nA\r\nT\r\n\r\n");
  EXPECT_FALSE(WriteScriptFile(dir / "missing" / "script.txt", {}, ""));
}

// An editor folder with its script and texts, the safe copy of its files, the stand-in
// converter, and a package to import.
struct WadImport : testing::TomFixture {
  fs::path mirror = EditorBackupFolder(program);
  fs::path pack = dir / "pack";
  WadImport() {
    for (const fs::path& root : {editor, mirror}) {
      WriteBytes(root / "script" / "script.txt",
                 "; the editor's script\r\n[Level]\r\nName=Tutorial\r\nLevel=DATA\\TUT1,101\r\n");
      WriteBytes(root / "script" / "english.txt",
                 "[General]\r\n[Strings]\r\nTutorial\r\nLara's Home\r\n[PSXStrings]\r\n");
    }
    fs::create_directories(pack);
  }
  // The pack's script pieces: a block and a name for each level file.
  void PackScript(const std::vector<std::pair<std::string, std::string>>& levels) {
    std::string script = "; pieces\r\n", names = "[Strings]\r\nfirst\r\n";
    for (const auto& [file, name] : levels) {
      script += "[Level]\r\nName=" + name + "\r\nLevel=DATA\\" + file + ",105\r\n";
      names += name + "\r\n";
    }
    WriteBytes(pack / "script.txt", script);
    WriteBytes(pack / "english.txt", "[General]\r\n" + names + "[PSXStrings]\r\n");
  }
  // The dialog with the pack's files listed, as after "add from folder".
  std::unique_ptr<Dialog_AddWads> Listed() {
    auto dialog = std::make_unique<Dialog_AddWads>(program);
    dialog->Load();
    dialog->ImpostaValori({});
    for (const auto& e : fs::directory_iterator(pack))
      fs::copy_file(e.path(), dialog->ImportFolder / e.path().filename());
    dialog->RefreshFileList();
    return dialog;
  }
  std::string Import() {
    auto dialog = Listed();
    ui.Answer(msg::kOk, "finished");
    dialog->Pul_Import.Click();
    EXPECT_TRUE(dialog->ImportDone);
    EXPECT_FALSE(FolderExists(dialog->ImportFolder));
    return dialog->Text_Prospetto.Text();
  }
};

TEST(WadImport, EachFileGoesToItsPlaceInTheEditorAndItsBackup) {
  WadImport t;
  const struct {
    const char* file;
    std::string place;  // below the editor and its backup; empty: nowhere
    const char* report;
  } cases[] = {
      {"temple.was", "graphics/wads/temple.was", "temple.was -> editor\\graphics\\wads\\  [ok]"},
      {"temple.tom", "graphics/wads/temple.tom", "temple.tom  -> compiled"},
      {"broken.tom", "graphics/wads/broken.tom", "broken.tom  -> NOT compiled"},
      {"temple.prj", "maps/temple/temple.prj", "temple.prj -> editor\\maps\\temple\\"},
      {"tem_rock.tga", "maps/temple/tem_rock.tga", "tem_rock.tga -> editor"},
      {"zzz_sky.tga", "", "zzz_sky.tga  -> not used"},
      {"load.bmp", "pix/load.bmp", "load.bmp -> editor\\pix\\"},
      {"044.wav", "audio/044.wav", "044.wav -> editor\\audio\\"},
      {"plugin.dll", "plugin.dll", "plugin.dll -> editor\\  [ok]"},
      {"notes.doc", "", "notes.doc  -> not used"},
      {"readme.txt", "", ""},
      // A 4-bit wave that no number names leaves the import folder only; the file that takes
      // its place in the list (zzz_sky.tga) is still sorted.
      {"theme.wav", "", ""},
  };
  for (const auto& c : cases) WriteBytes(t.pack / c.file, std::string("new ") + c.file);
  // A 4-bit wave is music when a number names it.
  std::string wave =
      "RIFF\x24\0\0\0WAVEfmt \x14\0\0\0\x02\0\x02\0\x44\xac\0\0\0\0\0\0\0\x08\x04\0"s;
  WriteBytes(t.pack / "044.wav", wave);
  WriteBytes(t.pack / "theme.wav", wave);
  WriteBytes(t.pack / "broken.tom", testing::TomSource("nooutput"));
  t.ui.Answer(msg::kOk, "theme.wav")
      .Answer(msg::kNo, "\"broken.tom\"")
      .Answer(msg::kOk, "no level block");
  const std::string report = t.Import();
  for (const auto& c : cases) {
    if (*c.report) EXPECT_NE(report.find(c.report), std::string::npos) << c.file << "\n" << report;
    if (c.place.empty()) continue;
    EXPECT_TRUE(FileExists(t.editor / c.place)) << c.file;
    EXPECT_TRUE(FileExists(t.mirror / c.place)) << c.file;
  }
  EXPECT_EQ(report.find("readme.txt"), std::string::npos);
  EXPECT_EQ(report.find("theme.wav"), std::string::npos);
  EXPECT_EQ(ReadFile(t.editor / "graphics/wads/temple.was"), "new temple.was");
  EXPECT_TRUE(FileExists(t.mirror / "data/temple.tr4"));
}

// Through the zip, as the level intake hands one over: the dialog runs by itself, the map is
// compiled with the wad that came with it.
TEST(WadImport, AZipsLevelBlockAndNameAreMergedIntoTheEditorsTexts) {
  WadImport t;
  t.PackScript({{"MINE", "My Temple"}});
  WriteBytes(t.pack / "mine.tom", testing::TomSource("normal"));
  WriteBytes(t.pack / "mine.was", "wad");
  const fs::path zip = t.dir / "mine_wads.zip";
  ASSERT_TRUE(ZipFolderToFile(t.program, t.pack, zip, nullptr, false));
  std::string proposed;
  t.ui.OnForm("Dialog_AddWads", [](Form& f) { f.Find<Timer>("Timer1")->Tick(); })
      .OnForm("Dialog_ScambiaNomi",
              [&](Form& f) {
                auto& d = static_cast<Dialog_ScambiaNomi&>(f);
                EXPECT_EQ(d.Label_OldName.Caption(), "My Temple");
                proposed = d.Text_NuovoNome.Text();
                d.Text_NuovoNome.SetText("  ");
                d.Pul_Ok.Click();  // refused with text 777, the form stays
                d.Text_NuovoNome.SetText("Temple of Mine");
                d.Pul_Ok.Click();
              })
      .Answer(msg::kOk, "can't be empty")
      .Answer(msg::kOk, "finished");
  ASSERT_TRUE(ImportWadZip(t.program, zip));
  EXPECT_TRUE(t.ui.Done());
  EXPECT_EQ(proposed, "Lara's Home");
  const std::string script =
      "; the editor's script\r\n\r\n"
      "[Level]\r\nName=Tutorial\r\nLevel=DATA\\TUT1,101\r\n\r\n"
      "[Level]\r\nName=My Temple\r\nLevel=DATA\\MINE,105\r\n\r\n";
  const std::string names =
      "[General]\r\n\r\n[Strings]\r\nTutorial\r\nTemple of Mine\r\n[PSXStrings]\r\n\r\n";
  for (const fs::path& root : {t.editor, t.mirror}) {
    EXPECT_EQ(ReadFile(root / "script" / "script.txt"), script) << root;
    EXPECT_EQ(ReadFile(root / "script" / "english.txt"), names) << root;
    EXPECT_EQ(ReadFile(root / "english.txt"), names) << root;
    // The stand-in converter's level holds the map and its wad.
    const std::string level = ReadFile(root / "data" / "mine.tr4");
    EXPECT_NE(level.find("tom2pc normal"), std::string::npos) << root;
    EXPECT_NE(level.find("wad"), std::string::npos) << root;
    EXPECT_EQ(ReadFile(root / "graphics" / "wads" / "mine.was"), "wad") << root;
  }
}

TEST(WadImport, MergeEdgeCases) {
  const struct {
    const char* what;
    std::vector<std::pair<std::string, std::string>> blocks;  // file, name in the pack's script
    const char* level;                                        // compiled, it comes with its map
    const char* before;  // the editor's list of strings after its marker; null: can't be written
    const char* told;
    const char* merged;  // the name of the one block merged, empty: none
    const char* after;   // the editor's list afterwards
  } cases[] = {
      {"first of two blocks wins",
       {{"MINE", "A"}, {"MINE", "B"}},
       "mine",
       "T\r\nX\r\n",
       "",
       "A",
       "T\r\nA\r\n"},
      {"a level of the baseline gets no block", {{"TUT1", "A"}}, "tut1", "T\r\n", "", "", "T\r\n"},
      {"a short editor list gets the name appended", {{"MINE", "A"}}, "mine", "", "", "A", "A\r\n"},
      {"a new level without a block", {{"OTHER", "A"}}, "mine", "T\r\n", "mine.tr4", "", "T\r\n"},
      {"a language text that can't be written",
       {{"MINE", "A"}},
       "mine",
       nullptr,
       "english could not be written",
       "A",
       nullptr},
  };
  for (const auto& c : cases) {
    WadImport t;
    const fs::path names_file = t.editor / "script" / "english.txt";
    if (c.before) {
      WriteBytes(names_file, std::string("[Strings]\r\n") + c.before + "[PSXStrings]\r\n");
    } else {  // a folder in its place: nothing can write over it
      fs::remove(names_file);
      fs::create_directory(names_file);
    }
    t.PackScript(c.blocks);
    WriteBytes(t.pack / (std::string(c.level) + ".tr4"), "new level");
    WriteBytes(t.pack / (std::string(c.level) + ".tom"), "map");
    if (*c.merged)
      t.ui.OnForm("Dialog_ScambiaNomi", [](Form& f) { f.Find<Button>("Pul_UsaOld")->Click(); });
    if (*c.told) t.ui.Answer(msg::kOk, c.told);
    t.Import();
    EXPECT_TRUE(t.ui.Done()) << c.what;
    std::string head, tail;
    const auto blocks = ReadScriptFile(t.program, t.editor / "script" / "script.txt", head);
    ASSERT_EQ(blocks.size(), *c.merged ? 2u : 1u) << c.what;
    if (*c.merged) EXPECT_EQ(ScriptEntryField(blocks[1], 1), c.merged) << c.what;
    if (!c.after) continue;
    std::string list;
    for (const std::string& line : ReadLanguageText(t.program, names_file, head, tail))
      list += line + "\r\n";
    EXPECT_EQ(list, std::string("[Strings]\r\n") + c.after) << c.what;
  }
}

TEST(WadImport, TheReportGoesToThePrinter) {
  WadImport t;
  WriteBytes(t.pack / "temple.was", "w");
  auto dialog = t.Listed();
  t.ui.Answer(msg::kOk, "no report to print");
  dialog->Pul_Print.Click();
  t.ui.Answer(msg::kOk, "no level block").Answer(msg::kOk, "finished");
  dialog->Pul_Import.Click();
  dialog->Pul_Print.Click();
  ASSERT_EQ(t.ui.printed.size(), 1u);
  EXPECT_EQ(t.ui.printed[0].text, dialog->Text_Prospetto.Text());
  t.ui.print_result = PrintResult::Failed;
  t.ui.Answer(msg::kOk, "could not be printed");
  dialog->Pul_Print.Click();
  EXPECT_TRUE(t.ui.Done());
}

// A level source that needs one of the editor's standard wads fetches the pack the user has
// and imports it; another name has no pack to come from.
TEST(RequireNewWad, TheStandardWadsComeThroughTheImport) {
  WadImport t;
  WriteBytes(t.pack / "angkor.was", "the pack's wad");
  const fs::path zip = t.dir / "new_wads_all.zip";
  ASSERT_TRUE(ZipFolderToFile(t.program, t.pack, zip, nullptr, false));
  EXPECT_FALSE(RequireNewWad(t.program, "mine.tom"));
  t.ui.Answer(msg::kYes, "angkor.wad")
      .Answer(msg::kYes, "new_wads_all.zip")
      .OpenFile(zip.string())
      .OnForm("Dialog_AddWads", [](Form& f) { f.Find<Timer>("Timer1")->Tick(); })
      .Answer(msg::kOk, "no level block")
      .Answer(msg::kOk, "finished");
  EXPECT_TRUE(RequireNewWad(t.program, "angkor.tom"));
  EXPECT_TRUE(t.ui.Done());
  EXPECT_EQ(ReadFile(t.editor / "graphics/wads/angkor.was"), "the pack's wad");
}

}  // namespace
}  // namespace vardolin
