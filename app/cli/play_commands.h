#pragma once
// The play command of vardolin-cli: a level into the editor folder, the game started and
// watched to its end, as Pul_Play and Timer1 do in the window.

#include <cstdint>
#include <iosfwd>

namespace vardolin {

class Program;

// Plays the level `code` of the last catalogue and waits until the game ends. 0 when the game
// ran and ended, 1 when it couldn't be played (the reason went to the error stream).
int CmdPlay(Program& program, std::int32_t code, std::ostream& out, std::ostream& err);

}  // namespace vardolin
