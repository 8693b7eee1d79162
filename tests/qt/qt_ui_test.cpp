#include <gtest/gtest.h>

#include <QApplication>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QWidget>

#include "bare_main_window.h"
#include "foundation/pictures/bitmap.h"
#include "qt_test_support.h"
#include "window_geometry.h"

namespace vardolin {
namespace {

// The window of the named form that is up now.
QWidget* OpenWindow(const char* form_name) {
  for (QWidget* w : QApplication::topLevelWidgets())
    if (w->objectName() == form_name && w->isVisible()) return w;
  return nullptr;
}

void Press(const char* form_name, const char* button) {
  QWidget* w = OpenWindow(form_name);
  ASSERT_NE(w, nullptr) << form_name << " is not up";
  auto* b = w->findChild<QPushButton*>(button);
  ASSERT_NE(b, nullptr) << button;
  ASSERT_TRUE(b->isVisible()) << button;
  b->click();
}

class QtUiTest : public ::testing::Test {
 protected:
  testing::QtProgram p;
};

TEST_F(QtUiTest, AskUserShowsTheProgramsMessageBoxWithTheIconOfItsStyle) {
  struct Case {
    int style;
    const char* button;
    int result;
    int visible_buttons;
    QStyle::StandardPixmap icon;
  } cases[] = {
      {msg::kError, "Pul_Button1", msg::kOk, 1, QStyle::SP_MessageBoxCritical},
      {msg::kYesNoCancel, "Pul_Button3", msg::kCancel, 3, QStyle::SP_MessageBoxQuestion},
      {msg::kYesNo | msg::kWarning, "Pul_Button1", msg::kYes, 2, QStyle::SP_MessageBoxWarning},
      {msg::kInformation, "Pul_Button1", msg::kOk, 1, QStyle::SP_MessageBoxInformation},
      // A box that only tells something shows it as information.
      {msg::kOkOnly, "Pul_Button1", msg::kOk, 1, QStyle::SP_MessageBoxInformation}};
  for (const Case& c : cases) {
    int visible = 0;
    QImage shown;
    testing::Soon([&] {
      QWidget* box = OpenWindow("Dialog_MsgBox");
      ASSERT_NE(box, nullptr);
      for (QPushButton* b : box->findChildren<QPushButton*>()) visible += b->isVisible();
      auto* icon = box->findChild<QLabel*>("icon_style");
      ASSERT_NE(icon, nullptr);
      if (icon->isVisible()) shown = icon->pixmap().toImage();
      EXPECT_FALSE(box->close()) << "the close box can't end a message box";
      Press("Dialog_MsgBox", c.button);
    });
    EXPECT_EQ(p.ui.AskUser("Question", c.style, "Title"), c.result) << c.style;
    EXPECT_EQ(visible, c.visible_buttons) << c.style;
    const int size = QApplication::style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    EXPECT_EQ(shown, QApplication::style()->standardIcon(c.icon).pixmap(size, size).toImage())
        << c.style;
  }
}

TEST_F(QtUiTest, ModelessFormsStayUpUntilTheyUnload) {
  testing::BareMainWindow main(p.program);
  main.Load();
  p.ui.ShowModeless(main);
  QWidget* window = p.ui.WindowOf(main);
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->isVisible());
  int ticks = 0;
  main.Timer1.SetHandler([&] { ++ticks; });
  main.Timer1.SetInterval(5);
  testing::Soon([&] {
    int before = ticks;
    testing::Spin(40);
    EXPECT_EQ(ticks, before) << "the main window's timers wait while a modal box is up";
    Press("Dialog_MsgBox", "Pul_Button1");
  });
  p.ui.AskUser("Hold on", msg::kOkOnly, "");
  testing::Spin(40);
  EXPECT_GT(ticks, 0) << "and run again after it";
  main.Unload();
  EXPECT_EQ(p.ui.WindowOf(main), nullptr);
}

TEST_F(QtUiTest, PicturesOnTheClipboardComeBackPixelForPixelAndClear) {
  Bitmap picture = Bitmap::Make(7, 5, 3);  // odd widths pad Qt's rows
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 7; ++x) {
      picture.Pixel(x, y)[0] = static_cast<std::uint8_t>(x * 30);
      picture.Pixel(x, y)[1] = static_cast<std::uint8_t>(y * 50);
      picture.Pixel(x, y)[2] = 77;
    }
  p.ui.SetClipboardText("a text is no picture");
  EXPECT_FALSE(p.ui.ClipboardHasImage());
  ASSERT_TRUE(p.ui.SetClipboardImage(picture));
  ASSERT_TRUE(p.ui.ClipboardHasImage());
  Bitmap back;
  ASSERT_TRUE(p.ui.ClipboardImage(back));
  EXPECT_EQ(back.width, 7);
  EXPECT_EQ(back.height, 5);
  EXPECT_EQ(back.pixels, picture.pixels);
  p.ui.ClearClipboard();
  EXPECT_FALSE(p.ui.ClipboardHasImage());
  EXPECT_FALSE(p.ui.ClipboardImage(back));
}

TEST(WindowGeometry, AWindowLargerThanTheScreenOrBesideItIsBroughtIn) {
  testing::App();
  const QRect free = QGuiApplication::primaryScreen()->availableGeometry();
  for (const QRect place : {QRect(free.topLeft(), free.size() + QSize(0, 300)),
                            QRect(free.left() - 500, free.bottom() - 100, 300, 200)}) {
    QWidget window;
    window.setGeometry(place);
    EXPECT_TRUE(qt::FitWindowOnScreen(&window));
    EXPECT_TRUE(free.contains(window.frameGeometry()));
    EXPECT_FALSE(qt::FitWindowOnScreen(&window)) << "inside, it stays";
  }
}

TEST(WindowGeometry, TheWindowComesBackWhereItWasLeft) {
  testing::App();
  testing::TempDir home;
  const std::filesystem::path file = qt::WindowGeometryFile(home.path());
  QWidget left;
  left.setGeometry(40, 50, 420, 310);
  left.show();
  ASSERT_TRUE(qt::SaveWindowGeometry(&left, file));
  struct Case {
    const char* what;
    std::string text;  // empty: the file just saved
    bool restored;
    QRect place;
    bool maximised;
  } cases[] = {
      {"as saved", "", true, QRect(40, 50, 420, 310), false},
      {"maximised", "30 40 500 350 1\n", true, QRect(30, 40, 500, 350), true},
      {"off every screen", "-9000 -9000 380 260 0\n", true, QRect(0, 0, 380, 260), false},
      {"damaged", "40 50 wide\n", false, QRect(0, 0, 200, 100), false},
  };
  for (const Case& c : cases) {
    if (!c.text.empty()) home.Write(file.filename().string(), c.text);
    QWidget window;
    window.setGeometry(0, 0, 200, 100);
    EXPECT_EQ(qt::RestoreWindowGeometry(&window, file), c.restored) << c.what;
    EXPECT_EQ(window.isMaximized(), c.maximised) << c.what;
    if (!c.maximised) {
      EXPECT_EQ(window.geometry(), c.place) << c.what;
    }
  }
}

}  // namespace
}  // namespace vardolin
