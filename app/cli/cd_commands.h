#pragma once
// The commands of level CDs and CD images. Exit codes as the catalogue commands give them.

#include <iosfwd>
#include <string>

namespace vardolin {

class Program;

// The files of an ISO image as the burn engine reports them: FlatList (one path a line),
// TreeList (paths indented under their folders) or ReferenceList (path, size, date).
int CmdCdReport(Program& program, const std::string& kind, const std::string& image,
                std::ostream& out, std::ostream& err);

}  // namespace vardolin
