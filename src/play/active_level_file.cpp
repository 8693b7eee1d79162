#include "play/active_level_file.h"

#include <charconv>
#include <cstdio>

#include "foundation/services/strings.h"

namespace vardolin {

namespace {
constexpr std::string_view kLineEnd = "\r\n";

std::string JoinList(const std::vector<std::string>& entries) {
  std::string out;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (i) out += '|';
    out += entries[i];
  }
  return out;
}
}  // namespace

std::string FormatActiveLevelHead(const ActiveLevelTexts& texts, std::int32_t code,
                                  std::string_view name) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%04d", static_cast<int>(code));
  std::string out;
  for (const std::string* line : {&texts.notice1, &texts.notice2, &texts.notice3}) {
    out += *line;
    out += kLineEnd;
  }
  out += kLineEnd;
  out += texts.code_key + digits + "#";
  out += kLineEnd;
  out += texts.name_key + Trim(name) + "#";
  out += kLineEnd;
  return out;
}

std::string FormatActiveLevelLists(const ActiveLevelTexts& texts,
                                   const std::vector<std::string>& replaced,
                                   const std::vector<std::string>& files) {
  std::string out;
  out += texts.replaced_key + JoinList(replaced) + "#";
  out += kLineEnd;
  out += texts.files_key + JoinList(files) + "#";
  out += kLineEnd;
  return out;
}

std::string WithMarkerState(const ActiveLevelTexts& texts, std::string_view marker,
                            std::string_view state) {
  std::string out(marker);
  const std::size_t at = ToLower(out).find(ToLower(texts.state_key));
  if (at != std::string::npos) {
    std::size_t end = out.find('#', at);
    end = end == std::string::npos ? out.size() : end + 1;
    if (out.compare(end, kLineEnd.size(), kLineEnd) == 0) end += kLineEnd.size();
    out.erase(at, end - at);
  }
  return out + texts.state_key + std::string(state) + "#" + std::string(kLineEnd);
}

std::string ReadMarkerField(std::string_view marker, std::string_view key) {
  if (key.empty() || marker.size() < key.size()) return {};
  const std::size_t at = ToLower(marker).find(ToLower(key));
  if (at == std::string::npos) return {};
  const std::size_t start = at + key.size();
  std::size_t end = marker.find('#', start);
  if (end == std::string_view::npos) end = marker.size();
  return Trim(marker.substr(start, end - start));
}

std::optional<std::int32_t> ParseMarkerCode(std::string_view value) {
  if (value.empty()) return std::nullopt;
  std::int32_t code = 0;
  auto [ptr, ec] = std::from_chars(value.data(), value.data() + value.size(), code);
  if (ec != std::errc() || ptr != value.data() + value.size()) return std::nullopt;
  return code;
}

std::vector<std::string> SplitMarkerList(std::string_view value) {
  std::vector<std::string> out;
  std::size_t start = 0;
  while (start <= value.size()) {
    std::size_t end = value.find('|', start);
    if (end == std::string_view::npos) end = value.size();
    std::string entry = Trim(value.substr(start, end - start));
    if (!entry.empty()) out.push_back(std::move(entry));
    start = end + 1;
  }
  return out;
}

}  // namespace vardolin
