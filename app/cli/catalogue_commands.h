#pragma once
// The catalogue commands of vardolin-cli. Each gives the process's exit code: 0 done, 1 the
// command failed (one line on the error stream says why and names the file).

#include <cstdint>
#include <iosfwd>
#include <string>

namespace vardolin {

class Program;

// The home's settings file, which messages name when a setting is missing.
std::string SettingsFilePath(Program& program);
// Opens the catalogue the settings name, as every command on levels does first. False with the
// reason on `err` (no catalogue yet, or why its file can't be opened).
bool OpenLastCatalogue(Program& program, std::ostream& err);
// False with the reason on `err` when the open catalogue has no level `code`.
bool LevelKnown(Program& program, std::int32_t code, std::ostream& err);

// Makes a new, empty archive; the archive folder is asked (give it with --answer).
int CmdNewCatalogue(Program& program, std::ostream& out, std::ostream& err);
// The home's settings file, which messages name when a setting is missing.
std::string SettingsFilePath(Program& program);
// Opens the catalogue and makes it the one the program opens next.
int CmdOpen(Program& program, const std::string& catalogue, std::ostream& out, std::ostream& err);
// One line per level of the last catalogue: code, name, CD, files size, user size; or with
// `json` an array of objects with the sizes in bytes.
int CmdList(Program& program, bool json, std::ostream& out, std::ostream& err);
// Every field of one level of the last catalogue, one per line or as a JSON object.
int CmdInfo(Program& program, std::int32_t code, bool json, std::ostream& out, std::ostream& err);

}  // namespace vardolin
