#pragma once
// Where a level's folders lie, how they are made and removed, and how a level is found on a
// level CD. A level's own files lie flat in its `\files` sub-folder; the three folders that
// play fills stay on hard disk even for a level whose files are on CD.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "archive/store_repair.h"

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// LevelFolderName with the prefix of the language file (text 1647).
std::string LevelFolderOf(const Program& program, std::int32_t code);

// The level's folder. The base level lies in the program's folder, every other level below
// SecondaryDir (also a code not yet in the table). With `use_cd` set, a level whose files lie
// on a CD gives an empty path with CdRefused set. CdRefused is cleared on every call. A
// catalogue whose SecondaryDir is blank gives an empty path for every level but the base level.
std::filesystem::path GetLevelFolder(Program& program, std::int32_t code, bool use_cd);
// The level's `\files` folder (text 1631) inside GetLevelFolder; empty when that is.
std::filesystem::path GetLevelFilesFolder(Program& program, std::int32_t code, bool use_cd);

// Makes the level's folder and its four sub-folders (texts 1549 to 1552); true when all stand.
bool CreateLevelFolders(Program& program, const std::filesystem::path& level_folder);

// Removes a whole folder tree, read-only files and links inside it included (a link is
// removed, never followed). The label, when given, tells the two stages; the bar follows the
// folders removed. True when the folder is gone; a missing folder counts as gone.
bool DeleteLevelTree(Program& program, const std::filesystem::path& folder, Label* label,
                     ProgressBar* bar);

// Gives the owner write permission on each file of `folder` whose name matches `pattern`.
// True when every matching file is now writable.
bool ClearReadOnly(std::string_view pattern, const std::filesystem::path& folder);

// The folder on a drive (a mount point) that holds the level folders of a level CD: the first
// sub-folder of the drive's root, in name order, that holds a folder named `LEVEL_...`.
// Empty when there is none.
std::filesystem::path FindCdRootWithLevels(const Program& program,
                                           const std::filesystem::path& drive);
// The level's folder on the CD in `drive`; empty when the CD doesn't hold it.
std::filesystem::path FindLevelOnCd(const Program& program, std::int32_t code,
                                    const std::filesystem::path& drive);

struct LevelOnCd {
  std::string drive;             // the mount point of the CD drive
  std::filesystem::path folder;  // the level's folder on it
};
// Looks for the level on every ready CD drive (drive type 4) in the platform's order; the
// first that holds it answers. Empty when no CD in a drive holds the level.
LevelOnCd FindLevelOnCdDrives(Program& program, std::int32_t code);

}  // namespace vardolin
