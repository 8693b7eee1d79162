#pragma once
// The program's command line (tokens cut by NextQuotedToken of services/text_scan.h): a catalogue
// to open and a folder with the level editor's setup files, each given as a token in double quotes.
// Words without quotes are not seen.

#include <string>
#include <string_view>

namespace vardolin {

class Program;

struct CommandLineArgs {
  std::string catalogue;     // ends with the catalogue extension (text 1079)
  std::string editor_setup;  // last path component is text 1080
};

// Cuts the trimmed text into quoted tokens; the last token of each kind wins.
CommandLineArgs ParseCommandLine(const Program& program, std::string_view text);

}  // namespace vardolin
