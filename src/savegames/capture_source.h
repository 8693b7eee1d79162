#pragma once
// Where screenshots come from on Linux. Print Screen puts no picture on the clipboard there, so
// the program takes the picture itself, of the game's window where it can be found and else of
// the whole screen, and puts it on the clipboard; the watcher's clipboard step then takes it as
// it takes any picture that turns up there during play.

namespace vardolin {

class Program;
class Platform;
struct Process;

// The picture of the game's window (or of the screen) onto the clipboard; false when the
// desktop gave no picture or the clipboard took none.
bool GrabScreenToClipboard(Program& program, const Process& game);

// Print Screen as the watcher samples it: a press counts once however many ticks it is held.
class PrintScreenKey {
 public:
  bool Pressed(Platform& platform);

 private:
  bool was_down_ = false;
};

// The screenshot step of the watcher's tick: a fresh Print Screen press grabs the screen onto
// the clipboard, then whatever picture the clipboard holds is taken as a shot.
void WatchScreenCapture(Program& program, const Process& game, PrintScreenKey& key);

// The joystick's capture buttons stand for a press of Print Screen (virtual key 44).
bool PressPrintScreen(Program& program, const Process& game);

}  // namespace vardolin
