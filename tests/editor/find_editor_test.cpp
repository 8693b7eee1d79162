#include <gtest/gtest.h>

#include "editor/dialog_trova_trle.h"
#include "editor/find_editor.h"
#include "editor_test_fixture.h"
#include "web/dialog_siti.h"

namespace vardolin::testing {
namespace {
namespace fs = std::filesystem;

struct CheckCase {
  const char* name;
  EditorFolderOptions options;
  bool show;
  bool valid;
  const char* message;    // part of the one error shown, or null for none
  bool capitals = false;  // the two files spelled in another case
};

TEST(CheckEditorFolderTest, TellsAnEditorFolderByItsTwoFiles) {
  const CheckCase cases[] = {
      {"whole install", {}, true, true, nullptr},
      // A level's installer may take the game away: the folder is still the editor's.
      {"no game anywhere", {.with_game = false, .with_title_level = false}, true, true, nullptr},
      {"no compiler, told", {.with_compiler = false}, true, false, "tom2pc.exe is missing in /"},
      {"no compiler, quiet", {.with_compiler = false}, false, false, nullptr},
      {"no room editor, told", {.with_room_editor = false}, true, false, "winroomedit.exe"},
      {"neither", {.with_compiler = false, .with_room_editor = false}, true, false, "tom2pc.exe"},
      {"another case", {}, true, true, nullptr, true},
  };
  for (const CheckCase& c : cases) {
    SCOPED_TRACE(c.name);
    EditorTest t(c.options);
    if (c.capitals) {
      fs::rename(t.editor / "tom2pc.exe", t.editor / "TOM2PC.EXE");
      fs::rename(t.editor / "winroomedit.exe", t.editor / "WinRoomEdit.exe");
    }
    if (c.message) t.ui.Answer(msg::kOk, c.message);
    EXPECT_EQ(CheckEditorFolder(t.program, t.editor.string(), c.show), c.valid);
    EXPECT_EQ(t.ui.Messages().size(), c.message ? 1u : 0u);
    if (c.message) {
      EXPECT_NE(t.ui.Messages()[0].find(t.editor.string()), std::string::npos);
    }
  }
}

struct RestoreCase {
  const char* name;
  bool level_in_data;
  bool game_in_editor;
  bool game_in_backup;
  bool game_in_home;
  const char* expected;  // the game's bytes in the editor folder afterwards, null for none
};

TEST(RestoreGameExeTest, BringsTheGameBackFromTheBackupFirst) {
  const RestoreCase cases[] = {
      {"game there stays", true, true, true, true, "editor"},
      {"from the backup", true, false, true, true, "backup"},
      {"from the program's folder", true, false, false, true, "home"},
      {"nowhere to take it from", true, false, false, false, nullptr},
      {"not an installed editor", false, false, true, true, nullptr},
  };
  for (const RestoreCase& c : cases) {
    SCOPED_TRACE(c.name);
    EditorTest t({.with_game = false, .with_title_level = c.level_in_data});
    if (c.game_in_editor) WriteBytes(t.editor / "tomb4.exe", "editor");
    if (c.game_in_backup) WriteBytes(t.Path("home/backup_trle/TOMB4.EXE"), "backup");
    if (c.game_in_home) WriteBytes(t.Path("home/tomb4.exe"), "home");
    RestoreGameExe(t.program);
    if (c.expected)
      EXPECT_EQ(ReadFile(t.editor / "tomb4.exe"), c.expected);
    else
      EXPECT_FALSE(fs::exists(t.editor / "tomb4.exe"));
  }
}

TEST(FindEditorFolderTest, AValidKnownFolderAsksNothingAndTheRegistrysIsProposed) {
  EditorTest t;
  EXPECT_TRUE(FindEditorFolder(t.program));
  EXPECT_TRUE(t.ui.Questions().empty());
  t.program.prefs.EditorFolder.clear();
  ScopedWinePrefix prefix(t.Path("wine"));
  const fs::path registered = t.Path("wine/drive_c/program files/core design/trle");
  BuildEditorFolder(registered);
  t.platform.registry[{kRoomEditorAppPathKey, ""}] =
      "C:\\Program Files\\Core Design\\TRLE\\WinRoomEdit.exe";
  t.ui.OnForm("Dialog_TrovaTrle", [&](Form& f) {
    auto& d = static_cast<Dialog_TrovaTrle&>(f);
    EXPECT_EQ(d.Label_Path.Caption(), registered.string());
    d.Pul_Sfoglia.Click();
    EXPECT_EQ(d.Label_Path.Caption(), t.editor.string());
    d.Pul_Ok.Click();
  });
  t.ui.Folder(t.editor.string());
  EXPECT_TRUE(FindEditorFolder(t.program));
  EXPECT_EQ(t.program.prefs.EditorFolder, t.editor.string());
}

TEST(FindEditorFolderTest, AWrongFolderKeepsTheDialogUpUntilTheUserGivesUp) {
  EditorTest t;
  t.program.prefs.EditorFolder = t.Path("old").string();
  t.ui.OnForm("Dialog_TrovaTrle", [&](Form& f) {
    auto& d = static_cast<Dialog_TrovaTrle&>(f);
    d.Pul_Ok.Click();  // no folder yet: said so
    EXPECT_TRUE(d.IsLoaded());
    d.Pul_Sfoglia.Click();  // a folder that isn't the editor's is not taken
    EXPECT_EQ(d.Label_Path.Caption(), "");
    d.Label_Path.SetCaption(t.Path("home").string());
    d.Pul_Ok.Click();
    EXPECT_TRUE(d.IsLoaded());
    d.Pul_Cancel.Click();
    EXPECT_FALSE(d.IsLoaded());
  });
  t.ui.Answer(msg::kOk, "No folder has been chosen yet");
  t.ui.Folder(t.Path("home").string());
  t.ui.Answer(msg::kOk, "tom2pc.exe is missing");
  t.ui.Answer(msg::kOk, "tom2pc.exe is missing");
  t.ui.Answer(msg::kYes, "download the Tomb Raider Level Editor");
  t.ui.OnForm("Dialog_Siti", [](Form& f) {  // on the editor's sites
    const auto& sites = static_cast<Dialog_Siti&>(f).Combo_TipoUrl;
    EXPECT_EQ(sites.ItemData(sites.ListIndex()), 2);
  });
  t.ui.Answer(msg::kOk, "Without the Tomb Raider Level Editor");
  EXPECT_FALSE(FindEditorFolder(t.program));
  EXPECT_EQ(t.program.prefs.EditorFolder, t.Path("old").string());
}

}  // namespace
}  // namespace vardolin::testing
