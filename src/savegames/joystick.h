#pragma once
// The joystick: whether it answers, where its stick rests, and what its buttons and stick do.
// While the game runs one button word takes a screenshot and another ends the game; while it
// doesn't, the joystick drives the main window through its levels, screenshots and savegames.

#include <cstdint>
#include <functional>

#include "foundation/ports/platform.h"

namespace vardolin {

class Program;
class ListBox;

// A stick closer to its rest than this, on either axis, counts as centred.
inline constexpr std::uint32_t kStickDeadZone = 1000;

// Reads joystick `number` into `state`; false when it doesn't answer (no such joystick).
bool ProbeJoystick(Program& program, JoystickState& state, int number);

// Reads where the stick of joystick `number` rests and keeps it for the run. False, and the
// position kept before stays, when the joystick doesn't answer.
bool ReadJoystickNeutral(Program& program, int number);

// Whether the held buttons call for the action stored as `stored`. With `alone` the held word
// must be exactly the stored one; without it further buttons may be held as well. A stored 0
// stands for no button and never matches.
bool JoystickButtonsMatch(std::uint32_t held, std::int32_t stored, bool alone);

// What the watcher hands the joystick while the game runs.
struct GameJoystickHooks {
  // Presses and releases Print Screen (virtual key 44, scan code 0); the picture then comes
  // through the clipboard like any other capture.
  std::function<void()> PressPrintScreen;
  // Ends the game's process at once, with exit code 0.
  std::function<void()> EndGame;
};

struct GameJoystickStep {
  bool answered = false;
  bool captured = false;
  bool ended = false;
};

// The joystick's step of one watcher tick while the game process is alive, ahead of everything
// else the tick does. Both actions can happen in one tick when their words match together.
GameJoystickStep JoystickDuringGame(Program& program, const GameJoystickHooks& hooks);

// What one reading asks of the main window: the first button of the table that is held, else
// where the stick lies (X before Y).
enum class JoystickInput {
  None,
  Play,         // button word bit 4
  ScreenShots,  // bit 8
  SaveGames,    // bit 2
  Select,       // bit 1: zoom a screenshot or restore a savegame
  StickLeft,
  StickRight,
  StickYBelow,  // previous level
  StickYAbove,  // next level
};

JoystickInput ReadJoystickInput(const JoystickState& state, std::uint32_t neutral_x,
                                std::uint32_t neutral_y);

// The parts of the main window the joystick works. An empty function is a part the window
// doesn't have; the input meant for it does nothing.
struct JoystickTargets {
  // True while the main window or the zoom window Dialog_ScreenShot has the focus.
  std::function<bool()> WindowActive;

  std::function<void()> Play;           // Pul_Play
  std::function<void()> ShowShots;      // Pul_ScreenShots
  std::function<void()> ShowSaves;      // Pul_SaveGames
  std::function<void()> PreviousLevel;  // Pul_Prima
  std::function<void()> NextLevel;      // Pul_Dopo
  std::function<bool()> ShotsPanelVisible;
  std::function<bool()> SavesPanelVisible;

  // The zoom window and mnu_Zoom.
  std::function<bool()> ZoomVisible;
  std::function<void()> CloseZoom;
  std::function<void()> Zoom;

  // The screenshot panel shows a pair: Image1 holds the shot at the current index, Image2 the
  // next one.
  std::function<int()> SelectedImage;  // 1 or 2
  std::function<void(int)> SelectImage;
  std::function<bool()> FurtherPairExists;
  std::function<bool()> NextShotExists;  // a shot beside Image1
  std::function<int()> CurrentShotIndex;
  std::function<void()> NextPair;      // Pul_DopoScreenShot
  std::function<void()> PreviousPair;  // Pul_PrimaScreenShot

  // The savegame panel: List_SaveGameArchiviati and Pul_RestoreSaveGame.
  ListBox* ArchivedSaves = nullptr;
  std::function<void()> RestoreSaveGame;
};

// One tick of the main window's Timer_Joystick. It acts only with the joystick enabled, the
// game not running, the main or zoom window in focus and the joystick answering; a held button
// or stick acts again at every tick. Gives the input it acted on.
JoystickInput JoystickMainWindowTick(Program& program, const JoystickTargets& targets);

}  // namespace vardolin
