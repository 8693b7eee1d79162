#pragma once
// The bytes of a savegame as the game writes it: the level title in the first 75 bytes
// (blank-padded, ended by a comma), the save number as a signed 16-bit little-endian number at
// offset 75, then filler up to the game's size. Shared by the stand-in game and the tests;
// header-only so that the stand-in stays a single native program.

#include <cstddef>
#include <string>
#include <string_view>

namespace vardolin::testing {

// `salt` changes the filler only, so two savegames can share a save number and differ.
inline std::string GameSavegameBytes(int number, std::string_view title, unsigned salt = 0,
                                     std::size_t size = 0x3A00) {  // about what the game writes
  constexpr std::size_t kTitleWidth = 75;
  std::string bytes(size < kTitleWidth + 2 ? kTitleWidth + 2 : size, '\0');
  std::string field = std::string(title.substr(0, kTitleWidth - 1)) + ",";
  field.resize(kTitleWidth, ' ');
  bytes.replace(0, kTitleWidth, field);
  bytes[kTitleWidth] = static_cast<char>(number & 0xFF);
  bytes[kTitleWidth + 1] = static_cast<char>((number >> 8) & 0xFF);
  for (std::size_t i = kTitleWidth + 2; i < bytes.size(); ++i)
    bytes[i] = static_cast<char>((i * 7 + static_cast<std::size_t>(number) + salt * 131) & 0xFF);
  return bytes;
}

}  // namespace vardolin::testing
