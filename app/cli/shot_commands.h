#pragma once
// The screenshot command of vardolin-cli. Exit codes as the catalogue commands give them.

#include <cstdint>
#include <iosfwd>

namespace vardolin {

class Program;

// One line per screenshot of the level, oldest first as the panel orders them: its index,
// its date, its size in bytes and its path.
int CmdShots(Program& program, std::int32_t code, std::ostream& out, std::ostream& err);

}  // namespace vardolin
