#pragma once
// The list of a level's compiled level files, kept in the level's folder on hard disk: it tells
// without unpacking anything which level files a level holds, so that equal levels are found
// fast. Also the search for a level equal to another.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;
class ProgressBar;

struct LevelFileEntry {
  static constexpr std::size_t kSize = 92;
  static constexpr std::size_t kNameWidth = 80;

  std::string Name;
  double Date = 0;  // OLE date: days since 30 December 1899
  std::int32_t Size = 0;

  bool operator==(const LevelFileEntry&) const = default;
};
using LevelFileList = std::vector<LevelFileEntry>;

// The file image: a 32-bit count, then that many 92-byte entries.
std::string SerializeLevelFileList(const LevelFileList& list, int codepage = 1252);
// False on a negative count or fewer entries than the count says; the list is sized from the
// bytes present, never from the count. `out` is empty after a failure.
bool ParseLevelFileList(std::string_view bytes, LevelFileList& out, int codepage = 1252);

// The compiled level files of a folder (pattern of text 1621) with their dates and sizes.
LevelFileList BuildLevelFileList(Program& program, const std::filesystem::path& folder);
// Text 1255 behind the level's folder on hard disk; empty when the archive has no valid folder.
std::filesystem::path LevelFileListPath(Program& program, std::int32_t code);
bool WriteLevelFileList(Program& program, std::int32_t code, const LevelFileList& list);
// False, with an empty list, when the level has no list file or it can't be read.
bool ReadLevelFileList(Program& program, std::int32_t code, LevelFileList& list);

// True when the two entries name one level file: the name without regard to case, and the size.
bool SameLevelFile(const LevelFileEntry& a, const LevelFileEntry& b);

// The index of the first level of the table (but `index`) that holds a level file equal to one
// of the folder's (or, with `useStored`, of the stored list of the level at `index`); -1 when
// none does. A level without a list file is never equal. `fileName` gets the shared file's name.
// index: the level's index in program.catalogue.levels, or levels.size() for a new level.
std::int32_t FindEqualLevel(Program& program, const std::filesystem::path& folder,
                            std::int32_t index, ProgressBar* bar, std::string& fileName,
                            bool showProgress, bool useStored);

// How many levels of the table count: a new level may stand behind the last one while it is
// being added.
std::int32_t TableLevelCount(const Program& program);

}  // namespace vardolin
