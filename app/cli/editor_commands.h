#pragma once
// The level editor commands of vardolin-cli: installing the editor, comparing its folder with a
// trusted copy, and patching the game for fast loading. Exit codes as the other commands give.

#include <iosfwd>
#include <string>
#include <vector>

namespace vardolin {

class Program;

// One folder: the editor copied from that TRLE folder. Zip files: the compressed setup, in the
// language of row `language`.
int CmdInstallEditor(Program& program, const std::vector<std::string>& sources, int language,
                     std::ostream& out, std::ostream& err);
// The report of Dialog_CompareTrle, one row a line; without folders the editor folder against
// the backup of its files.
int CmdCompareEditor(Program& program, const std::vector<std::string>& folders, bool full,
                     std::ostream& out, std::ostream& err);
// Brings the wads, maps and script pieces of zips and folders into the editor; prints the report.
int CmdImportWads(Program& program, const std::vector<std::string>& sources, std::ostream& out,
                  std::ostream& err);
// Patches the game in the backup of the editor's files and puts it into the editor folder.
int CmdPatchEngine(Program& program, std::ostream& out, std::ostream& err);

}  // namespace vardolin
