#include <gtest/gtest.h>

#include "environment.h"
#include "foundation/dialogs/dialog_get_dir.h"
#include "foundation/platform/wine_registry.h"
#include "foundation/settings/dialog_settings.h"
#include "language_file.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::Trc;
using MainWindow = testing::StandInMainWindow;

struct DialogSettingsTest : ::testing::Test, testing::TestProgram {
  MainWindow main{program};

  DialogSettingsTest() {
    home.Write("english.trc", Trc({{1, "Hello"}}));
    program.prefs.Language = "english";
    LoadLanguage(program);
    program.main.form = &main;
    program.main.timer1 = &main.Timer1;
    main.Load();
  }

  // Opens the dialog as the settings menu does.
  std::unique_ptr<Dialog_Settings> Open() {
    auto d = std::make_unique<Dialog_Settings>(program);
    d->ImpostaValori();
    d->Load();
    return d;
  }
};

TEST_F(DialogSettingsTest, OkStoresTheControlsAndKeepsOtherFlagBits) {
  program.prefs.Flags = 0x40 | 0x2;
  program.prefs.SavegamesToArchive = 5;
  auto d = Open();
  d->Check_DisableSound.SetValue(true);
  d->Check_AutoSave.SetValue(false);
  d->Opt_PromptCapture.Click();
  d->Combo_Decimi.SetListIndex(6);
  d->Combo_NSavegame.SetListIndex(9);
  d->Text_MinutiDifferenza.SetText(" 7.9 ");
  d->Label_EditorGrafico.SetCaption("  /usr/bin/gimp  ");
  d->Pul_Ok.Click();
  EXPECT_TRUE(d->Result);
  EXPECT_FALSE(d->IsLoaded());
  const Preferences& p = program.prefs;
  EXPECT_EQ(p.Flags, 0x43);
  EXPECT_FALSE(p.AutoSave);
  EXPECT_TRUE(p.PromptCapture);
  EXPECT_EQ(p.CheckTenths, 7);
  EXPECT_EQ(main.Timer1.Interval(), 700);
  EXPECT_EQ(p.SavegamesToArchive, 10);
  EXPECT_EQ(p.AssociationMinutes, 7);
  EXPECT_EQ(p.GraphicsProgram, "/usr/bin/gimp");
  EXPECT_EQ(platform.calls, (std::vector<std::string>{"joystick 0"}));  // probed once more

  auto again = Open();
  again->Check_DisableSound.SetValue(false);
  again->Check_ArchiviaSavegame.SetValue(false);
  again->Combo_NSavegame.SetListIndex(0);
  again->Pul_Ok.Click();
  EXPECT_EQ(program.prefs.Flags, 0x42);
  EXPECT_EQ(program.prefs.SavegamesToArchive, 10);  // archiving off: the number stays
}

TEST_F(DialogSettingsTest, CancelAfterChoosingAGraphicsProgramRestoresIt) {
  program.prefs.GraphicsProgram = "/usr/bin/old";
  auto d = Open();
  ui.OpenFile("/usr/bin/new");
  d->Pul_ScegliEditor.Click();
  // A graphics program of Windows lies where Windows keeps programs: the Wine prefix's.
  EXPECT_EQ(ui.Questions().back().text,
            (DefaultWinePrefix() / "drive_c" / "Program Files").string());
  EXPECT_EQ(program.prefs.GraphicsProgram, "/usr/bin/new");  // stored at once
  EXPECT_EQ(d->Label_EditorGrafico.Caption(), "/usr/bin/new");
  d->Pul_Cancel.Click();
  EXPECT_FALSE(d->Result);
  EXPECT_EQ(program.prefs.GraphicsProgram, "/usr/bin/old");
}

// The folder chooser opens at home, takes a typed folder, and makes a proposal only on Ok.
TEST(FolderChooser, OpensAtHomeTakesTypedFoldersAndMakesAProposalOnOk) {
  // start below the home ("-": none), typed text ("*": what the chooser typed in), chosen folder
  const std::vector<std::array<std::string, 3>> cases = {
      {"-", "", ""}, {"Archive", "*", "Archive"}, {"games", "~/games/new/deep", "games/new/deep"}};
  for (const auto& [start, typed, chosen] : cases) {
    testing::TestProgram t;
    const std::filesystem::path user = t.home.path() / "user";
    std::filesystem::create_directories(user / "games");
    testing::ScopedEnv home("HOME", user.string());
    Dialog_GetDir chooser(t.program);
    chooser.ImpostaValori(start == "-" ? std::string() : (user / start).string());
    EXPECT_EQ(chooser.FolderInView(), start == "games" ? user / start : user) << start;
    EXPECT_FALSE(std::filesystem::exists(user / "Archive")) << "offered, not made";
    if (typed != "*") chooser.Text_Path.SetText(typed);
    chooser.OKButton.Click();
    EXPECT_EQ(chooser.Path, (chosen.empty() ? user : user / chosen).string()) << start;
    EXPECT_TRUE(std::filesystem::is_directory(chooser.Path));
  }
  // With nothing typed, a highlighted sub-folder is the one chosen.
  testing::TestProgram t;
  t.home.Write("start/chosen/file", "x");
  const std::filesystem::path start = std::filesystem::weakly_canonical(t.home / "start");
  Dialog_GetDir d(t.program);
  d.ImpostaValori(start.string());
  d.Dir1.SetListIndex(d.Dir1.FindText("chosen"));
  d.OKButton.Click();
  EXPECT_EQ(d.Path, (start / "chosen").string());
}

}  // namespace
}  // namespace vardolin
