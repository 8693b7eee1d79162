#include "startup/command_line.h"

#include <filesystem>

#include "archive/text_ids.h"
#include "foundation/program.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/text_scan.h"
#include "foundation/text_ids.h"

namespace vardolin {

namespace {

bool EndsWithNoCase(const std::string& text, const std::string& tail) {
  return !tail.empty() && text.size() >= tail.size() &&
         ToLower(text.substr(text.size() - tail.size())) == ToLower(tail);
}

// The last component of a path written with either separator, without a trailing one.
std::string LastComponent(std::string path) {
  while (!path.empty() && (path.back() == '/' || path.back() == '\\')) path.pop_back();
  std::size_t cut = path.find_last_of("/\\");
  return cut == std::string::npos ? path : path.substr(cut + 1);
}

}  // namespace

CommandLineArgs ParseCommandLine(const Program& program, std::string_view text) {
  CommandLineArgs args;
  std::string line = Trim(std::string(text));
  std::string extension = program.GetText(text::CatalogueExtension);
  std::string setup_name = WithoutLeadingSeparators(program.GetText(text::EditorSetupFolder));
  std::size_t pos = 0;
  while (pos < line.size()) {
    std::string token = NextQuotedToken(line, pos);
    if (token.empty()) break;
    if (EndsWithNoCase(token, extension))
      args.catalogue = token;
    else if (!setup_name.empty() && ToLower(LastComponent(token)) == ToLower(setup_name))
      args.editor_setup = token;
  }
  return args;
}

}  // namespace vardolin
