#pragma once
// What a message-box style shows: its buttons, left to right, as result numbers, and its icon.

#include <vector>

#include "foundation/ports/ui.h"

namespace vardolin {

inline std::vector<int> ButtonsOfStyle(int style) {
  // The low bits choose the buttons, the icon bits (16 ... 64) ride on top of them.
  switch (style & 0x0F) {
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
      return {msg::kOk};
  }
}

enum class MessageIcon { None, Error, Question, Warning, Information };

// A box without an icon bit that offers a choice (Yes/No, OK/Cancel ...) asks a question, and
// shows it as one; one with only its Ok tells something, and shows it as information.
inline MessageIcon IconOfStyle(int style) {
  switch (style & 0x70) {
    case msg::kError:
      return MessageIcon::Error;
    case msg::kQuestion:
      return MessageIcon::Question;
    case msg::kWarning:
      return MessageIcon::Warning;
    case msg::kInformation:
      return MessageIcon::Information;
  }
  return ButtonsOfStyle(style).size() > 1 ? MessageIcon::Question : MessageIcon::Information;
}

}  // namespace vardolin
