#pragma once
// The level-CD commands of vardolin-cli.

#include <cstdint>
#include <iosfwd>
#include <string>

namespace vardolin {

class Program;

// Tells the current archive where CD `number` is: an ISO image file (remembered in the home, so
// the levels of that CD are read from it) or the folder a disc of it is mounted on (MainDir
// takes it). The image or the disc must hold the first level the catalogue puts on that CD.
int CmdCdAttach(Program& program, std::int32_t number, const std::string& where, std::ostream& out,
                std::ostream& err);

}  // namespace vardolin
