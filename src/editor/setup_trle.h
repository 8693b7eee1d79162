#pragma once
// The graphics and audio settings of the level editor's game. The game sets them itself in a
// setup mode of its own program; the program only starts it so and keeps no copy of them.

namespace vardolin {
class Program;
}  // namespace vardolin

namespace vardolin {

// How long the program waits after starting the setup, so that its window comes up before the
// watcher's first look at the clipboard.
inline constexpr int kSetupSettleMs = 2000;

// mnu_SetupTrle: after the user's OK to the warning, starts the game of the editor folder in its
// setup mode. The run is then watched as a game is (GameRunning). The level in the editor folder,
// MediaPlay and the watcher's interval stay as they are. True when the setup started; Cancel and
// a game that can't start (told to the user) give false.
bool SetupTrle(Program& program);

}  // namespace vardolin
