#include <gtest/gtest.h>

#include <filesystem>

#include "bare_main_window.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_get_dir.h"
#include "foundation/dialogs/dialog_input_box.h"
#include "foundation/dialogs/dialog_msg_box.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/dialog_splash.h"
#include "foundation/dialogs/dialog_wait.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/program.h"
#include "foundation/program_home.h"
#include "foundation/startup/desktop_integration.h"
#include "foundation/text_ids.h"
#include "recording_platform.h"
#include "scripted_ui.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::RecordingPlatform;
using testing::ScriptedUi;
using testing::TempDir;

class DialogsTest : public ::testing::Test {
 protected:
  DialogsTest() {
    PrepareHome(home.path());
    LoadLanguage(program);
  }
  std::vector<std::string> VisibleCaptions(const Dialog_MsgBox& box) {
    std::vector<std::string> out;
    for (const Button* b : {&box.Pul_Button1, &box.Pul_Button2, &box.Pul_Button3})
      if (b->Visible()) out.push_back(b->Caption());
    return out;
  }
  TempDir home;
  ScriptedUi ui;
  RecordingPlatform platform;
  Program program{home.path(), ui, platform};
};

TEST_F(DialogsTest, MessageBoxShowsTheButtonsOfItsStyleAndGivesTheirNumbers) {
  const std::string ok = "Ok", cancel = "Cancel", abort = "Abort", retry = "Retry",
                    ignore = "Ignore", yes = "Yes", no = "No";
  struct Case {
    int style;
    std::vector<std::string> captions;
    std::vector<int> results;
  } cases[] = {
      {0, {ok}, {1}},
      {1, {ok, cancel}, {1, 2}},
      {2, {abort, retry, ignore}, {3, 4, 5}},
      {3, {yes, no, cancel}, {6, 7, 2}},
      {4, {yes, no}, {6, 7}},
      {5, {retry, cancel}, {4, 2}},
      {16, {ok}, {1}},
      {48, {ok}, {1}},
      {64, {ok}, {1}},
      {4 + 48, {yes, no}, {6, 7}},  // the icon bits ride on top of the buttons
      {9, {ok}, {1}},
  };
  for (const Case& c : cases) {
    for (size_t slot = 0; slot < c.results.size(); ++slot) {
      Dialog_MsgBox box(program);
      box.ImpostaValori("Go on?", c.style, "");
      box.Load();
      EXPECT_EQ(VisibleCaptions(box), c.captions) << "style " << c.style;
      Button* buttons[] = {&box.Pul_Button1, &box.Pul_Button2, &box.Pul_Button3};
      buttons[slot]->Click();
      EXPECT_EQ(box.ExitValue, c.results[slot]) << "style " << c.style << " slot " << slot;
      EXPECT_FALSE(box.IsLoaded());
    }
  }
}

TEST_F(DialogsTest, ErrorBoxHasOneButtonThatGivesOk) {
  Dialog_MsgBox box(program);
  box.ImpostaValori("It failed.", msg::kError, "");
  box.Load();
  ASSERT_EQ(VisibleCaptions(box).size(), 1u);
  box.Pul_Button1.Click();
  EXPECT_EQ(box.ExitValue, msg::kOk);
}

TEST_F(DialogsTest, MessageBoxTitleAndCloseBox) {
  Dialog_MsgBox box(program);
  box.ImpostaValori("x", 0, "");
  box.Load();
  EXPECT_EQ(box.Caption(), program.GetText(text::ProgramTitle));
  EXPECT_FALSE(box.QueryUnload()) << "only a button may close the box";
  Dialog_MsgBox titled(program);
  titled.ImpostaValori("x", 0, "Mine");
  titled.Load();
  EXPECT_EQ(titled.Caption(), "Mine");
}

