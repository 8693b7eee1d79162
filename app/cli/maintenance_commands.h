#pragma once
// The ways back and the archive care of vardolin-cli: restoring the editor folder, the full
// backup of it, a catalogue rebuilt from level folders, the archive moved, the sizes recounted.
// Exit codes as the other commands give.

#include <iosfwd>
#include <string>

namespace vardolin {

class Program;

// --fast takes the level out of the editor folder; --full restores the editor's configuration.
int CmdRestoreEditor(Program& program, bool full, std::ostream& out, std::ostream& err);
// Makes the full backup of the editor folder afresh; the old one stays until the new one stands.
int CmdBackupEditor(Program& program, std::ostream& out, std::ostream& err);
// A new catalogue from the level folders of FOLDER; prints its file and level count. With
// `first_cd`, the folder of the first level CD's levels (its name ends in "1"), the CDs are read
// too, each next one from the same name with its number, and the count of CDs read is printed.
int CmdRecoverArchive(Program& program, const std::string& folder, const std::string& first_cd,
                      std::ostream& out, std::ostream& err);
// Moves the archive's level folders to FOLDER.
int CmdMoveArchive(Program& program, const std::string& folder, std::ostream& out,
                   std::ostream& err);
// Recounts every level's sizes and prints the archive's totals.
int CmdSizes(Program& program, bool json, std::ostream& out, std::ostream& err);

}  // namespace vardolin
