#pragma once
// The program's writable folder: settings, language files, backups, temporary folders and the
// log live there.

#include <filesystem>
#include <string>

namespace vardolin {

// --home DIR, else $VARDOLIN_HOME, else $XDG_DATA_HOME/vardolin (~/.local/share/vardolin).
std::filesystem::path ResolveHome(const std::string& home_option);
// Where the shipped resources (language files, help, pictures) are read from.
std::filesystem::path ResourcesFolder();
// Makes the home and copies into it every shipped resource it doesn't have yet; a file that a
// newer program ships replaces the one an older program put there, unless the user changed
// that one. False when the home can't be made.
bool PrepareHome(const std::filesystem::path& home);

}  // namespace vardolin
