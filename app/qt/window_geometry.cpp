#include "window_geometry.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"

namespace vardolin::qt {

std::filesystem::path WindowGeometryFile(const std::filesystem::path& home) {
  return home / "vardolin_window.txt";
}

bool RestoreWindowGeometry(QWidget* window, const std::filesystem::path& file) {
  std::istringstream in(ReadWholeFile(file));
  int x = 0, y = 0, width = 0, height = 0, maximised = 0;
  if (!(in >> x >> y >> width >> height >> maximised) || width <= 0 || height <= 0) return false;
  const QRect place(x, y, width, height);
  if (QGuiApplication::screenAt(place.center()))
    window->setGeometry(place);
  else
    window->resize(place.size());
  if (maximised) window->setWindowState(window->windowState() | Qt::WindowMaximized);
  return true;
}

bool SaveWindowGeometry(const QWidget* window, const std::filesystem::path& file) {
  // A maximised window's own size is the screen's; the size to come back to is the normal one.
  const bool maximised = window->isMaximized();
  const QRect place = maximised ? window->normalGeometry() : window->geometry();
  if (place.isEmpty()) return false;
  std::ostringstream out;
  out << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height() << ' '
      << (maximised ? 1 : 0) << '\n';
  return AtomicWriteFile(file, out.str());
}

bool FitWindowOnScreen(QWidget* window) {
  if (window->isMaximized() || window->isFullScreen()) return false;
  QScreen* screen = window->screen() ? window->screen() : QGuiApplication::primaryScreen();
  if (!screen) return false;
  const QRect free = screen->availableGeometry();
  // The frame the desktop draws round the window takes room too.
  const QRect outer = window->frameGeometry();
  const QSize frame = outer.size() - window->geometry().size();
  const QSize room = free.size() - frame;
  QSize size = window->size().boundedTo(room).expandedTo(window->minimumSize());
  QPoint at = outer.topLeft();
  at.setX(std::clamp(at.x(), free.left(),
                     std::max(free.left(), free.right() + 1 - size.width() - frame.width())));
  at.setY(std::clamp(at.y(), free.top(),
                     std::max(free.top(), free.bottom() + 1 - size.height() - frame.height())));
  if (size == window->size() && at == outer.topLeft()) return false;
  window->resize(size);
  window->move(at);
  return true;
}

void HoldLeastSizeForPanels(QWidget* window, const QStringList& panels) {
  std::vector<QWidget*> found;
  for (const QString& name : panels)
    if (auto* panel = window->findChild<QWidget*>(name)) found.push_back(panel);
  std::vector<bool> shown;
  for (QWidget* panel : found) shown.push_back(panel->isVisibleTo(window));
  // A panel shown lays its window out at once: the others are hidden first, or the window would
  // grow to hold two panels for a moment.
  const auto show_only = [&found](const std::vector<bool>& on) {
    for (std::size_t i = 0; i < found.size(); ++i)
      if (!on[i]) found[i]->hide();
    for (std::size_t i = 0; i < found.size(); ++i)
      if (on[i]) found[i]->show();
  };
  QSize least;
  for (std::size_t i = 0; i < found.size(); ++i) {
    std::vector<bool> on(found.size(), false);
    on[i] = true;
    show_only(on);
    // The layouts learn of the switch through posted requests; they must have run before asking.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    least = least.expandedTo(window->minimumSizeHint());
  }
  show_only(shown);
  // An explicit least size is the layout's to keep: it no longer follows the panel on show.
  if (least.isValid()) window->setMinimumSize(least);
}

}  // namespace vardolin::qt
