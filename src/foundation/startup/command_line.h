#pragma once
// The program's command line: a catalogue to open and a folder with the level editor's setup
// files, each given as a token in double quotes. Words without quotes are not seen.

#include <cstddef>
#include <string>
#include <string_view>

namespace vardolin {

class Program;

// The text between the next pair of double quotes at or after `pos` (0-based), moving `pos`
// behind the closing quote. Empty when no pair is left; `pos` then passes the end.
std::string NextQuotedToken(std::string_view text, std::size_t& pos);

struct CommandLineArgs {
  std::string catalogue;     // ends with the catalogue extension (text 1079)
  std::string editor_setup;  // last path component is text 1080
};

// Cuts the trimmed text into quoted tokens; the last token of each kind wins.
CommandLineArgs ParseCommandLine(const Program& program, std::string_view text);

}  // namespace vardolin
