#include <gtest/gtest.h>

#include <algorithm>

#include "audio/wave_header.h"
#include "editor/dialog_installa_trle.h"
#include "editor/find_editor.h"
#include "editor/install_editor.h"
#include "editor_package.h"
#include "editor_test_fixture.h"
#include "foundation/forms/controls.h"
#include "foundation/platform/linux_platform.h"
#include "store_fixture.h"
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
  std::vector<int> bar;
  t.bar.Subscribe([&](Control&, Change) { bar.push_back(t.bar.Value()); });
  ASSERT_TRUE(t.Install(zips, 1));
  // The end is said with the bar full, which is cleared afterwards.
  ASSERT_FALSE(bar.empty());
  EXPECT_NE(std::find(bar.begin(), bar.end(), 100), bar.end());
  EXPECT_EQ(bar.back(), 0);
  EXPECT_EQ(t.program.prefs.EditorFolder, t.target.string());
  EXPECT_TRUE(CheckEditorFolder(t.program, t.target.string(), false));
  // The registry leads the search for the editor back to it.
  EXPECT_EQ(FindEditorInRegistry(t.program), t.target.string());
  // Italian: its language file, its manual only, the splash as a bitmap, the sets in place.
  EXPECT_EQ(ReadFile(t.target / "italian.dat"), "testi");
  EXPECT_TRUE(fs::exists(t.target / "docs/manual_ita.pdf"));
  EXPECT_FALSE(fs::exists(t.target / "docs/manual_eng.pdf"));
  EXPECT_TRUE(fs::exists(t.target / "load.bmp"));
  EXPECT_FALSE(fs::exists(t.target / "load_fr.jpg"));
  // The audio sets in the forms the game reads; what the music's mask leaves out stays.
  for (const auto& [file, kind] : {std::pair{"audio/044.wav", wave_kind::kMusic},
                                   std::pair{"sound/samples/step.wav", wave_kind::kSample}}) {
    std::string form;
    int found = 0;
    ClassifyWave(t.program, t.target / file, 0, form, found);
    EXPECT_EQ(found, kind) << file << ": " << form;
  }
  EXPECT_EQ(Names(Snapshot(t.target / "audio_set")), std::vector<std::string>{"046.mp3"});
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

TEST(InstallEditorTest, AMissingFileIsAskedAboutAndCountedOnce) {
  for (int answer : {msg::kNo, msg::kYes}) {
    InstallTest t;
    auto zips = BuildEditorPackage(t.program, t.dir / "package",
                                   {.left_out = "trle\\docs\\manual_eng.pdf"});
    t.program.prefs.EditorFolder = "/old/editor";
    t.ui.Answer(msg::kOk, "from the zip files").Answer(answer, "\"trle\\docs\\manual_eng.pdf\"");
    // Going past it, the install ends with one error counted.
    if (answer == msg::kYes) t.ui.Answer(msg::kOk, "has been installed.\r\nErrors: 1");
    EXPECT_EQ(t.Install(zips, 0), answer == msg::kYes);
    EXPECT_EQ(t.program.prefs.EditorFolder == "/old/editor", answer == msg::kNo);
    EXPECT_EQ(FindEditorInRegistry(t.program).empty(), answer == msg::kNo);
  }
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
  struct Case {
    const char* what;
    const char* folder;    // chosen, below the test's folder
    const char* unpacked;  // where the setup's files were unpacked, null for nowhere
    bool flat;             // the editor's folder itself is the one chosen
    std::vector<std::pair<int, const char*>> told;  // the boxes, in order
  };
  const Case cases[] = {
      {"the setup's zip unpacked into it",
       "trle_setup",
       "trle_setup",
       false,
       {{msg::kOk, "has been installed.\r\nNo errors."}}},
      {"the editor itself",
       "trle_setup",
       "stage",
       true,
       {{msg::kOk, "has been installed.\r\nNo errors."}}},
      {"another name",
       "cd/trle",
       "cd",
       false,
       {{msg::kOk, "must be named trle_setup"}, {msg::kOk, "could not be installed"}}},
      {"no editor in it",
       "trle_setup",
       nullptr,
       false,
       {{msg::kOk, "nor one of its sub-folders holds"}, {msg::kOk, "could not be installed"}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    InstallTest t;
    if (c.unpacked) StageEditorPackage(t.dir / c.unpacked);
    if (c.flat) fs::rename(t.dir / c.unpacked / "trle", t.dir / c.folder);
    fs::create_directories(t.dir / c.folder);
    t.ui.Folder((t.dir / c.folder).string());
    for (const auto& [answer, text] : c.told) t.ui.Answer(answer, text);
    const bool installed = c.told.size() == 1;
    EXPECT_EQ(AskInstallFolder(t.program, t.label, t.bar), installed);
    EXPECT_EQ(fs::exists(t.target / "tomb4.exe"), installed);
    EXPECT_FALSE(fs::exists(t.target / "trle"));
  }
}

}  // namespace
}  // namespace vardolin::testing
