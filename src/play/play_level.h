#pragma once
// Pul_Play: the chosen level goes into the editor folder and the game starts, through
// play_the_game.exe when the level has media files. The log is started anew for each launch, so
// that it tells afterwards how the last one went.

#include <cstdint>

namespace vardolin {

class Program;

// How a launch ended.
enum class PlayResult { Started, LevelNotSet, PlayerMissing, NotStarted };

// Puts the level `code` into the editor folder and starts the game; GameRunning is set when it
// started. Messages go to the user, the steps to the log. Sets the watcher's interval on the
// main window's Timer1 when there is one.
PlayResult PlayLevel(Program& program, std::int32_t code);

}  // namespace vardolin
