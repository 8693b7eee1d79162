#include "foundation/platform/wine_registry_write.h"

#include <ctime>
#include <vector>

#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

std::string Escaped(std::string_view text) {
  std::string out;
  for (char c : text) {
    if (c == '\\' || c == '"') out += '\\';
    out += c;
  }
  return out;
}

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    lines.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

// The key as a section header holds it, without brackets and time stamp.
std::string HeaderKey(const std::string& line) {
  std::size_t close = line.rfind(']');
  return close == std::string::npos ? std::string() : line.substr(1, close - 1);
}

}  // namespace

std::string SetWineRegistryString(std::string_view reg, std::string_view key, std::string_view name,
                                  std::string_view data) {
  std::vector<std::string> lines = Lines(reg);
  if (lines.empty()) {
    lines = {"WINE REGISTRY Version 2", ";; All keys relative to \\\\Machine", ""};
  }
  const std::string header_key = Escaped(key);
  const std::string value_start = name.empty() ? "@=" : "\"" + Escaped(name) + "\"=";
  const std::string value_line = value_start + "\"" + Escaped(data) + "\"";
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].empty() || lines[i][0] != '[' || !EqualsNoCase(HeaderKey(lines[i]), header_key))
      continue;
    std::size_t j = i + 1;
    for (; j < lines.size() && !lines[j].empty() && lines[j][0] != '['; ++j) {
      if (StartsWithNoCase(lines[j], value_start)) {
        lines[j] = value_line;
        return JoinLines(lines);
      }
    }
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(j), value_line);
    return JoinLines(lines);
  }
  if (!lines.back().empty()) lines.emplace_back();
  lines.push_back("[" + header_key + "] " + std::to_string(std::time(nullptr)));
  lines.push_back(value_line);
  return JoinLines(lines);
}

bool WriteWineRegistryString(const fs::path& prefix, std::string_view key, std::string_view name,
                             std::string_view data) {
  std::error_code ec;
  fs::create_directories(prefix, ec);
  fs::path file = prefix / "system.reg";
  return AtomicWriteFile(file, SetWineRegistryString(ReadWholeFile(file), key, name, data));
}

std::string NativeToWinePath(const fs::path& prefix, const fs::path& path) {
  fs::path drive_c = (prefix / "drive_c").lexically_normal();
  fs::path native = path.lexically_normal();
  fs::path relative = native.lexically_relative(drive_c);
  std::string windows;
  if (!relative.empty() && *relative.begin() != "..")
    windows = "C:\\" + (relative == "." ? std::string() : relative.string());
  else
    windows = "Z:" + native.string();
  return ReplaceAll(windows, "/", "\\");
}

}  // namespace vardolin
