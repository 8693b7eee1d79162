#pragma once
// The demonstration home that `make run` starts in: a stand-in editor folder whose game is a
// native stand-in program, the safe copy of its files, and an archive of three generated
// levels (one kept plain, one compressed, one media level) with screenshots and savegames, the
// first level standing in the editor folder, so that the whole program can be tried without
// the game.

#include <filesystem>
#include <iosfwd>

namespace vardolin {

class Program;

// The stand-in game of the build: $VARDOLIN_STANDINS/standin_game, else the build tree's
// standins folder beside this program's, else the one this program was built with. Empty when
// none stands.
std::filesystem::path FindStandinGame();

// Builds the demo in the program's home (whose settings must not exist yet) with the stand-in
// game `game`. The home's settings then name the stand-in editor folder and the new archive.
// 0 done, 1 failed (the reason went to `err`).
int CmdDemo(Program& program, const std::filesystem::path& game, std::ostream& out,
            std::ostream& err);

}  // namespace vardolin
