#pragma once
// Level CDs from vardolin-cli: the plan of CDs, the CDs written as image files, or burned.
// Exit codes as the other commands give.

#include <iosfwd>
#include <string>

namespace vardolin {

class Program;
class TerminalUi;

// Prints which levels still on hard disk go on which CD of `mb` megabytes.
int CmdCdPlan(Program& program, int mb, std::ostream& out, std::ostream& err);
// Writes every planned CD as an ISO image into `folder`, marks the levels with their CD and,
// once each level was found whole in its image, takes its files off the hard disk.
int CmdCdImage(Program& program, TerminalUi& ui, const std::string& folder, int mb,
               std::ostream& out, std::ostream& err);
// Burns the planned CDs on the first writer at `speed`; the questions (insert the next disc,
// check it, remove the files) are answered with --answer or --yes.
int CmdCdBurn(Program& program, int speed, int mb, std::ostream& out, std::ostream& err);

}  // namespace vardolin
