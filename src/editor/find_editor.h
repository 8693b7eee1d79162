#pragma once
// Finding the level editor's folder, telling whether a folder is one, and bringing the game's
// program back when a level's installer took it away.

#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {
class Program;
class Label;
class ProgressBar;
}  // namespace vardolin

namespace vardolin {

// The registry key the editor's own setup writes: its default value is the room editor's path.
inline constexpr const char* kRoomEditorAppPathKey =
    "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\winroomedit.exe";
// The game's program, as the editor folder holds it.
inline constexpr const char* kGameProgram = "tomb4.exe";

// True when the folder holds the editor's two files (after RestoreGameExe). With `show`, a
// missing file is told to the user.
bool CheckEditorFolder(Program& program, const std::string& folder, bool show);
// Puts tomb4.exe back into an installed editor folder that lost it: from the backup of the
// editor's files, else from the program's folder.
void RestoreGameExe(Program& program);
// True when a valid editor folder is set, asking the user with Dialog_TrovaTrle when none is.
bool FindEditorFolder(Program& program);
// The editor folder the room editor's App Paths key names in the Wine prefix's registry;
// empty without Wine, without the key, or when the drive isn't one of the prefix.
std::string FindEditorInRegistry(Program& program);
// The App Paths value as a folder: a path that holds the room editor's file name is cut back
// to its folder, anything else stays as it is.
std::string EditorFolderOfAppPath(Program& program, const std::string& value);
// A Windows path of a Wine prefix ("C:\Program Files\TRLE") as a path on this machine: the
// C drive is the prefix's drive_c, another letter the prefix's dosdevices link. Components are
// matched on disk without regard to case. Empty when the text isn't a drive path or climbs
// out of its drive with "..".
std::filesystem::path WinePathToNative(const std::filesystem::path& prefix,
                                       std::string_view windows_path);
// Installs the editor from a TRLE folder the user chooses; true when it was installed.
bool AskInstallFolder(Program& program, Label& label, ProgressBar& bar);

}  // namespace vardolin
