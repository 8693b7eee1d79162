#pragma once
// Scanners over text read from files: numbers, lines and quoted tokens, each leaving the
// position behind what it took, so that callers walk a text in one pass. Positions are 0-based
// byte offsets: "from position 1" of a written procedure is offset 0 here, and "the position
// passes the end" is `pos >= text.size()`.

#include <cstddef>
#include <string>
#include <string_view>

namespace vardolin {

// The next run of digits at or behind `pos`; `pos` is left just behind it. Empty (and `pos` at
// the end) when no digit follows.
std::string NextNumberInText(std::string_view text, std::size_t& pos);
// The characters from `pos` up to the next CR or LF; `pos` is left on the first character
// behind the run of CR and LF that follows (blank lines inside that run are skipped).
std::string NextLineInText(std::string_view text, std::size_t& pos);
// The text between the next pair of double quotes; `pos` is left just behind the closing quote.
// Empty, with `pos` at the end of the line, when no further pair of quotes stands in the line.
std::string NextQuotedToken(std::string_view line, std::size_t& pos);

}  // namespace vardolin
