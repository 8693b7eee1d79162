#include "foundation/platform/wine_registry.h"

#include <algorithm>
#include <cstdlib>

#include "foundation/services/files.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Reads a quoted string starting just behind its opening quote; `pos` is left behind the
// closing quote. False when the line ends before it.
bool QuotedString(std::string_view line, std::size_t& pos, std::string& out) {
  out.clear();
  while (pos < line.size()) {
    char c = line[pos++];
    if (c == '"') return true;
    if (c != '\\' || pos >= line.size()) {
      out += c;
      continue;
    }
    char e = line[pos++];
    switch (e) {
      case 'n':
        out += '\n';
        break;
      case 'r':
        out += '\r';
        break;
      case 't':
        out += '\t';
        break;
      case 'a':
        out += '\a';
        break;
      case 'b':
        out += '\b';
        break;
      case 'f':
        out += '\f';
        break;
      case 'v':
        out += '\v';
        break;
      case 'x': {
        char32_t value = 0;
        int digits = 0;
        while (digits < 4 && pos < line.size() && HexDigit(line[pos]) >= 0) {
          value = value * 16 + static_cast<char32_t>(HexDigit(line[pos++]));
          ++digits;
        }
        if (digits == 0)
          out += 'x';
        else
          AppendUtf8(out, value);
        break;
      }
      default:
        if (e >= '0' && e <= '7') {
          int value = e - '0';
          for (int k = 0; k < 2 && pos < line.size() && line[pos] >= '0' && line[pos] <= '7'; ++k)
            value = value * 8 + (line[pos++] - '0');
          AppendUtf8(out, static_cast<char32_t>(value));
        } else {
          out += e;  // \\ and \" and anything unknown stand for themselves
        }
    }
  }
  return false;
}

std::string UnescapeKey(std::string_view key) {
  std::string out;
  for (std::size_t i = 0; i < key.size(); ++i) {
    if (key[i] == '\\' && i + 1 < key.size() && key[i + 1] == '\\') ++i;
    out += key[i];
  }
  return out;
}

std::string NormalKey(std::string_view key) {
  std::string out = ToLower(key);
  while (!out.empty() && out.back() == '\\') out.pop_back();
  std::size_t start = out.find_first_not_of('\\');
  return start == std::string::npos ? std::string() : out.substr(start);
}

bool DataOf(std::string_view rest, std::string& data) {
  std::size_t pos = 0;
  if (!rest.empty() && rest[0] == '"') {
    pos = 1;
    return QuotedString(rest, pos, data);
  }
  if (rest.rfind("str(", 0) == 0) {
    std::size_t colon = rest.find("):\"");
    if (colon == std::string_view::npos) return false;
    pos = colon + 3;
    return QuotedString(rest, pos, data);
  }
  if (rest.rfind("dword:", 0) == 0) {
    std::uint32_t value = 0;
    std::size_t digits = 0;
    for (char c : rest.substr(6)) {
      if (HexDigit(c) < 0 || digits == 8) break;
      value = value * 16 + static_cast<std::uint32_t>(HexDigit(c));
      ++digits;
    }
    if (digits == 0) return false;
    data = std::to_string(value);
    return true;
  }
  return false;
}

}  // namespace

void ParseWineRegistry(std::string_view text,
                       const std::function<bool(const RegistryValue&)>& visit) {
  RegistryValue value;
  bool in_key = false;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(pos, end - pos);
    pos = end + 1;
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (line.empty()) continue;
    if (line[0] == '[') {
      std::size_t close = line.rfind(']');
      in_key = close != std::string_view::npos && close > 0;
      if (in_key) value.key = UnescapeKey(line.substr(1, close - 1));
      continue;
    }
    if (!in_key) continue;
    std::size_t at = 0;
    if (line[0] == '@') {
      value.name.clear();
      at = 1;
    } else if (line[0] == '"') {
      at = 1;
      if (!QuotedString(line, at, value.name)) continue;
    } else {
      continue;  // comments, #time lines, continuation lines of binary values
    }
    if (at >= line.size() || line[at] != '=') continue;
    if (!DataOf(line.substr(at + 1), value.data)) continue;
    if (!visit(value)) return;
  }
}

std::optional<std::string> FindWineRegistryValue(std::string_view text, std::string_view key,
                                                 std::string_view name) {
  std::string want_key = NormalKey(key);
  std::string want_name = name == "@" ? std::string() : std::string(name);
  std::optional<std::string> found;
  ParseWineRegistry(text, [&](const RegistryValue& v) {
    if (EqualsNoCase(v.name, want_name) && NormalKey(v.key) == want_key) {
      found = v.data;
      return false;
    }
    return true;
  });
  return found;
}

std::string ReadWineRegistry(const fs::path& prefix, std::string_view key, std::string_view name) {
  if (prefix.empty()) return {};
  std::string file = "system.reg";
  std::string inner(key);
  auto strip = [&](std::string_view root) {
    if (StartsWithNoCase(inner, root) &&
        (inner.size() == root.size() || inner[root.size()] == '\\')) {
      inner.erase(0, std::min(inner.size(), root.size() + 1));
      return true;
    }
    return false;
  };
  if (strip("HKEY_CURRENT_USER") || strip("HKCU")) {
    file = "user.reg";
  } else if (strip("HKEY_CLASSES_ROOT") || strip("HKCR")) {
    inner = "Software\\Classes\\" + inner;
  } else {
    strip("HKEY_LOCAL_MACHINE") || strip("HKLM");
  }
  std::string text = ReadWholeFile(prefix / file);
  if (text.empty()) return {};
  return FindWineRegistryValue(text, inner, name).value_or(std::string());
}

fs::path DefaultWinePrefix() {
  if (const char* prefix = std::getenv("WINEPREFIX"); prefix && *prefix) return prefix;
  if (const char* home = std::getenv("HOME"); home && *home) return fs::path(home) / ".wine";
  return {};
}

fs::path ProgramFilesFolder() {
  const fs::path prefix = DefaultWinePrefix();
  return prefix.empty() ? fs::path() : prefix / "drive_c" / "Program Files";
}

}  // namespace vardolin
