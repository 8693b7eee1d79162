#pragma once
// Starting the game from the editor folder. A common level is played by the game's program
// itself; a level with media files goes through play_the_game.exe, which is copied from the
// program's folder into the editor folder for each launch. The started process is the one the
// watcher follows; for a Windows program that is the Wine loader we started.

#include <filesystem>
#include <string>
#include <vector>

namespace vardolin {

class Program;

// The helper programs a media level needs beside play_the_game.exe, all in the program's folder.
const std::vector<std::string>& MediaHelperFiles();

// The game's program and play_the_game.exe in the editor folder.
std::filesystem::path GameProgramPath(const Program& program);
std::filesystem::path MediaPlayerPath(const Program& program);

// True when a file of a media level's pattern stands in the folder. An empty folder means the
// editor folder, and it is filled in.
bool IsMediaLevel(Program& program, std::filesystem::path& folder);
// Copies play_the_game.exe into the editor folder and, unless the level says it needs none, the
// helpers it finds neither there nor in its store folder.
void PrepareMediaPlay(Program& program);
// Starts play_the_game.exe of the editor folder with the command line; true when it started.
// Fills MediaProcess.
bool LaunchMediaPlayer(Program& program, const std::string& command_line);
// Starts the game's program of the editor folder in its own folder with the parameters (words
// split at blanks, double quotes group); true when it started. Fills GameProcess. A failure goes
// to the log with the system's error code.
bool LaunchGame(Program& program, const std::string& parameters);

// A tone, unless the settings silence the program. A machine without a sound device stays
// silent and nothing fails.
void Beep(Program& program, int frequency_hz, int milliseconds);

}  // namespace vardolin
