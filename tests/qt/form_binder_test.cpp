#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <filesystem>

#include "bare_main_window.h"
#include "form_binder.h"
#include "foundation/dialogs/dialog_input_box.h"
#include "qt_test_support.h"
#include "savegames/dialog_screen_shot.h"
#include "web/dialog_testo.h"
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

// The help viewer through its window: a double click picks the title under the mouse, and the
// model's byte positions meet the widget's characters in a text with accents before them.
TEST_F(BinderTest, DoubleClickInTheManualPicksTheTitleUnderTheMouse) {
  Dialog_Testo viewer(p.program);
  viewer.Load();
  viewer.ImpostaValori("Perch\xC3\xA9 \xC3\xA8 [Hot keys while playing] end", "hot");
  FormBinder binder(viewer);
  binder.window()->resize(800, 600);
  binder.window()->show();
  QApplication::processEvents();
  viewer.Timer1.Tick();
  auto* text = Widget<QPlainTextEdit>(binder, "Text_File");
  EXPECT_EQ(text->textCursor().selectedText(), QStringLiteral("Hot"));
  QTextCursor at = text->textCursor();
  at.setPosition(21);  // inside "while", behind two letters of two bytes each
  const QPoint where = text->cursorRect(at).center();
  QMouseEvent dbl(QEvent::MouseButtonDblClick, where, text->viewport()->mapToGlobal(where),
                  Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(text->viewport(), &dbl);
  EXPECT_EQ(viewer.Text_Trova.Text(), "Hot keys while playing");
  EXPECT_EQ(text->textCursor().selectedText(), QStringLiteral("Hot keys while playing"));
  auto* line = Widget<QLineEdit>(binder, "Text_Trova");
  EXPECT_EQ(line->selectedText(), QStringLiteral("Hot keys while playing"));
}

}  // namespace
}  // namespace vardolin
