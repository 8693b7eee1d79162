#include "foundation/services/strings.h"

#include <algorithm>

namespace vardolin {
namespace {

char Upper(char c) {
  return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::string Trim(std::string_view text) {
  return std::string(TrimView(text));
}

std::vector<std::string> SplitNulList(std::string_view list) {
  std::vector<std::string> parts;
  if (Trim(list).empty()) return parts;
  std::size_t start = 0;
  while (start <= list.size()) {
    std::size_t end = list.find('\0', start);
    if (end == std::string_view::npos) end = list.size();
    parts.push_back(Trim(list.substr(start, end - start)));
    start = end + 1;
  }
  return parts;
}

std::string TrimRight(std::string_view text) {
  size_t e = text.size();
  while (e > 0 && IsTrimBlank(text[e - 1])) --e;
  return std::string(text.substr(0, e));
}

std::string ToLower(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), AsciiLower);
  return out;
}

std::string ToUpper(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), Upper);
  return out;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (AsciiLower(a[i]) != AsciiLower(b[i])) return false;
  return true;
}

bool LessNoCase(std::string_view a, std::string_view b) {
  size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    char x = AsciiLower(a[i]), y = AsciiLower(b[i]);
    if (x != y) return static_cast<unsigned char>(x) < static_cast<unsigned char>(y);
  }
  if (a.size() != b.size()) return a.size() < b.size();
  return a < b;
}

bool ContainsNoCase(std::string_view haystack, std::string_view needle) {
  if (needle.empty()) return true;
  auto it = std::search(haystack.begin(), haystack.end(), needle.begin(), needle.end(),
                        [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
  return it != haystack.end();
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

bool EndsWithNoCase(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() &&
         EqualsNoCase(text.substr(text.size() - suffix.size()), suffix);
}

std::string ReplaceAllNoCase(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string out;
  size_t i = 0;
  while (i < text.size()) {
    if (i + from.size() <= text.size() && EqualsNoCase(text.substr(i, from.size()), from)) {
      out += to;
      i += from.size();
    } else {
      out += text[i++];
    }
  }
  return out;
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string out;
  size_t i = 0;
  while (true) {
    size_t j = text.find(from, i);
    if (j == std::string_view::npos) break;
    out.append(text.substr(i, j - i));
    out.append(to);
    i = j + from.size();
  }
  out.append(text.substr(i));
  return out;
}

void AppendUtf8(std::string& out, char32_t cp) {
  if ((cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) cp = 0xFFFD;
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

}  // namespace vardolin
