#pragma once
// The catalogue commands of vardolin-cli. Each gives the process's exit code: 0 done, 1 the
// command failed (the reason went to the error stream), 2 the program couldn't start.

#include <cstdint>
#include <iosfwd>
#include <string>

namespace vardolin {

class Program;

// Makes a new, empty archive; the archive folder is asked (give it with --answer).
int CmdNewCatalogue(Program& program, std::ostream& out, std::ostream& err);
// Opens the catalogue and makes it the one the program opens next.
int CmdOpen(Program& program, const std::string& catalogue, std::ostream& out, std::ostream& err);
// One line per level of the last catalogue: code, name, CD, files size, user size.
int CmdList(Program& program, std::ostream& out, std::ostream& err);
// Every field of one level of the last catalogue.
int CmdInfo(Program& program, std::int32_t code, std::ostream& out, std::ostream& err);

}  // namespace vardolin
