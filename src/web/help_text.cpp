#include "web/help_text.h"

#include <algorithm>
#include <unordered_set>

namespace vardolin {

namespace {

char LowerChar(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsWordBreak(char c) {
  return std::string_view("{}[] .=;:,()\"\n\r").find(c) != std::string_view::npos;
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\0';
}

// A window of the picked word's scans: this far to each side of the clicked character.
constexpr std::size_t kScanReach = 30;

}  // namespace

std::string LowerAscii(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = LowerChar(c);
  return out;
}

std::size_t FindForward(std::string_view lowered_text, std::string_view needle, std::size_t from) {
  if (needle.empty() || from > lowered_text.size()) return std::string_view::npos;
  return lowered_text.find(LowerAscii(needle), from);
}

std::size_t FindBackward(std::string_view lowered_text, std::string_view needle, std::size_t end) {
  if (needle.empty() || end < needle.size()) return std::string_view::npos;
  return lowered_text.rfind(LowerAscii(needle), std::min(end, lowered_text.size()) - needle.size());
}

std::optional<TextSpan> PickHelpWord(std::string_view text, std::size_t caret) {
  // `pos` is the clicked character.
  std::size_t pos = caret;
  if (pos >= text.size() || IsBlank(text[pos])) return std::nullopt;
  if (text[pos] == ']') {
    if (pos == 0) return std::nullopt;
    --pos;
  }
  if (text[pos] == '[') ++pos;
  if (pos >= text.size()) return std::nullopt;

  std::optional<std::size_t> start;
  char closing = 0;
  const std::size_t lowest = pos > kScanReach ? pos - kScanReach : 0;
  for (std::size_t i = pos; i-- > lowest;) {
    const char c = text[i];
    if (!IsWordBreak(c)) continue;
    if (c == '}' || c == ']' || c == ')' || c == '"') {
      if (!start) start = i + 1;
      break;
    }
    if (c == '{' || c == '[') {
      // A bracket farther to the left claims the word, blanks and all.
      start = i + 1;
      closing = c == '{' ? '}' : ']';
      break;
    }
    if (!start) start = i + 1;
  }
  const std::size_t first = start.value_or(0);

  std::size_t end = text.size();
  const std::size_t highest = std::min(text.size(), pos + kScanReach + 1);
  for (std::size_t i = pos + 1; i < highest; ++i) {
    if (IsWordBreak(text[i]) && (closing == 0 || text[i] == closing)) {
      end = i;
      break;
    }
  }
  if (end < first) return std::nullopt;
  return TextSpan{first, end - first};
}

HelpIndex BuildHelpIndex(std::string_view text) {
  HelpIndex index;
  std::unordered_set<std::string> seen_sub;
  std::string buffer;
  bool collecting = false;
  for (char c : text) {
    switch (c) {
      case '[':
      case '{':
        buffer.assign(1, c);
        collecting = true;
        break;
      case ']':
        // A closing bracket that no opening one stands before is plain text.
        if (!collecting) break;
        buffer += c;
        index.main_topics.push_back(buffer);
        collecting = false;
        break;
      case '}':
        if (!collecting) break;
        buffer += c;
        if (seen_sub.insert(LowerAscii(buffer)).second) index.sub_topics.push_back(buffer);
        buffer.clear();
        collecting = false;
        break;
      default:
        if (collecting) buffer += c;
    }
  }
  return index;
}

}  // namespace vardolin
