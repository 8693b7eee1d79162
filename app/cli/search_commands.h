#pragma once
// `vardolin-cli search`: the zip search of the window, printing the found paths.

#include <ostream>
#include <string>
#include <vector>

namespace vardolin {

class Program;

struct SearchCommandOptions {
  std::vector<std::string> words;
  std::string folder;  // empty: the newest folder searched in the window, else the first one
  bool inside_zips = false;
  int kind = 0;
  int days = 0;  // above 0: the files of the last N days instead of by words
};

int CmdSearch(Program& program, const SearchCommandOptions& options, std::ostream& out,
              std::ostream& err);

}  // namespace vardolin
