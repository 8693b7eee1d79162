#pragma once
// The savegame commands of vardolin-cli. Each gives the process's exit code: 0 done, 1 the
// command failed or had nothing to do (one line on the error stream says why).

#include <cstdint>
#include <iosfwd>
#include <string>

namespace vardolin {

class Program;

// Both savegame lists of a level with their row texts: the slots (slot number first), then the
// archived savegames sorted by row text (path first); or one JSON object with both lists.
int CmdSavegames(Program& program, std::int32_t code, bool json, std::ostream& out,
                 std::ostream& err);
// Archives the `count` oldest savegames of the level's slots into a new archive set.
int CmdArchiveSavegames(Program& program, std::int32_t code, std::int32_t count, std::ostream& out,
                        std::ostream& err);
// Brings the newest archive set of the level back into its free slots.
int CmdRestoreSavegames(Program& program, std::int32_t code, std::ostream& out, std::ostream& err);

// Copies every savegame of the level, slots and archive, into a zip (a target ending in .zip)
// or a folder (made when missing); prints how many.
int CmdExportSavegames(Program& program, std::int32_t code, const std::string& target,
                       std::ostream& out, std::ostream& err);
// Takes savegames into the level's slots from a folder (all its savegames), or from a zip,
// another archive or a single file; prints how many came in.
int CmdImportSavegames(Program& program, std::int32_t code, const std::string& source,
                       std::ostream& out, std::ostream& err);

}  // namespace vardolin