TEST_F(DialogsTest, MessageBoxBeepsUnlessSoundIsOff) {
  for (int flags : {0, 1, 2, 3}) {
    platform.calls.clear();
    program.prefs.Flags = flags;
    Dialog_MsgBox box(program);
    box.ImpostaValori("x", 0, "");
    box.Load();
    bool beeped = !platform.calls.empty() && platform.calls[0].rfind("beep", 0) == 0;
    EXPECT_EQ(beeped, (flags & 1) == 0) << "flags " << flags;
  }
}

TEST_F(DialogsTest, EscapeAnswersCancelOnlyWhereOffered) {
  Dialog_MsgBox question(program);
  question.ImpostaValori("x", msg::kYesNoCancel, "");
  question.Load();
  question.KeyDown(27, 0);
  EXPECT_EQ(question.ExitValue, msg::kCancel);
  Dialog_MsgBox yes_no(program);
  yes_no.ImpostaValori("x", msg::kYesNo, "");
  yes_no.Load();
  yes_no.KeyDown(27, 0);
  EXPECT_TRUE(yes_no.IsLoaded());
}

TEST_F(DialogsTest, AskUserGivesTheProgramTitleWhenNoneIsGiven) {
  ui.Answer(msg::kYes).Answer(msg::kNo);
  EXPECT_EQ(AskUser(program, "Sure?", msg::kYesNo), msg::kYes);
  EXPECT_EQ(AskUser(program, "Sure?", msg::kYesNo, "Own"), msg::kNo);
  ASSERT_EQ(ui.Questions().size(), 2u);
  EXPECT_EQ(ui.Questions()[0].title, program.GetText(text::ProgramTitle));
  EXPECT_EQ(ui.Questions()[1].title, "Own");
}

TEST_F(DialogsTest, InputBoxGivesTheTextOnlyWhenConfirmed) {
  Dialog_InputBox box(program);
  box.ImpostaValori("Name?", "", "old");
  box.Load();
  EXPECT_EQ(box.Text_Input.Text(), "old");
  box.Text_Input.SetText("new");
  box.Pul_Ok.Click();
  EXPECT_EQ(box.Result(), "new");

  Dialog_InputBox cancelled(program);
  cancelled.ImpostaValori("Name?", "", "old");
  cancelled.Load();
  cancelled.KeyDown(27, 0);
  EXPECT_FALSE(cancelled.IsLoaded());
  EXPECT_EQ(cancelled.Result(), "");
}

TEST(ChosenFolder, IsNormalised) {
  struct Case {
    const char* in;
    const char* out;
  } cases[] = {
      {"/", "/"}, {"//", "/"}, {"/a//b/", "/a/b"}, {"/tmp", "/tmp"}, {"/a///b//c", "/a/b/c"}};
  for (const Case& c : cases) EXPECT_EQ(NormalizeChosenFolder(c.in), c.out) << c.in;
}

class GetDirTest : public DialogsTest {
 protected:
  GetDirTest() {
    fs::create_directories(tree.path() / "beta");
    fs::create_directories(tree.path() / "Alpha" / "inner");
    tree.Write("file.txt", "x");
  }
  std::vector<std::string> Rows() {
    std::vector<std::string> out;
    for (int i = 0; i < dialog.Dir1.ListCount(); ++i) out.push_back(dialog.Dir1.List(i));
    return out;
  }
  TempDir tree;
  Dialog_GetDir dialog{program};
};

TEST_F(GetDirTest, ListsSubfoldersAndMovesUpAndDown) {
  dialog.ImpostaValori(tree.path().string());
  dialog.Load();
  EXPECT_EQ(dialog.FolderInView(), fs::canonical(tree.path()));
  EXPECT_EQ(Rows(), (std::vector<std::string>{"..", "Alpha", "beta"}));
  dialog.Dir1.SetListIndex(1);
  dialog.Dir1.DblClick();
  EXPECT_EQ(Rows(), (std::vector<std::string>{"..", "inner"}));
  dialog.Dir1.SetListIndex(0);
  dialog.Dir1.DblClick();
  EXPECT_EQ(dialog.FolderInView(), fs::canonical(tree.path()));
}

