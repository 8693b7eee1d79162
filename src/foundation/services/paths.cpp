#include "foundation/services/paths.h"

#include <cmath>
#include <cstdio>

#include "foundation/services/strings.h"

namespace vardolin {
namespace {

bool IsSeparator(char c) {
  return c == '/' || c == '\\';
}

std::size_t LastSeparator(std::string_view path, bool colon_too) {
  for (std::size_t i = path.size(); i-- > 0;)
    if (IsSeparator(path[i]) || (colon_too && path[i] == ':')) return i;
  return std::string_view::npos;
}

// Offset of the dot that starts the extension of the last path component, or npos.
std::size_t ExtensionDot(std::string_view path) {
  std::size_t sep = LastSeparator(path, true);
  std::size_t start = sep == std::string_view::npos ? 0 : sep + 1;
  std::size_t dot = path.rfind('.');
  if (dot == std::string_view::npos || dot < start) return std::string_view::npos;
  return dot;
}

std::string OneDecimal(double value) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.1f", value);
  return buf;
}

}  // namespace

std::string ExtractFileName(std::string_view path) {
  std::size_t sep = LastSeparator(path, true);
  return std::string(sep == std::string_view::npos ? path : path.substr(sep + 1));
}

std::string ExtractExtension(std::string_view path) {
  std::size_t dot = ExtensionDot(path);
  return dot == std::string_view::npos ? std::string() : std::string(path.substr(dot));
}

std::string ExtractFolder(std::string_view path) {
  std::size_t sep = LastSeparator(path, false);
  return sep == std::string_view::npos ? std::string() : std::string(path.substr(0, sep));
}

std::string RemoveExtension(std::string_view name) {
  std::size_t dot = ExtensionDot(name);
  return std::string(dot == std::string_view::npos ? name : name.substr(0, dot));
}

std::string ExtractBaseName(std::string_view path) {
  return RemoveExtension(ExtractFileName(path));
}

std::string ChangeExtension(std::string_view name, std::string_view extension) {
  return RemoveExtension(name) + std::string(extension);
}

std::string ExtractUrlFileName(std::string_view url) {
  std::size_t sep = LastSeparator(url, false);
  return std::string(sep == std::string_view::npos ? url : url.substr(sep + 1));
}

std::string ExtractUrlHost(std::string_view url) {
  std::size_t start = url.find("//");
  if (start == std::string_view::npos) return std::string(url);
  start += 2;
  std::size_t end = url.find('/', start);
  return std::string(url.substr(start, end == std::string_view::npos ? end : end - start));
}

std::string RemoveNulls(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c == '\0') c = ' ';
  return Trim(out);
}

std::string CleanFileName(std::string_view text) {
  std::string out(text);
  for (char& c : out) switch (c) {
      case '/':
      case '\\':
      case '<':
      case '>':
      case ':':
      case '?':
      case '|':
      case '"':
        c = ' ';
        break;
      default:
        break;
    }
  return out;
}

std::string WithoutLeadingSeparators(std::string_view fragment) {
  while (!fragment.empty() && IsSeparator(fragment.front())) fragment.remove_prefix(1);
  return std::string(fragment);
}

std::string FormatFileSize(double bytes) {
  constexpr double kKb = 1024.0, kMb = 1048576.0, kGb = 1073741824.0;
  if (bytes >= kGb) return OneDecimal(bytes / kGb) + " Gb";
  if (bytes >= kMb) return OneDecimal(bytes / kMb) + " Mb";
  char buf[64];
  if (bytes >= kKb) {
    std::snprintf(buf, sizeof buf, "%.0f Kb", std::floor(bytes / kKb));
    return buf;
  }
  if (bytes == std::floor(bytes))
    std::snprintf(buf, sizeof buf, "%.0f", bytes);
  else
    std::snprintf(buf, sizeof buf, "%g", bytes);
  return buf;
}

std::filesystem::path JoinFragment(const std::filesystem::path& folder, std::string_view fragment) {
  std::string rel(fragment);
  for (char& c : rel)
    if (c == '\\') c = '/';
  std::size_t skip = rel.find_first_not_of('/');
  rel = skip == std::string::npos ? std::string() : rel.substr(skip);
  if (rel.empty()) return folder;
  if (folder.empty()) return std::filesystem::path(rel);
  return folder / rel;
}

}  // namespace vardolin
