#pragma once
// vardolin-cli setup: what the window's start-up does before the first level can move, for a
// headless machine after install-editor. Exit codes as the other commands give.

#include <iosfwd>
#include <string>

namespace vardolin {

class Program;
class TerminalUi;

// Finds the editor folder (`editor` when given, else the one the settings name, else the one
// the Wine prefix's registry names), makes the safe copy of its files, builds the base level and
// opens the settings' catalogue, or makes one whose levels go into `archive` (else the folder
// proposed). Prints the editor folder, the backup and the catalogue.
int CmdSetup(Program& program, TerminalUi& ui, const std::string& editor,
             const std::string& archive, std::ostream& out, std::ostream& err);

}  // namespace vardolin
