#include <gtest/gtest.h>

#include "audio/wave_header.h"
#include "editor/dialog_installa_trle.h"
#include "editor/find_editor.h"
#include "editor/install_editor.h"
#include "editor_package.h"
#include "editor_test_fixture.h"
#include "foundation/forms/controls.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/services/native_programs.h"
#include "test_program.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

// A program on the real platform (the demo levels are compiled by a child process), with the
// Wine prefix and the desktop's folders inside the test's folder.
struct InstallTest {
  TempDir dir;
  ScopedWinePrefix prefix{dir / "wine"};
  ScopedEnv data{"XDG_DATA_HOME", (dir / "xdg").string()};
  ScopedEnv config{"XDG_CONFIG_HOME", (dir / "config").string()};
  ScriptedUi ui;
  LinuxPlatform platform;
  Program program{dir / "home", ui, platform};
  Form form{program, "Dialog_InstallaTrle"};
  Label label{form, "Label_Info"};
  ProgressBar bar{form, "ProgressBar1"};
  fs::path target = dir / "wine/drive_c/Program Files/Core Design/trle";
  InstallTest() {
    MakeTestHome(dir / "home");
    CopyInstalledList(dir / "home");
    program.texts.EnglishTexts = ReadEnglishForTests();
    AllowNativeProgram(program.Home(), Standin("standin_tom2pc"));
  }
  bool Install(const std::vector<fs::path>& zips, int language) {
    std::vector<std::string> names;
    for (const fs::path& zip : zips) names.push_back(zip.string());
    return InstallEditor(program, true, language, {}, label, bar, names, nullptr);
  }
};

TEST(InstallEditorTest, TheCompressedSetupInstallsRegistersAndMakesTheMenu) {
  InstallTest t;
  auto zips = BuildEditorPackage(t.program, t.dir / "package", {.parts = 3});
  t.ui.Answer(msg::kOk, "from the zip files").Answer(msg::kOk, "has been installed");
  int top = 0;  // the end is said with the bar full
  t.bar.Subscribe([&](Control&, Change) { top = std::max(top, t.bar.Value()); });
  ASSERT_TRUE(t.Install(zips, 1));
  EXPECT_EQ(top, 100);
  EXPECT_EQ(t.bar.Value(), 0);
  EXPECT_EQ(t.program.prefs.EditorFolder, t.target.string());
  EXPECT_TRUE(CheckEditorFolder(t.program, t.target.string(), false));
  // The registry leads the search for the editor back to it.
  EXPECT_EQ(FindEditorInRegistry(t.program), t.target.string());
  // Italian: its language file, its manual only, the splash as a bitmap, the sets in place.
  EXPECT_EQ(ReadFile(t.target / "italian.dat"), "testi");
  EXPECT_TRUE(ReadFile(t.target / "data/demo.tr4").starts_with("TR4 stand-in level demo"));
  EXPECT_TRUE(fs::exists(t.target / "docs/manual_ita.pdf"));
  EXPECT_FALSE(fs::exists(t.target / "docs/manual_eng.pdf"));
  EXPECT_TRUE(fs::exists(t.target / "load.bmp"));
  EXPECT_FALSE(fs::exists(t.target / "load_fr.jpg"));
  // The audio sets in the game's forms; what the music's mask leaves out stays.
  std::string form;
  int music = 0, sample = 0;
  ClassifyWave(t.program, t.target / "audio/044.wav", 0, form, music);
  ClassifyWave(t.program, t.target / "sound/samples/step.wav", 0, form, sample);
  EXPECT_EQ(music * 10 + sample, wave_kind::kMusic * 10 + wave_kind::kSample);
  EXPECT_TRUE(fs::exists(t.target / "audio_set/046.mp3"));
  EXPECT_TRUE(fs::is_empty(t.target / "sound_set"));
  EXPECT_FALSE(fs::exists(t.target.parent_path() / "trle_files.txt"));
  fs::path menu = t.dir / "xdg/applications/Core Design/Editor dei livelli di Tomb Raider";
  EXPECT_NE(ReadFile(menu / "Avvia Tomb Raider.desktop").find("tomb4.exe\""), std::string::npos);
  EXPECT_TRUE(fs::exists(menu / "Strumenti/Convertitore dei livelli.desktop"));
  EXPECT_TRUE(fs::exists(menu / "Documentazione/Manuale.desktop"));
  EXPECT_NE(ReadFile(menu / "Collegamenti Web/Core Design on the web.desktop").find("URL="),
            std::string::npos);
  EXPECT_FALSE(fs::exists(t.target.parent_path() / "Core Design on the web.url"));
}

