#include "foundation/services/codepage.h"

#include <iconv.h>

#include <cerrno>
#include <string>

#include "foundation/services/strings.h"

namespace vardolin {
namespace {

std::string IconvName(int codepage) {
  switch (codepage) {
    case 932:
      return "CP932";
    case 936:
      return "CP936";
    case 65001:
      return "UTF-8";
    default:
      return "CP" + std::to_string(codepage);
  }
}

bool IsAscii(std::string_view s) {
  for (unsigned char c : s)
    if (c >= 0x80) return false;
  return true;
}

// Runs iconv over the input. On an invalid sequence either stops (strict) or writes the
// replacement and skips one byte.
std::optional<std::string> Convert(std::string_view in, const std::string& from,
                                   const std::string& to, const char* replacement) {
  iconv_t cd = iconv_open(to.c_str(), from.c_str());
  if (cd == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
  std::string out;
  out.reserve(in.size() * 2 + 8);
  char* src = const_cast<char*>(in.data());
  size_t src_left = in.size();
  char buffer[4096];
  while (src_left > 0) {
    char* dst = buffer;
    size_t dst_left = sizeof buffer;
    size_t r = iconv(cd, &src, &src_left, &dst, &dst_left);
    out.append(buffer, dst - buffer);
    if (r == static_cast<size_t>(-1)) {
      if (errno == E2BIG) continue;
      if (!replacement) {
        iconv_close(cd);
        return std::nullopt;
      }
      out += replacement;
      ++src;
      --src_left;
    }
  }
  char* dst = buffer;
  size_t dst_left = sizeof buffer;
  iconv(cd, nullptr, nullptr, &dst, &dst_left);
  out.append(buffer, dst - buffer);
  iconv_close(cd);
  return out;
}

}  // namespace

int CodePageOfLanguage(std::string_view language) {
  std::string name = Trim(language);
  if (EqualsNoCase(name, "greek")) return 1253;
  if (EqualsNoCase(name, "turkish")) return 1254;
  if (EqualsNoCase(name, "japan") || EqualsNoCase(name, "japanese")) return 932;
  if (EqualsNoCase(name, "russian")) return 1251;
  if (EqualsNoCase(name, "chinese")) return 936;
  if (EqualsNoCase(name, "polish") || EqualsNoCase(name, "czech") ||
      EqualsNoCase(name, "hungarian"))
    return 1250;
  return 1252;
}

std::optional<std::string> ToUtf8(std::string_view bytes, int codepage) {
  if (IsAscii(bytes)) return std::string(bytes);
  return Convert(bytes, IconvName(codepage), "UTF-8", nullptr);
}

std::string ToUtf8Lossy(std::string_view bytes, int codepage) {
  if (IsAscii(bytes)) return std::string(bytes);
  auto out = Convert(bytes, IconvName(codepage), "UTF-8", "\xEF\xBF\xBD");
  return out ? *out : std::string(bytes);
}

std::string FromUtf8Lossy(std::string_view utf8, int codepage) {
  if (IsAscii(utf8)) return std::string(utf8);
  auto out = Convert(utf8, "UTF-8", IconvName(codepage) + "//TRANSLIT", "?");
  return out ? *out : std::string(utf8);
}

}  // namespace vardolin
