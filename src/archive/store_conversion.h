#pragma once
// Turning a level's stored files between the plain form and the compressed form that the
// catalogue's compression flag asks for: `.zl` files and `load.jpg`, or plain files and
// `load.bmp`. The converted files are built beside the files folder and swapped in only when
// complete, so a failure or a crash part way never loses a file.

#include <cstdint>
#include <filesystem>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// Converts the stored files of one level to the compressed form (`compress`) or back to the
// plain one. Packed are the files of the patterns texts 1930 to 1933, and `load.bmp` becomes a
// JPEG of quality 90; expanded are all `.zl` files, and `load.jpg` becomes `load.bmp`. Files
// already in the wanted form and sub-folders are carried over unchanged. The label shows text
// 1924 with the level's name; the bar follows the files.
// False, with the level's files as they were, when the code isn't in the table, the level lies
// on CD, or a file can't be converted (text 5349 with the reason) or swapped in (text 5350).
// A level without a files folder has nothing to convert and gives true. The caller recomputes
// the sizes when its run is over.
bool ConvertLevelStore(Program& program, std::int32_t code, bool compress, Label* label,
                       ProgressBar* bar);

// Puts right a conversion that a crash broke off: a files folder that was moved aside is moved
// back, half-built converted files are removed, and an old copy left after a finished swap is
// deleted. True when the level's files folder is in order (or absent with nothing to restore).
bool RecoverInterruptedConversion(Program& program, const std::filesystem::path& level_folder);

}  // namespace vardolin
