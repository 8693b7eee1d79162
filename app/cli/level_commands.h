#pragma once
// The commands of vardolin-cli that add a level and show what a level stores. Exit codes as the
// catalogue commands give them.

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace vardolin {

class Program;
class TerminalUi;

// Adds one level made of the packages and folders given, in order: the first file package is
// added as the level's package (its name becomes the level's name), the rest are added to it.
// `name` and `note`, when given, replace what the packages suggested. Questions are answered by
// --answer. Prints the new level's code; a level not added ends with one line that says why.
int CmdAdd(Program& program, TerminalUi& ui, const std::vector<std::string>& sources,
           const std::string& name, const std::string& note, std::ostream& out, std::ostream& err);

// One line per stored file of the level: its name, its size and whether it is packed; or a
// JSON array of the same.
// Compiles the level sources (.tom) a stored level holds and stores the compiled levels in their
// place, as the level properties' compile and Done do.
int CmdCompile(Program& program, std::int32_t code, std::ostream& out, std::ostream& err);
int CmdFiles(Program& program, std::int32_t code, bool json, std::ostream& out, std::ostream& err);

}  // namespace vardolin
