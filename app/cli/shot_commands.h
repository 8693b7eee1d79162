#pragma once
// The screenshot command of vardolin-cli. Exit codes as the catalogue commands give them.

#include <cstdint>
#include <iosfwd>

namespace vardolin {

class Program;

// One line per screenshot of the level, oldest first as the panel orders them: its index,
// its date, its size and its path; or a JSON array of the same with the size in bytes.
int CmdShots(Program& program, std::int32_t code, bool json, std::ostream& out, std::ostream& err);

}  // namespace vardolin