TEST(InstallEditorTest, AMissingFileStopsTheInstallOrCountsOnce) {
  InstallTest t;
  auto zips = BuildEditorPackage(t.program, t.dir / "package", {.left_out = "trle\\script.exe"});
  t.program.prefs.EditorFolder = "/old/editor";
  t.ui.Answer(msg::kOk, "from the zip files").Answer(msg::kNo, "\"trle\\script.exe\"");
  EXPECT_FALSE(t.Install(zips, 0));
  // Gone past, the file counts once in each of the two lists.
  InstallTest on;
  on.ui.Answer(msg::kOk, "from the zip files")
      .Answer(msg::kYes, "script.exe")
      .Answer(msg::kYes, "script.exe");
  on.ui.Answer(msg::kOk, "has been installed.\r\nErrors: 2");
  EXPECT_TRUE(on.Install(zips, 0));
  EXPECT_EQ(t.program.prefs.EditorFolder, "/old/editor");
  EXPECT_FALSE(fs::exists(t.dir / "wine/system.reg"));
  EXPECT_FALSE(fs::exists(t.dir / "xdg/applications"));
}

TEST(DialogInstallaTrleTest, ChoosingOnePartBringsItsNeighboursOnce) {
  EditorTest t;
  for (int part : {1, 2, 3})
    WriteBytes(t.Path("setup/trle_setup_" + std::to_string(part) + ".zip"), "PK");
  Dialog_InstallaTrle dialog(t.program);
  dialog.ImpostaValori();
  t.ui.OpenFile(t.Path("setup/trle_setup_2.zip").string())
      .OpenFile(t.Path("setup/TRLE_SETUP_1.ZIP").string())
      .Answer(msg::kOk, "Choose a zip file in the list first");
  dialog.Pul_Add.Click();
  dialog.Pul_Add.Click();
  dialog.Pul_Remove.Click();
  std::vector<std::string> rows;
  for (const ListItem& row : dialog.List_FileZip.Items())
    rows.push_back(fs::path(row.text).filename());
  EXPECT_EQ(rows,
            (std::vector<std::string>{"trle_setup_2.zip", "trle_setup_1.zip", "trle_setup_3.zip"}));
}

struct ListCase {
  const char* name;
  int missing;  // files the list names that don't stand
  bool write_list;
  const char* message;  // part of the one question asked, null for none
  int errors_after;
};

TEST(VerifyFileListTest, MissingFilesAreReportedUpToTen) {
  const ListCase cases[] = {
      {"two missing", 2, true, "\"f1.dat\"\r\n\"f2.dat\"\r\n", 2},
      {"twelve missing stop at the tenth", 12, true, "\"f10.dat\"\r\n... and more", 10},
      {"no list", 0, false, "missing or empty", 1},
  };
  for (const ListCase& c : cases) {
    SCOPED_TRACE(c.name);
    TestProgram t;
    t.program.texts.EnglishTexts = ReadEnglishForTests();
    std::string list = "here.dat\r\n";
    t.home.Write("base/here.dat", "x");
    for (int i = 1; i <= c.missing; ++i) list += "f" + std::to_string(i) + ".dat\r\n";
    if (c.write_list) t.home.Write("list.txt", list + "not a line: no end");
    std::vector<std::string> asked;
    int errors = 0;
    bool go_on = VerifyFileList(t.program, t.home / "list.txt", t.home / "base", errors,
                                [&](const std::string& m) {
                                  asked.push_back(m);
                                  return false;
                                });
    EXPECT_TRUE(go_on);
    EXPECT_EQ(errors, c.errors_after);
    ASSERT_EQ(asked.size(), c.message ? 1u : 0u);
    if (c.message) {
      EXPECT_NE(asked[0].find(c.message), std::string::npos) << asked[0];
      EXPECT_EQ(asked[0].find("f11.dat"), std::string::npos);
    }
  }
}

TEST(InstallEditorFromFolderTest, TakesTheEditorFromTheFolderOrItsOneSubFolder) {
  for (const auto& [chosen, told] : {std::pair{"trle_setup", "has been installed.\r\nNo errors."},
                                     std::pair{"cd/trle", "must be named trle_setup"},
                                     std::pair{"x/trle_setup", "nor one of its sub"}}) {
    InstallTest t;
    StageEditorPackage(t.dir / "trle_setup");  // as the setup's zip unpacks
    fs::create_directories(t.dir / "x/trle_setup");
    fs::create_directories(t.dir / "cd");
    fs::copy(t.dir / "trle_setup/trle", t.dir / "cd/trle", fs::copy_options::recursive);
    t.ui.Folder((t.dir / chosen).string()).Answer(msg::kOk, told);
    if (told[0] != 'h') t.ui.Answer(msg::kOk, "could not be installed from that folder");
    EXPECT_EQ(AskInstallFolder(t.program, t.label, t.bar), told[0] == 'h');
    EXPECT_EQ(ReadFile(t.target / "tomb4.exe").empty(), told[0] != 'h');
  }
}

}  // namespace
}  // namespace vardolin::testing
