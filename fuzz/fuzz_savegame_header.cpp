// Savegame files are the game's, and a crash of the game or a copy from anywhere can leave any
// bytes under a savegame's name: the header reader must take them all.

#include "savegames/savegame_header.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const vardolin::SavegameHeader header = vardolin::ParseSavegameHeader(bytes);
  if (!header.readable && (header.save_number != 0 || !header.title.empty())) std::abort();
  if (header.readable && size < vardolin::kSavegameNumberOffset + 2) std::abort();
  if (vardolin::IsGameSavegame(bytes) && (!header.readable || header.title.empty())) std::abort();
  return 0;
}
