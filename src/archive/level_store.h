#pragma once
// Where a level's folders lie and how they are made and removed. A level on hard disk lies in
// SecondaryDir as LEVEL_ and its code; the base level lies in the program's folder; a level on
// CD keeps its files folder on the CD and its user folders on hard disk.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// A level's folder on hard disk: the program's folder for the base level, else below
// SecondaryDir. A CD level's user folders lie here too.
std::filesystem::path HardDiskLevelFolder(const Program& program, std::int32_t code);

// LevelFolderName with the prefix of the language file (text 1647): "\LEVEL_0012".
std::string LevelFolderName(const Program& program, std::int32_t code);

// The level's folder. With `use_cd` and a level whose CdNumber is above 0 the folder lies on
// the CD (program.level_folder_on_cd, which asks for it); a CD not given, or a program without
// CDs, gives an empty folder with `program.CdRefused` set. A code not in the table gives the
// folder of a level to come. CdRefused and CdFetchedCopy are cleared first. A catalogue whose
// SecondaryDir is blank or relative gives an empty folder for every level but the base level.
std::filesystem::path GetLevelFolder(Program& program, std::int32_t code, bool use_cd);
// The level's files folder (GetLevelFolder + `\files`); empty when the folder is.
std::filesystem::path GetLevelFilesFolder(Program& program, std::int32_t code, bool use_cd);

// Makes the level's folder and its four sub-folders (texts 1549 to 1552, in that order); true
// when all of them stand afterwards.
bool CreateLevelFolders(Program& program, const std::filesystem::path& level_folder);

// Removes a whole folder tree, read-only files and folders included: first every file, then the
// folders from the deepest up. The label tells the two phases and the bar follows the folders.
// Links are removed, never followed. True when the folder is gone (a missing one counts).
// `deleting_text` is the label's text once the listing is done; 0 for the level store's own.
bool DeleteLevelTree(Program& program, const std::filesystem::path& folder, Label* label,
                     ProgressBar* bar, std::int32_t deleting_text = 0);

// Folder names on a CD: LEVEL_ and the code (case ignored). LevelNumberOf gives the code; false
// when anything but digits follows.
bool IsLevelFolderName(std::string_view name);
bool LevelNumberOf(std::string_view name, std::int64_t& number);

// The folder just below the drive's root that holds sub-folders named LEVEL_... (case ignored);
// empty when none does. Level CDs keep their levels one folder deep.
std::filesystem::path FindCdRootWithLevels(const std::filesystem::path& drive);
// The level's folder on the CD in `drive`: the LEVEL_ folder below FindCdRootWithLevels whose
// number is the code. Empty when the CD doesn't hold it.
std::filesystem::path FindLevelOnCd(std::int32_t code, const std::filesystem::path& drive);
// FindLevelOnCd over the ready CD drives of the platform, in its order. `drive`, when given,
// gets the mount point where the level was found.
std::filesystem::path FindLevelOnAnyCd(Program& program, std::int32_t code,
                                       std::string* drive = nullptr);

}  // namespace vardolin
