#pragma once
// Conversion between the ANSI code pages of the program's files and UTF-8 in memory.

#include <optional>
#include <string>
#include <string_view>

namespace vardolin {

// The Windows code page that a language's files are written in (1252 unless the language
// needs another). The name is the language file's base name.
int CodePageOfLanguage(std::string_view language);

// Strict conversion: empty optional when a byte is not valid in the code page.
std::optional<std::string> ToUtf8(std::string_view bytes, int codepage);
// Lenient conversion: an invalid byte becomes U+FFFD; never fails.
std::string ToUtf8Lossy(std::string_view bytes, int codepage);
// UTF-8 to the code page; a character the code page lacks becomes '?'.
std::string FromUtf8Lossy(std::string_view utf8, int codepage);

}  // namespace vardolin
