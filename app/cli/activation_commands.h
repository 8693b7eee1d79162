#pragma once
// The level activation commands of vardolin-cli: which level stands in the editor folder, and
// putting another one there. Exit codes as the catalogue commands give them.

#include <cstdint>
#include <iosfwd>

namespace vardolin {

class Program;

// Puts the level of the last catalogue with that code into the editor folder.
int CmdActivate(Program& program, std::int32_t code, std::ostream& out, std::ostream& err);
// Puts the base level back into the editor folder.
int CmdReset(Program& program, std::ostream& out, std::ostream& err);
// The code of the level that stands in the editor folder (0: the base level); with `json` an
// object that also names the editor folder.
int CmdActive(Program& program, bool json, std::ostream& out, std::ostream& err);

}  // namespace vardolin
