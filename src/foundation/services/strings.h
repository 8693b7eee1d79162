#pragma once
// Small string tools shared by everything: trimming and comparison without regard to case, as
// the Windows file system and the program's own name checks behave.

#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

// One letter folded as the comparisons without regard to case fold it: ASCII only, so that
// names in code page 1252 keep their other bytes.
inline char AsciiLower(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}
// What Trim takes away at either end.
inline bool IsTrimBlank(char c) {
  return c == ' ' || c == '\t' || c == '\0';
}

std::string Trim(std::string_view text);
// Trim without a copy: the view lives as long as the text it looks at. Inline, since parsers
// call it for every line.
inline std::string_view TrimView(std::string_view text) {
  std::size_t b = 0, e = text.size();
  while (b < e && IsTrimBlank(text[b])) ++b;
  while (e > b && IsTrimBlank(text[e - 1])) --e;
  return text.substr(b, e - b);
}
std::string TrimRight(std::string_view text);
// The parts of a text whose values are kept apart by the character 0, each trimmed; empty parts
// stay in their places. A blank text has none.
std::vector<std::string> SplitNulList(std::string_view list);
std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
// Strict weak order without regard to case; ties broken by the bytes so that sorting is stable.
bool LessNoCase(std::string_view a, std::string_view b);
bool ContainsNoCase(std::string_view haystack, std::string_view needle);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);
bool EndsWithNoCase(std::string_view text, std::string_view suffix);
// Replaces every occurrence of `from` (compared without regard to case) by `to`.
std::string ReplaceAllNoCase(std::string_view text, std::string_view from, std::string_view to);
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);
// Appends one Unicode code point as UTF-8; surrogates and values beyond U+10FFFF become U+FFFD.
void AppendUtf8(std::string& out, char32_t code_point);

}  // namespace vardolin
