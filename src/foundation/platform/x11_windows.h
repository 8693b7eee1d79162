#pragma once
// Top-level windows of an X display: listing them with their titles and owners, bringing one to
// the front and taking a picture of what the screen shows of it. X errors (a window that went
// away meanwhile) are trapped and come back as failures.

#include <filesystem>
#include <set>
#include <vector>

#include "foundation/pictures/bitmap.h"
#include "foundation/ports/platform.h"

struct _XDisplay;

namespace vardolin {

// From the topmost down. Behind a window manager each entry is the application's own window,
// not the frame the manager put around it.
std::vector<TopWindow> ListX11TopWindows(_XDisplay* display);
// The first visible window of the listing owned by one of `pids`, else the first hidden one.
WindowHandle FindX11WindowOfProcesses(_XDisplay* display, const std::set<int>& pids);
// Maps and raises the window; under a window manager it asks for it maximised and active,
// without one it covers the screen itself. The keyboard focus goes to it once it shows.
bool ActivateX11Window(_XDisplay* display, WindowHandle window);
// The screen's pixels inside the window (clipped to the screen), or the whole screen for 0.
bool GrabX11Window(_XDisplay* display, WindowHandle window, Bitmap& out);

// The process and every process below it, as /proc tells them now.
std::set<int> ProcessFamily(int pid, const std::filesystem::path& proc = "/proc");

}  // namespace vardolin
