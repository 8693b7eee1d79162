// vardolin: the Qt front end. The main window is the program: its load handler starts it and
// its unload handler ends it.

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QTimer>
#include <iostream>
#include <string>

#include "foundation/platform/desktop_integration.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/program.h"
#include "foundation/program_home.h"
#include "foundation/services/home_lock.h"
#include "foundation/services/time_zone.h"
#include "intake/add_level.h"
#include "qt_ui.h"
#include "startup/main_window.h"
#include "window_geometry.h"

namespace {

// --help and --version answer on the terminal, before any window or display is needed.
bool AnsweredOnTerminal(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg == "--version") {
      std::cout << "vardolin " << VARDOLIN_VERSION << "\n";
      return true;
    }
    if (arg == "--help" || arg == "-h") {
      std::cout << "Usage: vardolin [--home DIR] [--add PACKAGE] [CATALOGUE.vdc | SETUP_FOLDER]\n"
                   "The window of Vardolin, the level manager for Tomb Raider: The Last "
                   "Revelation custom levels.\n"
                   "  --home DIR       program home (else $VARDOLIN_HOME, else "
                   "$XDG_DATA_HOME/vardolin)\n"
                   "  --add PACKAGE    add the level in PACKAGE once the window stands\n"
                   "  --version        the version\n"
                   "vardolin-cli does the same work without windows; see vardolin-cli --help.\n";
      return true;
    }
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  vardolin::PinTimeZone();
  if (AnsweredOnTerminal(argc, argv)) return 0;
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Vardolin"));
  QApplication::setQuitOnLastWindowClosed(false);

  std::string home_option;
  // A package opened with Vardolin from the file manager: its adding starts with the window.
  std::string add_package;
  // Each argument that isn't an option is a token of the program's command line; the shell
  // took its quotes away, so it is quoted again here.
  std::string command_line;
  QStringList args = QApplication::arguments();
  for (int i = 1; i < args.size(); ++i) {
    if (args[i] == u"--home" && i + 1 < args.size())
      home_option = args[++i].toStdString();
    else if (args[i].startsWith(u"--home="))
      home_option = args[i].mid(7).toStdString();
    else if (args[i] == u"--add" && i + 1 < args.size())
      add_package = args[++i].toStdString();
    else if (!args[i].startsWith(u"--"))
      command_line += (command_line.empty() ? "\"" : " \"") + args[i].toStdString() + "\"";
    // --demo names the demonstration home that `make run` prepares; the home decides the rest.
  }

  std::filesystem::path home = vardolin::ResolveHome(home_option);
  if (!vardolin::PrepareHome(home)) {
    QMessageBox::critical(
        nullptr, QStringLiteral("Vardolin"),
        QStringLiteral("The folder %1 can't be made.").arg(QString::fromStdString(home.string())));
    return 1;
  }

  // One process per home: a second window would move the same files as the first.
  vardolin::HomeLock lock;
  if (!lock.Acquire(home, "vardolin")) {
    QString why = QString::fromStdString(lock.Error());
    why[0] = why[0].toUpper();
    QMessageBox::critical(nullptr, QStringLiteral("Vardolin"), why);
    return 1;
  }

  vardolin::qt::QtUi ui;
  vardolin::LinuxPlatform platform;
  vardolin::Program program(home, ui, platform);
  ui.SetProgram(program);
  program.CommandLine = command_line;

  QApplication::setWindowIcon(
      QIcon(QString::fromStdString(vardolin::ProgramIcon(program).string())));

  vardolin::MainWindow main_window(program);
  const std::filesystem::path geometry = vardolin::qt::WindowGeometryFile(home);
  // Subscribed ahead of the window's binder, so the window is still up when this runs.
  main_window.Subscribe([&ui, &geometry](vardolin::Form& form, vardolin::FormEvent event) {
    if (event != vardolin::FormEvent::Unloaded) return;
    if (QWidget* window = ui.WindowOf(form)) vardolin::qt::SaveWindowGeometry(window, geometry);
    QApplication::quit();
  });
  main_window.Load();
  if (!main_window.IsLoaded()) return 1;
  ui.ShowModeless(main_window);
  if (QWidget* window = ui.WindowOf(main_window)) {
    vardolin::qt::HoldLeastSizeForPanels(
        window, {QStringLiteral("Frame_ScreenShots"), QStringLiteral("Frame_SaveGames")});
    vardolin::qt::RestoreWindowGeometry(window, geometry);
    // A place saved on a larger screen, or the first start's size on a small one, must not put
    // the window's foot below the screen.
    vardolin::qt::FitWindowOnScreen(window);
  }
  if (!add_package.empty())
    QTimer::singleShot(0, [&program, &add_package] {
      if (vardolin::AddLevel(program, add_package)) program.notify.LevelListChanged();
    });
  int rc = QApplication::exec();
  // The session may end the loop with the window still up: shut down as the window would.
  main_window.Unload();
  return rc;
}
