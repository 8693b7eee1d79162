#pragma once
// Screenshots taken while the game runs. A picture that turns up on the clipboard during play
// goes into the shot folder of the level standing in the editor folder, under a free name or
// under one the user gives. Whatever put it there (Print Screen, the joystick, any program) is
// taken alike; the clipboard is cleared behind it so that it isn't taken twice.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;
struct Bitmap;
struct Process;

inline constexpr int kCaptureJpegQuality = 90;
inline constexpr int kMediaShotJpegQuality = 60;

// The bitmap a capture passes through, in the program's folder. It stays until the next one.
std::filesystem::path TemporaryShotPath(const Program& program);

// True when any pixel of the picture's middle row or middle column isn't black. Only those two
// lines are looked at, so that the test stays cheap at every tick.
bool PictureHasColourOnCross(const Bitmap& picture);
// The clipboard's picture by that test; false when there is no readable picture.
bool VerifyImageClipBoard(Program& program);

// The clipboard's picture as a JPEG of quality 90 at `destination`, by way of the temporary
// bitmap. True when the destination exists afterwards; `why`, when given, gets the reason of a
// failure.
bool StoreClipboardImage(Program& program, const std::filesystem::path& destination,
                         std::string* why = nullptr);

enum class ClipboardShot {
  None,      // no picture on the clipboard
  Dropped,   // a black picture, thrown away
  Stored,    // stored under a free name, or under the name the user gave
  NotSaved,  // the user was asked and saved nothing
  Failed,    // no level to store it for, or the picture couldn't be written
};

// The watcher's screenshot step, at each tick while a common game is alive. With the prompt on,
// Dialog_Cattura asks for a name and gives the screen back to `game` when it closes.
ClipboardShot TakeClipboardShot(Program& program, const Process& game);

// After play_the_game.exe has ended: the pictures it left in the editor folder become shots of
// the active level, keeping their dates, and are deleted. Gives the number stored.
int CollectMediaShots(Program& program);

}  // namespace vardolin