TEST_F(GetDirTest, MissingStartBeginsInTheCurrentFolder) {
  dialog.ImpostaValori((tree.path() / "nowhere").string());
  EXPECT_EQ(dialog.FolderInView(), fs::canonical(fs::current_path()));
}

TEST_F(GetDirTest, NewFolderCases) {
  struct Case {
    std::string typed;
    std::string message;  // part of the message shown; empty: none, the folder is made
  } cases[] = {
      {"   ", program.GetText(text::NewFolderNameEmpty)},
      {"beta", "\"" + (fs::canonical(tree.path()) / "beta").string() + "\""},
      {"gamma", ""},
  };
  for (const Case& c : cases) {
    dialog.ImpostaValori(tree.path().string());
    if (!c.message.empty()) ui.Answer(msg::kOk, c.message);
    dialog.Text_Path.SetText(c.typed);
    dialog.Pul_NuovaCartella.Click();
    if (c.message.empty()) {
      EXPECT_TRUE(fs::is_directory(tree.path() / c.typed));
      EXPECT_EQ(dialog.FolderInView(), fs::canonical(tree.path() / c.typed));
      EXPECT_EQ(dialog.Text_Path.Text(), "");
    } else {
      EXPECT_EQ(dialog.FolderInView(), fs::canonical(tree.path())) << c.typed;
    }
  }
  EXPECT_TRUE(ui.Done());
}

TEST_F(GetDirTest, OkGivesTheFolderInViewAndCancelNothing) {
  dialog.ImpostaValori(tree.path().string() + "/Alpha/");
  dialog.Load();
  dialog.OKButton.Click();
  EXPECT_TRUE(dialog.ExitValue);
  EXPECT_EQ(dialog.Path, (fs::canonical(tree.path()) / "Alpha").string());
  EXPECT_FALSE(dialog.IsLoaded());

  Dialog_GetDir other(program);
  other.ImpostaValori(tree.path().string());
  other.Load();
  other.CancelButton.Click();
  EXPECT_FALSE(other.ExitValue);
}

TEST_F(GetDirTest, DrivesFollowTheFolderAndADriveThatIsNotReadyIsRefused) {
  auto drive = [](std::string mount, int type, bool ready) {
    DriveInfo d;
    d.letter = std::move(mount);
    d.type = type;
    d.ready = ready;
    return d;
  };
  platform.drives = {drive("/", kDriveFixed, true), drive(tree.path().string(), kDriveFixed, true),
                     drive("/media/cd", kDriveCdRom, false)};
  dialog.ImpostaValori((tree.path() / "Alpha").string());
  ASSERT_EQ(dialog.Drive1.ListCount(), 3);
  EXPECT_EQ(dialog.Drive1.SelectedText(), tree.path().string()) << "the deepest mount point";
  int cd = dialog.Drive1.FindText("/media/cd");
  ui.Answer(msg::kOk, program.GetText(text::DriveNotReady));
  dialog.Drive1.SetListIndex(cd);
  EXPECT_EQ(dialog.Drive1.SelectedText(), tree.path().string());
  EXPECT_EQ(dialog.FolderInView(), fs::canonical(tree.path() / "Alpha"));
  dialog.Drive1.SetListIndex(dialog.Drive1.FindText("/"));
  EXPECT_EQ(dialog.FolderInView(), fs::path("/"));
}

