#pragma once
// The commands of level CDs and CD images. Exit codes as the catalogue commands give them.

#include <cstdint>
#include <iosfwd>
#include <string>

namespace vardolin {

class Program;

// The files of an ISO image as the burn engine reports them: FlatList (one path a line),
// TreeList (paths indented under their folders) or ReferenceList (path, size, date).
int CmdCdReport(Program& program, const std::string& kind, const std::string& image,
                std::ostream& out, std::ostream& err);

// Tells the current archive where CD `number` is: an ISO image file (remembered in the home, so
// the levels of that CD are read from it) or the folder a disc of it is mounted on (MainDir
// takes it). The image or the disc must hold the first level the catalogue puts on that CD.
int CmdCdAttach(Program& program, std::int32_t number, const std::string& where, std::ostream& out,
                std::ostream& err);

}  // namespace vardolin
