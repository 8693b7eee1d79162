#pragma once
// The main window's place between runs: its size and place as a normal window and whether it was
// maximised, in a small text file of its own beside the settings (whose byte layout is fixed):
// "x y width height maximised".

#include <filesystem>

#include <QStringList>

class QWidget;

namespace vardolin::qt {

// The file in the program's folder.
std::filesystem::path WindowGeometryFile(const std::filesystem::path& home);
// Puts the window where the file says. A missing or damaged file leaves it alone; a place that no
// screen shows any more keeps the size and lets the desktop place the window.
bool RestoreWindowGeometry(QWidget* window, const std::filesystem::path& file);
bool SaveWindowGeometry(const QWidget* window, const std::filesystem::path& file);
// Keeps a normal window inside the free area of its screen (the desktop's panels left out): it
// shrinks to fit, no further than its minimum, and moves in. True when it had to change.
bool FitWindowOnScreen(QWidget* window);
// Panels that take turns in one place (the main window's screenshots and savegames): the
// window's least size is made to serve each of them, so that a switch never makes it grow. The
// window must be up: a window never shown has no sizes of its style yet.
void HoldLeastSizeForPanels(QWidget* window, const QStringList& panels);

}  // namespace vardolin::qt