TEST_F(DialogsTest, ProgressPercentIsWrittenOnlyWhenItChanges) {
  Dialog_Progress form(program);
  ProgressBar& bar = form.ProgressBar1;
  int writes = 0, refreshes = 0;
  bar.Subscribe([&](Control&, Change) { ++writes; });
  form.Subscribe([&](Form&, FormEvent e) { refreshes += e == FormEvent::Refresh; });
  struct Case {
    double max, value;
    int shown;
    bool written;
  } cases[] = {
      {0, 0.5, 50, true},     // a maximum of 0 counts as 1
      {200, 100, 50, false},  // the same percentage: nothing written
      {200, 51, 25, true},   {100, 33.9, 33, true},
      {10, 250, 100, true},  // above the maximum counts as the maximum
      {10, 10, 100, false},  {3, 0, 0, true},
  };
  for (const Case& c : cases) {
    int before = writes, refreshed = refreshes;
    SetProgressPercent(bar, c.max, c.value);
    EXPECT_EQ(bar.Value(), c.shown) << c.max << " " << c.value;
    EXPECT_EQ(writes > before, c.written) << c.max << " " << c.value;
    EXPECT_EQ(refreshes > refreshed, c.written) << c.max << " " << c.value;
  }
}

TEST_F(DialogsTest, ProgressAndWaitWindowsComeAndGo) {
  ShowProgressDialog(program);
  ASSERT_NE(ProgressDialog(program), nullptr);
  EXPECT_EQ(ProgressDialog(program)->Label_Info.Caption(), program.GetText(text::ProgressCaption));
  ProgressDialog(program)->ProgressBar1.SetValue(40);
  ShowProgressDialog(program, "Copying");
  EXPECT_EQ(ProgressDialog(program)->Label_Info.Caption(), "Copying");
  EXPECT_EQ(ProgressDialog(program)->ProgressBar1.Value(), 0);
  HideProgressDialog(program);
  EXPECT_EQ(ProgressDialog(program), nullptr);

  ShowWaitMessage(program, "Deleting");
  auto* wait = program.open_forms.Find<Dialog_Wait>("Dialog_Wait");
  ASSERT_NE(wait, nullptr);
  EXPECT_EQ(wait->Label_Mex.Caption(), "Deleting ");
  HideWaitMessage(program);
  EXPECT_EQ(program.open_forms.Find("Dialog_Wait"), nullptr);
  EXPECT_EQ(ui.ModelessShown(),
            (std::vector<std::string>{"Dialog_Progress", "Dialog_Progress", "Dialog_Wait"}));
}

TEST_F(DialogsTest, SplashOnlyWithItsPictureAndAnyClickClosesIt) {
  // A fresh home has the picture that Vardolin ships, and the icon its desktop entries name.
  Bitmap shipped;
  ASSERT_EQ(ReadPictureFile(home / "splash.jpg", shipped), PictureResult::Ok);
  EXPECT_EQ(shipped.width, 480);
  EXPECT_EQ(shipped.height, 360);
  EXPECT_TRUE(fs::is_regular_file(ProgramIcon(program)));
  fs::remove(home / "splash.jpg");
  EXPECT_FALSE(ShowSplash(program));
  EXPECT_TRUE(ui.ModelessShown().empty());
  home.Write("splash.jpg", "picture");
  ASSERT_TRUE(ShowSplash(program));
  auto* splash = program.open_forms.Find<Dialog_Splash>("Dialog_Splash");
  ASSERT_NE(splash, nullptr);
  EXPECT_EQ(splash->Image_Splash.Picture(), (home / "splash.jpg").string());
  EXPECT_NE(splash->Label_Version.Caption().find(VersionText()), std::string::npos);
  splash->Image_Splash.Click();
  EXPECT_FALSE(splash->IsLoaded());
  HideSplash(program);
  EXPECT_EQ(program.open_forms.Find("Dialog_Splash"), nullptr);
}

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

TEST_F(DialogsTest, ClearMainProgressEmptiesTheMainWindowsFoot) {
  ClearMainProgress(program);  // no main window yet: nothing to do, nothing breaks
  testing::BareMainWindow main(program);
  main.Label_Info.SetCaption("busy");
  main.ProgressBar1.SetValue(70);
  ClearMainProgress(program);
  EXPECT_EQ(main.Label_Info.Caption(), "");
  EXPECT_EQ(main.ProgressBar1.Value(), 0);
}

}  // namespace
}  // namespace vardolin
