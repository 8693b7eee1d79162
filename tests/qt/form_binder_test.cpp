#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>

#include "bare_main_window.h"
#include "form_binder.h"
#include "foundation/dialogs/dialog_input_box.h"
#include "foundation/dialogs/dialog_msg_box.h"
#include "foundation/dialogs/message_styles.h"
#include "qt_test_support.h"
#include "savegames/dialog_screen_shot.h"
#include "web/dialog_testo.h"
#include "window/all_forms.h"
#include "window_geometry.h"

namespace vardolin {
namespace {

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

  // A message box: Escape is its Cancel, else its No, else its only Ok.
  const std::pair<int, int> boxes[] = {
      {msg::kOkOnly, msg::kOk}, {msg::kYesNo, msg::kNo}, {msg::kYesNoCancel, msg::kCancel}};
  for (const auto& [style, answer] : boxes) {
    Dialog_MsgBox message(p.program);
    message.ImpostaValori("Sure?", style, "");
    message.Load();
    FormBinder binder(message);
    binder.window()->show();
    Key(Widget<QPushButton>(binder, "Pul_Button1"), Qt::Key_Escape);
    EXPECT_EQ(message.ExitValue, answer) << style;
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

// Alt+letter opens each menu and picks each entry, no two of one menu on the same letter; the
// note search has real shortcuts, which the menu shows beside captions that don't spell them.
TEST_F(BinderTest, MenusAnswerTheKeyboard) {
  testing::BareMainWindow main(p.program);
  main.Load();
  FormBinder binder(main);
  std::vector<QWidget*> holders = {binder.window()->findChild<QMenuBar*>()};
  for (QMenu* menu : binder.window()->findChildren<QMenu*>()) holders.push_back(menu);
  for (QWidget* holder : holders) {
    std::set<int> keys;
    for (QAction* a : holder->actions()) {
      if (a->isSeparator() || !a->isVisible()) continue;
      const QKeySequence mnemonic = QKeySequence::mnemonic(a->text());
      EXPECT_FALSE(mnemonic.isEmpty()) << a->text().toStdString();
      EXPECT_TRUE(keys.insert(mnemonic[0].toCombined()).second) << a->text().toStdString();
    }
  }
  EXPECT_EQ(QKeySequence::mnemonic(Widget<QMenu>(binder, "mnu_File")->title()),
            QKeySequence(Qt::ALT | Qt::Key_F));
  const std::pair<const char*, QKeyCombination> shortcuts[] = {
      {"mnu_FindSavegameNote", Qt::CTRL | Qt::Key_F},
      {"mnu_FineNextSavegame", Qt::CTRL | Qt::Key_N},
      {"mnu_FindPreviousSavegame", Qt::CTRL | Qt::Key_P}};
  for (const auto& [name, key] : shortcuts) {
    auto* action = binder.window()->findChild<QAction*>(name);
    ASSERT_NE(action, nullptr) << name;
    EXPECT_EQ(action->shortcut(), QKeySequence(key)) << name;
    EXPECT_FALSE(action->text().contains(u"Ctrl")) << name;
  }
}

// Switching between the screenshot and the savegame panels leaves the window's size alone, and
// either panel fits a 1280x800 screen with room for the desktop's panel and the window's frame.
TEST_F(BinderTest, TheMainWindowNeverGrowsByItselfAndFitsASmallScreen) {
  testing::BareMainWindow main(p.program);
  main.Load();
  FormBinder binder(main);
  QWidget* window = binder.window();
  main.Pul_ScreenShots.Click();
  window->show();
  window->resize(1, 1);
  testing::Spin(20);
  const QSize smallest = window->size();
  qt::HoldLeastSizeForPanels(window, {"Frame_ScreenShots", "Frame_SaveGames"});
  testing::Spin(20);
  // Measuring the panels shows each alone: the window takes the larger least size, no more.
  EXPECT_EQ(window->size().height(), std::max(smallest.height(), window->minimumSize().height()));
  const QSize held = window->size();
  for (Button* panel : {&main.Pul_SaveGames, &main.Pul_ScreenShots, &main.Pul_SaveGames}) {
    panel->Click();
    testing::Spin(20);
    EXPECT_EQ(window->size(), held) << panel->Name();
    EXPECT_LE(window->minimumSizeHint().height(), window->minimumSize().height()) << panel->Name();
  }
  EXPECT_LE(window->minimumSize().height(), 720);
  EXPECT_LE(window->minimumSize().width(), 1240);
}

TEST_F(BinderTest, PicturesKeepTheirShapeWhateverTheWindowsSize) {
  testing::TempDir dir;
  QImage red(320, 240, QImage::Format_RGB32);
  red.fill(Qt::red);
  const std::filesystem::path picture = dir.path() / "shot.png";
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
