#pragma once
// The sizes a level's folders take on disk, kept in its record and the header's totals.

#include <cstdint>
#include <filesystem>

#include "archive/text_ids.h"

namespace vardolin {

class Program;

// Bytes of all files below a folder; 0 when it is missing.
double FolderBytes(const std::filesystem::path& folder);
// Bytes of the level's own files: its files folder as GetLevelFolder gives it.
double FilesBytesOfLevel(Program& program, std::int32_t code);
// Bytes of what play produced: the three user folders, named by three consecutive texts
// (1632 to 1634, or the same folders as 1546 to 1548).
double UserBytesOfLevel(const Program& program, std::int32_t code,
                        std::int32_t first_text = text::SizeFolderPlay);

// Recounts both sizes of one level; a level on CD keeps its files size and no CD is asked for.
// False when the code isn't in the table.
bool UpdateLevelSizes(Program& program, std::int32_t code);
// Recounts every level and the header's totals afresh; unless silent, tells the totals.
void RecomputeAllSizes(Program& program, bool silent);

}  // namespace vardolin
