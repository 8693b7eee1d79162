#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <filesystem>

#include "bare_main_window.h"
#include "form_binder.h"
#include "foundation/dialogs/dialog_get_dir.h"
#include "foundation/dialogs/dialog_input_box.h"
#include "foundation/dialogs/dialog_msg_box.h"
#include "qt_test_support.h"
#include "savegames/dialog_screen_shot.h"
#include "window/all_forms.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using qt::FormBinder;

template <class W>
W* Widget(FormBinder& binder, const char* name) {
  W* w = binder.window()->findChild<W*>(name);
  EXPECT_NE(w, nullptr) << name;
  return w;
}

class BinderTest : public ::testing::Test {
 protected:
  testing::QtProgram p;
};

TEST_F(BinderTest, ModelChangesShowInTheWidgets) {
  Dialog_InputBox box(p.program);
  box.ImpostaValori("Your name?", "Asking", "Lara");
  box.Load();
  FormBinder binder(box);
  ASSERT_NE(binder.window(), nullptr);
  EXPECT_EQ(binder.window()->windowTitle(), "Asking");
  EXPECT_EQ(Widget<QLabel>(binder, "Label_Prompt")->text(), "Your name?");
  auto* line = Widget<QLineEdit>(binder, "Text_Input");
  EXPECT_EQ(line->text(), "Lara");

  box.Text_Input.SetText("Croft");
  box.Text_Input.SetLocked(true);
  box.Pul_Cancel.SetEnabled(false);
  box.Pul_Ok.SetCaption("Go");
  box.SetCaption("Other");
  EXPECT_EQ(line->text(), "Croft");
  EXPECT_TRUE(line->isReadOnly());
  EXPECT_FALSE(Widget<QPushButton>(binder, "Pul_Cancel")->isEnabled());
  EXPECT_EQ(Widget<QPushButton>(binder, "Pul_Ok")->text(), "Go");
  EXPECT_EQ(binder.window()->windowTitle(), "Other");
}

TEST_F(BinderTest, TheCloseBoxUnloadsAnOrdinaryFormButCantEndAMessageBox) {
  Dialog_InputBox input(p.program);
  input.Load();
  FormBinder input_binder(input);
  input_binder.window()->show();
  EXPECT_TRUE(input_binder.window()->close());
  EXPECT_FALSE(input.IsLoaded());

  Dialog_MsgBox box(p.program);
  box.ImpostaValori("Really?", msg::kYesNo, "");
  box.Load();
  FormBinder binder(box);
  binder.window()->show();
  EXPECT_FALSE(binder.window()->close());
  EXPECT_TRUE(box.IsLoaded());
  Widget<QPushButton>(binder, "Pul_Button2")->click();
  EXPECT_EQ(box.ExitValue, msg::kNo);
}

TEST_F(BinderTest, ListsAndCombosFollowBothWays) {
  testing::TempDir tree;
  fs::create_directories(tree.path() / "one" / "deep");
  fs::create_directories(tree.path() / "two");
  p.platform.drives = {testing::MakeDrive("/", kDriveFixed),
                       testing::MakeDrive(tree.path().string(), kDriveFixed)};
  Dialog_GetDir dialog(p.program);
  dialog.ImpostaValori(tree.path().string());
  dialog.Load();
  FormBinder binder(dialog);
  auto* dirs = Widget<QListWidget>(binder, "Dir1");
  auto* drives = Widget<QComboBox>(binder, "Drive1");
  ASSERT_EQ(dirs->count(), 3);
  EXPECT_EQ(dirs->item(1)->text(), "one");
  EXPECT_EQ(drives->currentIndex(), dialog.Drive1.ListIndex());
  EXPECT_EQ(drives->currentText().toStdString(), tree.path().string());

  dirs->setCurrentRow(1);
  EXPECT_EQ(dialog.Dir1.ListIndex(), 1);
  emit dirs->itemDoubleClicked(dirs->item(1));
  EXPECT_EQ(dialog.FolderInView(), fs::canonical(tree.path() / "one"));
  ASSERT_EQ(dirs->count(), 2);
  EXPECT_EQ(dirs->item(1)->text(), "deep");
  EXPECT_EQ(Widget<QLabel>(binder, "Label_Folder")->text().toStdString(),
            fs::canonical(tree.path() / "one").string());

  int root_row = dialog.Drive1.FindText("/");
  drives->setCurrentIndex(root_row);
  emit drives->activated(root_row);
  EXPECT_EQ(dialog.Drive1.ListIndex(), root_row);
  EXPECT_EQ(dialog.FolderInView(), fs::path("/"));
}

