// Reading the .trc language format: an entry count, then per entry an id, a comment line for the
// translator and the quoted text. Pure: bytes in, entries out.

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "foundation/services/codepage.h"
#include "foundation/services/strings.h"
#include "foundation/texts/text_catalogue.h"

namespace vardolin {
namespace {

// Walks the file as the old line-oriented reader did: a number item ends at a comma or at the
// line's end, a text line at the line's end. Lines end in CR LF; a lone LF is taken too.
class TrcCursor {
 public:
  explicit TrcCursor(std::string_view bytes) : bytes_(bytes) {}

  bool AtEnd() const { return pos_ >= bytes_.size(); }
  int Line() const { return line_; }

  // False at the end of the file or when the item is no whole decimal number.
  bool Number(std::int32_t& value, std::string& error) {
    // Blank lines and blanks in front of a number are passed over.
    while (!AtEnd() && IsSpaceOrEnd(bytes_[pos_])) {
      if (bytes_[pos_] == '\n') ++line_;
      ++pos_;
    }
    if (AtEnd()) {
      error = "Input past end of file";
      return false;
    }
    size_t start = pos_;
    int item_line = line_ + 1;
    while (!AtEnd() && bytes_[pos_] != ',' && bytes_[pos_] != '\n') ++pos_;
    std::string_view item = bytes_.substr(start, pos_ - start);
    while (!item.empty() && IsSpaceOrEnd(item.back())) item.remove_suffix(1);
    if (!AtEnd()) {
      if (bytes_[pos_] == '\n') ++line_;
      ++pos_;  // the comma or the line end
    }
    const char* first = item.data();
    const char* last = item.data() + item.size();
    if (first != last && *first == '+') ++first;
    auto [ptr, ec] = std::from_chars(first, last, value);
    if (item.empty() || ec != std::errc() || ptr != last) {
      error = "Type mismatch: \"" + std::string(item) + "\" is not a number (line " +
              std::to_string(item_line) + ")";
      return false;
    }
    return true;
  }

  // One whole line without its line end; false at the end of the file.
  bool TextLine(std::string_view& line, std::string& error) {
    if (AtEnd()) {
      error = "Input past end of file";
      return false;
    }
    size_t end = bytes_.find('\n', pos_);
    size_t next = end == std::string_view::npos ? bytes_.size() : end + 1;
    if (end == std::string_view::npos) end = bytes_.size();
    size_t stop = end;
    if (stop > pos_ && bytes_[stop - 1] == '\r') --stop;
    line = bytes_.substr(pos_, stop - pos_);
    current_line_ = ++line_;
    pos_ = next;
    return true;
  }
  int CurrentLine() const { return current_line_; }

 private:
  static bool IsSpaceOrEnd(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
  std::string_view bytes_;
  size_t pos_ = 0;
  int line_ = 0;  // line ends passed so far
  int current_line_ = 0;
};

// Drops the first and the last character, whole UTF-8 sequences included.
std::string WithoutEnds(std::string_view s) {
  size_t begin = 1;
  while (begin < s.size() && (static_cast<unsigned char>(s[begin]) & 0xC0) == 0x80) ++begin;
  size_t end = s.size() - 1;
  while (end > begin && (static_cast<unsigned char>(s[end]) & 0xC0) == 0x80) --end;
  return begin < end ? std::string(s.substr(begin, end - begin)) : std::string();
}

// A text line in the code page, converted and decoded; false with a reason when it can't be.
bool ReadQuoted(TrcCursor& cursor, int codepage, std::string& text, std::string& error) {
  std::string_view raw;
  if (!cursor.TextLine(raw, error)) return false;
  std::string where = " (line " + std::to_string(cursor.CurrentLine()) + ")";
  if (raw.size() < 2) {
    error = "Bad text line: shorter than its two quotes" + where;
    return false;
  }
  if (raw.size() == 2) {
    text.clear();
    return true;
  }
  std::optional<std::string> utf8 = ToUtf8(raw, codepage);
  if (!utf8) {
    error = "Invalid character for code page " + std::to_string(codepage) + where;
    return false;
  }
  return DecodeTextLine(*utf8, text);
}

}  // namespace

bool DecodeTextLine(std::string_view line, std::string& text) {
  if (line.size() < 2) return false;
  if (line.size() == 2) {
    text.clear();
    return true;
  }
  std::string s = ReplaceAllNoCase(line, "\\r\\n", "\r\n");
  s = ReplaceAll(s, "\"\"", "\"");
  text = WithoutEnds(s);
  return true;
}

TrcParse ParseTrc(std::string_view bytes, int codepage) {
  TrcParse out;
  TrcCursor cursor(bytes);
  if (!cursor.Number(out.declared_count, out.error)) {
    out.ok = false;
    return out;
  }
  if (out.declared_count < 0) {
    out.ok = false;
    out.error = "Bad entry count " + std::to_string(out.declared_count);
    return out;
  }
  // The count comes from the file: reserve no more than the bytes could hold.
  out.entries.reserve(std::min<size_t>(out.declared_count, bytes.size() / 6 + 1));
  for (std::int32_t i = 0; i < out.declared_count; ++i) {
    TextEntry entry;
    if (!cursor.Number(entry.id, out.error) ||
        !ReadQuoted(cursor, codepage, entry.comment, out.error) ||
        !ReadQuoted(cursor, codepage, entry.text, out.error)) {
      out.ok = false;
      return out;
    }
    out.entries.push_back(std::move(entry));
  }
  return out;
}

}  // namespace vardolin
