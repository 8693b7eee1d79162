#include <gtest/gtest.h>
#include <filesystem>

#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/dialog_wait.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/program.h"
#include "foundation/program_home.h"
#include "foundation/settings/dialog_settings.h"
#include "foundation/text_ids.h"
#include "language_file.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "temp_dir.h"
#include "test_program.h"

namespace vardolin {
namespace {

using testing::Trc;
using MainWindow = testing::StandInMainWindow;

struct DialogsTest : ::testing::Test, testing::TestProgram {
  DialogsTest() {
    PrepareHome(home.path());
    LoadLanguage(program);
  }
};

TEST_F(DialogsTest, OpenFormsReplaceByNameAndCloseAll) {
  auto first = std::make_unique<Dialog_Wait>(program);
  Dialog_Wait* old = first.get();
  program.open_forms.Keep(std::move(first)).Load();
  int unloads = 0;
  old->Subscribe([&](Form&, FormEvent e) { unloads += e == FormEvent::Unloaded; });
  program.open_forms.Keep(std::make_unique<Dialog_Wait>(program)).Load();
  EXPECT_EQ(unloads, 1) << "the form it replaced was unloaded first";
  Form& progress = program.open_forms.Keep(std::make_unique<Dialog_Progress>(program));
  progress.Load();
  program.open_forms.CloseAll();
  EXPECT_EQ(program.open_forms.Find("Dialog_Wait"), nullptr);
  EXPECT_EQ(program.open_forms.Find("Dialog_Progress"), nullptr);
}

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

}  // namespace
}  // namespace vardolin
