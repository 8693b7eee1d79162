#pragma once
// Turning a level's stored files back into the forms the game reads, and saving the editor's
// media state into a level. The level's `\files` folder is only ever read here, so a failure
// at any point leaves the store as it was.

#include <filesystem>

namespace vardolin {

class Program;

// The temporary folder for expanded files: the program's folder + text 1613.
std::filesystem::path TempLevelFolder(const Program& program);

// Empties (or creates) the temporary folder and copies every file of `source` into it (not its
// sub-folders). Gives the temporary folder, or an empty path when that failed.
std::filesystem::path MakeTempFiles(Program& program, const std::filesystem::path& source);

// Makes the files of a level's `\files` folder ready to be copied into the editor folder:
// packed `.zl` files are expanded and `load.jpg` becomes `load.bmp`, in the temporary folder.
// `temporary` is set to that folder when one was needed and left empty for a level in plain
// form, which is copied from `files_folder` itself. A packed file that can't be expanded is
// told to the user (text 1229); the temporary folder is then removed and the result is false.
// MP3 files are left as they are stored.
bool PrepareLevelFiles(Program& program, const std::filesystem::path& files_folder,
                       std::filesystem::path& temporary);

// Saves the editor folder's media state into the level's `\files` folder: the `*.mcf` files the
// level holds take the editor's copies (those it doesn't hold are deleted from the editor
// folder), the editor's `\store` replaces the level's, and the level's `media.mpf` goes when
// the editor folder has none. False when a copy or a deletion failed.
bool SaveMediaFiles(Program& program, const std::filesystem::path& files_folder);

}  // namespace vardolin
