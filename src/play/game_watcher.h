#pragma once
// The watcher: each tick of the main window's Timer1 while a launched game runs. It notices the
// end of the game and, while a common game is alive, runs the steps that act on keys, joystick,
// savegame slots and the clipboard, in their fixed order.

#include <cstdint>
#include <functional>

namespace vardolin {

class Program;

// What the watcher does while the game runs, each step in the order the tick runs them. They
// belong to the savegame and screenshot subsystems; an empty step is skipped.
struct WatcherSteps {
  // With a common game alive, within one tick, in this order.
  std::function<void()> joystick;
  std::function<void()> f9_archive;
  std::function<void()> f11_restore;
  std::function<void()> full_slots;
  std::function<void()> screenshot;
  // After play_the_game.exe has ended: the pictures it left go to the level's screenshots.
  std::function<void()> collect_media_shots;
};

// What one tick found.
enum class WatchEvent { Idle, MediaAlive, MediaEnded, CommonEnded, CommonAlive };

// The interval of Timer1: 1000 ms while a media level plays, else CheckTenths x 100 ms.
inline constexpr int kMediaTickMs = 1000;
int CommonTickMs(const Program& program);

// The index of the left picture of the last pair: shot_count - 1, made even, at least 0.
std::int32_t LastPairIndex(std::int32_t shot_count);

// One tick. A common game that ended clears GameRunning and GameProcess and sets FirstShotShown
// to the last pair; the caller refreshes the panels. A media game that ended runs
// collect_media_shots and clears GameRunning.
WatchEvent WatchGame(Program& program, const WatcherSteps& steps);

}  // namespace vardolin
