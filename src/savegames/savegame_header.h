#pragma once
// The two fields of the game's savegame file that the program reads: the level title at the
// start and the save number at offset 75. Savegames are the game's files: nothing here writes
// to them.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

class Program;

// Offsets of the game's savegame header.
inline constexpr std::size_t kSavegameTitleWidth = 75;
inline constexpr std::size_t kSavegameNumberOffset = 75;

struct SavegameHeader {
  bool readable = false;  // the file held a title and a save number
  std::string title;      // trimmed, UTF-8; empty when not readable
  std::int32_t save_number = 0;
};

// The header of a savegame held in memory. Fewer than 77 bytes (no room for the save number)
// count as unreadable.
SavegameHeader ParseSavegameHeader(std::string_view bytes);

// Whether the bytes are a savegame the game wrote: room for the save number, a title that is
// not empty, holds no control character and is ended (comma, line end or NUL) within its
// field, and a save number that isn't negative. Files that only carry a savegame's name fail.
bool IsGameSavegame(std::string_view bytes);

// The save number of the file (higher means saved later); `title` gets the level title, or
// text 1696 when the file can't be opened or is too short, and the result is then 0.
std::int32_t ReadSavegameHeader(const Program& program, const std::filesystem::path& path,
                                std::string& title);

}  // namespace vardolin
