#include <gtest/gtest.h>

#include "foundation/program.h"
#include "foundation/settings/dialog_settings.h"
#include "foundation/text_ids.h"
#include "language_file.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::ReadFile;
using testing::Trc;

using MainWindow = testing::StandInMainWindow;

struct DialogSettingsTest : ::testing::Test, testing::TestProgram {
  MainWindow main{program};

  DialogSettingsTest() {
    home.Write("english.trc", Trc({{1, "Hello"},
                                   {text::CheckTenthsEntry, "Tenths: "},
                                   {text::FullBackupDone, "saved whole"},
                                   {text::FullBackupNotDone, "partly saved"},
                                   {text::MinutesNotNumber, "minutes must be a number"},
                                   {text::NoLanguageChosen, "choose a language"},
                                   {text::SettingsBrowse, "Browse..."},
                                   {text::SettingsFileName, "Vardolin.prf"}}));
    home.Write("Italian.trc", Trc({{1, "Ciao"}}));
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

TEST_F(DialogSettingsTest, TenthsNotInTheListSelectTheFifthEntry) {
  for (int stored : {0, 10, 25, -1}) {
    program.prefs.CheckTenths = stored;
    EXPECT_EQ(Open()->Combo_Decimi.ListIndex(), 4) << stored;
  }
}

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

TEST_F(DialogSettingsTest, BadMinutesOrNoLanguageKeepTheDialogUp) {
  auto d = Open();
  for (const char* typed : {"", "abc", "5 minutes", "1e99"}) {
    ui.Answer(msg::kOk, "minutes must be a number");
    d->Text_MinutiDifferenza.SetText(typed);
    d->Pul_Ok.Click();
    EXPECT_TRUE(d->IsLoaded()) << typed;
    EXPECT_EQ(ui.Questions().back().style, msg::kError);
  }
  d->Text_MinutiDifferenza.SetText("-3");
  d->Check_DisableSound.SetValue(true);
  d->Combo_Lingua.SetListIndex(-1);
  ui.Answer(msg::kOk, "choose a language");
  d->Pul_Ok.Click();
  EXPECT_TRUE(d->IsLoaded());
  EXPECT_FALSE(d->Result);
  EXPECT_EQ(program.prefs.AssociationMinutes, -3);  // what came before the language is stored
  EXPECT_TRUE(program.prefs.SoundDisabled());
}

TEST_F(DialogSettingsTest, CancelAfterChoosingAGraphicsProgramRestoresIt) {
  program.prefs.GraphicsProgram = "/usr/bin/old";
  auto d = Open();
  ui.OpenFile("/usr/bin/new");
  d->Pul_ScegliEditor.Click();
  EXPECT_EQ(program.prefs.GraphicsProgram, "/usr/bin/new");  // stored at once
  EXPECT_EQ(d->Label_EditorGrafico.Caption(), "/usr/bin/new");
  d->Pul_Cancel.Click();
  EXPECT_FALSE(d->Result);
  EXPECT_EQ(program.prefs.GraphicsProgram, "/usr/bin/old");
}

TEST_F(DialogSettingsTest, BrowseButtonsStartFromTheValueAtHand) {
  program.prefs.EditorFolder = "/games/trle";
  program.prefs.DefaultLoadDir = "/downloads";
  auto d = Open();
  ui.Folder("/games/other").Folder("");
  d->Pul_SfogliaPathTrle.Click();
  d->Pul_SfogliaLoadDir.Click();  // cancelled
  EXPECT_EQ(ui.Questions()[0].text, "/games/trle");
  EXPECT_EQ(ui.Questions()[1].text, "/downloads");
  EXPECT_EQ(d->Label_PathTrle.Caption(), "/games/other");
  EXPECT_EQ(d->Label_DefaultLoadDir.Caption(), "/downloads");
  d->Pul_Ok.Click();
  EXPECT_EQ(program.prefs.EditorFolder, "/games/other");
}

TEST_F(DialogSettingsTest, ChangingTheLanguageReloadsTheTexts) {
  auto d = Open();
  d->Combo_Lingua.SetListIndex(d->Combo_Lingua.FindText("italian"));
  d->Pul_Ok.Click();
  EXPECT_TRUE(d->Result);
  EXPECT_EQ(program.prefs.Language, "Italian");
  EXPECT_EQ(main.Label_Title.Caption(), "Ciao");
  EXPECT_EQ(ReadFile(home / "Vardolin.prf").size(), Preferences::kFileSize);
}

}  // namespace
}  // namespace vardolin
