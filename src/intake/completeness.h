#pragma once
// What a level leans on without holding it: wads in the editor, the pack of revised wads, a
// script that names level files, the level file name the game's own script expects. These
// checks ask the user, rename the level file and add filler files.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;

// The eight level file names the game's own script expects, in their fixed order.
const std::vector<std::string>& StandardLevelFileNames();

// True when the level can go on: it has a script of its own, no level file, or one level file
// with (now) a standard name. `standardName` gets that name when it was one of the eight or the
// file was renamed to it.
bool CheckLevelFileName(Program& program, const std::filesystem::path& folder,
                        std::string& standardName);

// The level keeps exactly one script and at most one language file: a missing script comes from
// the editor backup, and of several language files the user's own language stays, or the one
// the user picks.
void FixScriptFiles(Program& program, const std::filesystem::path& levelFolder);
// Each level file that the level's script names and neither the level nor the game has gets a
// filler copy, so that the game finds a file for every level it lists.
void CompleteScriptLevels(Program& program, const std::filesystem::path& folder);

// The file names of the level paths of a compiled script (script.dat); empty when it can't be
// read. Each path gets `prefix` put before it; a path without an extension gets the PC level
// extension the script's header names, as the game does when it loads the level.
std::vector<std::string> ParseScriptLevelPaths(std::string_view bytes, std::string_view prefix);
std::vector<std::string> ReadScriptLevelPaths(Program& program, const std::filesystem::path& file);

// The level's documents (texts 1720 to 1724), by pattern, then as listed.
std::vector<std::filesystem::path> ListDocuments(Program& program,
                                                 const std::filesystem::path& folder);
bool DocumentsMentionRevisedWads(Program& program, const std::filesystem::path& folder);
bool RevisedWadsInstalled(Program& program);

// True when the level source's wad stands beside it or in the editor's wads folder; with
// `message` the user is told when it doesn't.
bool WasFileForTomExists(Program& program, const std::filesystem::path& tom, bool message);
// Brings the wad of a level source into the editor; false when it couldn't (wads can't be
// imported yet, so it is false for every name).
bool RequireNewWad(Program& program, const std::string& tomName);
// False when the level's documents ask for the pack of revised wads and it isn't installed; the
// user is told how to install it.
bool RequireRevisedWads(Program& program, const std::filesystem::path& folder);
// Checks that the wads of the level's sources and the revised wads it asks for are there.
// `result` is true when the level can go on.
void CheckWadsForToms(Program& program, const std::filesystem::path& folder, bool ask,
                      bool& result);

}  // namespace vardolin
