#pragma once
// One QApplication for the whole test program, on the offscreen platform, and a program with a
// real home and the English texts loaded.

#include <QApplication>
#include <QTimer>
#include <functional>

#include "foundation/program.h"
#include "foundation/program_home.h"
#include "qt_ui.h"
#include "recording_platform.h"
#include "temp_dir.h"

namespace vardolin::testing {

inline QApplication& App() {
  static int argc = 1;
  static char name[] = "test_qt";
  static char* argv[] = {name, nullptr};
  static QApplication* app = [] {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return new QApplication(argc, argv);
  }();
  return *app;
}

struct QtProgram {
  QtProgram() {
    App();
    PrepareHome(home.path());
    program.texts = {};
    LoadLanguage(program);
    ui.SetProgram(program);
  }
  TempDir home;
  qt::QtUi ui;
  RecordingPlatform platform;
  Program program{home.path(), ui, platform};
};

// Runs `act` once the event loop is running, i.e. inside a modal show.
inline void Soon(std::function<void()> act) {
  QTimer::singleShot(0, std::move(act));
}

// Lets queued events run for a while.
inline void Spin(int ms) {
  QTimer timer;
  timer.setSingleShot(true);
  timer.start(ms);
  while (timer.isActive()) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

}  // namespace vardolin::testing
