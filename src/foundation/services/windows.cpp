#include "foundation/services/windows.h"

#include "foundation/services/strings.h"

namespace vardolin {

WindowHandle FindWindowByTitle(Platform& platform, std::string& title, bool partial) {
  if (title.empty()) return 0;
  for (const TopWindow& w : platform.ListTopWindows()) {
    if (partial ? ContainsNoCase(w.title, title) : EqualsNoCase(w.title, title)) {
      title = w.title;
      return w.handle;
    }
  }
  return 0;
}

}  // namespace vardolin
