#pragma once
// Finding a top-level window of the desktop by its title.

#include <string>

#include "foundation/ports/platform.h"

namespace vardolin {

// The first window, from the topmost down, whose title equals `title` or, with `partial`,
// holds it; case is ignored. On success `title` gets the window's full title. 0 when none does.
WindowHandle FindWindowByTitle(Platform& platform, std::string& title, bool partial);

}  // namespace vardolin
