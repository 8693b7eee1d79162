#pragma once
// Which buttons a message-box style shows, left to right, as result numbers.

#include <vector>

#include "foundation/ports/ui.h"

namespace vardolin {

inline std::vector<int> ButtonsOfStyle(int style) {
  switch (style) {
    case msg::kOkCancel:
      return {msg::kOk, msg::kCancel};
    case msg::kAbortRetryIgnore:
      return {msg::kAbort, msg::kRetry, msg::kIgnore};
    case msg::kYesNoCancel:
      return {msg::kYes, msg::kNo, msg::kCancel};
    case msg::kYesNo:
      return {msg::kYes, msg::kNo};
    case msg::kRetryCancel:
      return {msg::kRetry, msg::kCancel};
    default:
      return {msg::kOk};  // 0, 16 and any other style
  }
}

}  // namespace vardolin
