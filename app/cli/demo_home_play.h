#pragma once
// What playing leaves behind in the demo home: screenshots in each level's shot folder, and
// savegames, some of them archived in sets and some with notes, so that the main window's two
// panels have something to show from the first start.

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

namespace vardolin {

class Program;

// The demo levels are told apart by their place in the demo, `variant` (0 to 2): it chooses
// the scenes and dates of their shots and the savegames they have.

// Puts a few generated pictures in the level's tint into the shot folder of the catalogue level
// at `level_index`, each dated when it was taken. False when one couldn't be written.
bool AddDemoShots(Program& program, int level_index, int variant, const std::uint8_t tint[3],
                  std::ostream& err);

// Writes the savegames of the level `code` into its slot folder (the editor folder while it is
// the active level), each with its note if it has one and dated a minute after the shot taken at
// that spot, then archives the oldest of them into sets through the store.
// The bytes of a savegame as the game writes it, with its title and save counter.
std::string GameSavegameBytes(std::int16_t number, std::string_view title);
bool AddDemoSavegames(Program& program, std::int32_t code, int variant, std::ostream& err);

}  // namespace vardolin
