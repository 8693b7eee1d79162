#pragma once
// The equal-level check of vardolin-cli.

#include <iosfwd>

namespace vardolin {

class Program;

// One line per level of the current catalogue that has an equal level: its code and name, the
// equal level's code and name, and the level file they share; or with `json` an array of
// objects. A pair shows from both sides. Levels without a list of their files are never equal.
int CmdEqual(Program& program, bool json, std::ostream& out, std::ostream& err);

}  // namespace vardolin
