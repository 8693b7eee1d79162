#include "foundation/services/text_scan.h"

namespace vardolin {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

std::string NextNumberInText(std::string_view text, std::size_t& pos) {
  if (pos > text.size()) pos = text.size();
  while (pos < text.size() && !IsDigit(text[pos])) ++pos;
  std::size_t start = pos;
  while (pos < text.size() && IsDigit(text[pos])) ++pos;
  return std::string(text.substr(start, pos - start));
}

std::string NextLineInText(std::string_view text, std::size_t& pos) {
  if (pos >= text.size()) {
    pos = text.size();
    return {};
  }
  std::size_t end = text.find_first_of("\r\n", pos);
  if (end == std::string_view::npos) end = text.size();
  std::string line(text.substr(pos, end - pos));
  pos = end;
  while (pos < text.size() && (text[pos] == '\r' || text[pos] == '\n')) ++pos;
  return line;
}

std::string NextQuotedToken(std::string_view line, std::size_t& pos) {
  std::size_t open = pos < line.size() ? line.find('"', pos) : std::string_view::npos;
  std::size_t close =
      open == std::string_view::npos ? std::string_view::npos : line.find('"', open + 1);
  if (close == std::string_view::npos) {
    pos = line.size();
    return {};
  }
  pos = close + 1;
  return std::string(line.substr(open + 1, close - open - 1));
}

}  // namespace vardolin
