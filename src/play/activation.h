#pragma once
// Putting a level into the editor folder and taking it out again. The game and the editor share
// that one folder, so only one level stands there at a time; the marker file on disk (not any
// memory of the run) says which, so every step here is safe to run again after a crash.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "play/editor_housekeeping.h"

namespace vardolin {

class Program;

// Where a level file goes in the editor folder by its extension (case ignored): "\data\" for
// .tr4 and .pak, "\audio\" for .wav, "\" for any other.
std::string LevelFileTarget(std::string_view file_name);

// True, after telling the user, while a launched game runs: the editor folder is the game's then.
bool RefusedWhileGameRuns(Program& program);
// Takes the level in the folder out and puts the level `code` in (0: the base level). True
// when the level stands in the editor folder afterwards. Messages go to the user.
bool SetLevelInTrle(Program& program, std::int32_t code);
// What RemoveCurrentLevel gives when a game runs: the folder is left as it is.
inline constexpr std::int32_t kEditorFolderInUse = -2;
// Takes out the level that stands in the editor folder, saving its play files in its play
// folder, and brings the base level's play files back. The code that stood there: 0 with no
// marker (the base level), -1 when the marker names none; 0 also when a file of the level
// couldn't be deleted or its play files couldn't be saved (the marker then still names it).
// While a game runs (GameRunning) nothing moves: the user is told and the result is
// kEditorFolderInUse; SetLevelInTrle, and so every activation and reset, then gives false.
std::int32_t RemoveCurrentLevel(Program& program, std::int32_t next_code);
// The base level in the editor folder: a clean folder for whoever changes it next.
bool ResetToBaseLevel(Program& program);

}  // namespace vardolin
