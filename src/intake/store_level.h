#pragma once
// Putting a level's files into the store as the archive keeps them, and the small file services
// of the level properties form: which of two program files is newer, and a packed file expanded
// so that the user can look at it.

#include <cstdint>
#include <filesystem>
#include <string>

namespace vardolin {

class Program;
class Label;
class ProgressBar;
class ZlibTool;
struct LevelRecord;

// Removes the level's whole folder from the store, with the phases on `label` and `bar`.
bool DeleteLevelFolders(Program& program, std::int32_t code, Label* label, ProgressBar* bar);

// The files of `target` replaced by those of `source`, its sub-folders kept: the new folder is
// built beside the old one and swapped in only when whole, so a full disk or a kill leaves the
// store as it was.
bool ReplaceStoredFiles(Program& program, const std::filesystem::path& source,
                        const std::filesystem::path& target);

// Stores the files of `source` as the level's packed files folder: the level-file list written,
// the loading picture turned into a JPEG, every other file packed into a `.zl` beside it (files
// already packed, those with the never-packed extensions and the more-info file stay as they
// are), then everything copied into the store when `source` is not the store's folder itself.
// False when the level's folder can't be had, for the base level (whose files are only copied),
// and when a file can't be packed.
bool StoreCompressedLevel(Program& program, const std::filesystem::path& source,
                          const LevelRecord& level, ZlibTool& zl, Label* label,
                          ProgressBar* bar = nullptr);

// 1 when `a` is the newer program file, -1 when `b` is, 0 when they are alike: by their version
// numbers when both have as many parts, else by their dates. A missing `a` gives -1, a missing
// `b` 1.
int CompareFileVersions(const std::filesystem::path& a, const std::filesystem::path& b);

// Expands a packed file into the program's viewing folder and gives the expanded copy's path;
// empty, after telling the user, when it can't be expanded.
std::filesystem::path ExpandFileForViewing(Program& program, const std::filesystem::path& path,
                                           bool showDialog);

}  // namespace vardolin
