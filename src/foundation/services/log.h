#pragma once
// The program's log, vardo_log.txt in the program home: one line per call, the file opened and
// closed each time so that a crash loses nothing. It is started anew at each launch of the game.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;

inline constexpr const char* kLogFileName = "vardo_log.txt";

std::filesystem::path LogPath(const Program& program);
// Appends the text and a line end. With `show`, the text is first shown as an error box.
void WriteLog(Program& program, const std::string& text, bool show = false);
// Deletes the log.
void ResetLog(Program& program);

}  // namespace vardolin