TEST_F(BinderTest, MenusAndTimersOfTheMainWindow) {
  testing::BareMainWindow main(p.program);
  main.Load();
  ASSERT_TRUE(main.IsLoaded());
  FormBinder binder(main);
  auto* exit = binder.window()->findChild<QAction*>("Mnu_Exit");
  auto* add = binder.window()->findChild<QAction*>("mnu_AddLevel");
  auto* file = binder.window()->findChild<QMenu*>("mnu_File");
  ASSERT_TRUE(exit && add && file);
  EXPECT_TRUE(exit->isEnabled());
  EXPECT_FALSE(add->isEnabled()) << "work that isn't built is greyed";
  EXPECT_EQ(file->title().toStdString(), main.mnu_File.Caption());
  main.mnu_File.SetCaption("Archive");
  EXPECT_EQ(file->title(), "Archive");
  EXPECT_FALSE(binder.window()->findChild<QMenu*>("mnu_SaveGameHid")->menuAction()->isVisible());

  main.ProgressBar1.SetValue(42);
  EXPECT_EQ(Widget<QProgressBar>(binder, "ProgressBar1")->value(), 42);

  int ticks = 0;
  main.Timer1.SetHandler([&] { ++ticks; });
  main.Timer1.SetInterval(5);
  testing::Spin(60);
  EXPECT_GT(ticks, 0);
  main.Timer1.SetEnabled(false);
  const int paused_at = ticks;
  testing::Spin(30);
  EXPECT_EQ(ticks, paused_at);

  exit->trigger();
  EXPECT_FALSE(main.IsLoaded());
  EXPECT_TRUE(fs::exists(p.home / "Vardolin.prf")) << "leaving writes the settings";
}

// A key pressed where the keyboard focus is, travelling up to the window as a real one does.
void Key(QWidget* where, int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(where, &press);
}

TEST_F(BinderTest, EscapeCancelsEveryDialogAndEnterPressesItsDefaultOrFind) {
  for (const char* name : {"Dialog_Settings", "Dialog_PrefArc", "Dialog_ScreenShot"}) {
    SCOPED_TRACE(name);
    std::unique_ptr<Form> form;
    for (const FormFactory& f : AllForms())
      if (f.name == name) form = f.make(p.program);
    ASSERT_TRUE(form);
    form->Load();
    FormBinder binder(*form);
    binder.window()->show();
    Key(binder.window(), Qt::Key_Escape);
    EXPECT_FALSE(form->IsLoaded());
  }

  Dialog_InputBox box(p.program);
  box.ImpostaValori("Name?", "", "Lara");
  box.Load();
  FormBinder input(box);
  input.window()->show();
  Key(Widget<QLineEdit>(input, "Text_Input"), Qt::Key_Return);
  EXPECT_FALSE(box.IsLoaded());
  EXPECT_EQ(box.Result(), "Lara");

  testing::BareMainWindow main(p.program);
  main.Load();
  FormBinder window(main);
  window.window()->show();
  int finds = 0;
  main.Pul_Search.SetHandler([&] { ++finds; });
  Key(Widget<QLineEdit>(window, "Text_Search"), Qt::Key_Return);
  EXPECT_EQ(finds, 1);
}

TEST_F(BinderTest, PicturesKeepTheirShapeWhateverTheWindowsSize) {
  testing::TempDir dir;
  QImage red(320, 240, QImage::Format_RGB32);
  red.fill(Qt::red);
  const fs::path picture = dir.path() / "shot.png";
  ASSERT_TRUE(red.save(QString::fromStdString(picture.string())));
  Dialog_ScreenShot zoom(p.program);
  zoom.Load();
  FormBinder binder(zoom);
  binder.window()->show();
  zoom.Image1.SetPicture(picture.string());
  for (QSize size : {QSize(760, 300), QSize(300, 620), QSize(500, 400)}) {
    binder.window()->resize(size);
    testing::Spin(20);
    auto* label = Widget<QLabel>(binder, "Image1");
    QImage shown = label->grab().toImage();
    QRect drawn;
    for (int y = 0; y < shown.height(); ++y)
      for (int x = 0; x < shown.width(); ++x)
        if (QColor(shown.pixel(x, y)) == QColor(Qt::red)) drawn |= QRect(x, y, 1, 1);
    ASSERT_FALSE(drawn.isEmpty());
    EXPECT_NEAR(double(drawn.width()) / drawn.height(), 4.0 / 3.0, 0.02)
        << drawn.width() << "x" << drawn.height();
    EXPECT_TRUE(drawn.width() >= label->width() - 1 || drawn.height() >= label->height() - 1)
        << "scaled to fill the label one way";
  }
}

TEST(VirtualKeys, QtKeysBecomeTheProgramsCodes) {
  struct Case {
    int qt_key, vk;
  } cases[] = {{Qt::Key_F, 'F'},     {Qt::Key_7, '7'},     {Qt::Key_F9, 0x78},  {Qt::Key_F12, 0x7B},
               {Qt::Key_Escape, 27}, {Qt::Key_Return, 13}, {Qt::Key_Enter, 13}, {Qt::Key_Down, 40},
               {Qt::Key_Print, 44},  {Qt::Key_Eacute, 0}};
  for (const Case& c : cases) EXPECT_EQ(qt::VirtualKeyOf(c.qt_key), c.vk) << c.qt_key;
  EXPECT_EQ(qt::ShiftBitsOf(Qt::ControlModifier | Qt::ShiftModifier), 3);
  EXPECT_EQ(qt::ShiftBitsOf(Qt::AltModifier), 4);
}

}  // namespace
}  // namespace vardolin
