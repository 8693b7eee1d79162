// The stand-in game: a native program that behaves toward Vardolin as tomb4.exe does, for the
// tests and the demo. It is started in the editor folder (its working folder) and
//   - writes savegame files there in the game's format: "savegame.N", the level title in the
//     first 75 bytes (blank-padded, ended by a comma as the game writes it), the save number as
//     a signed 16-bit little-endian number at offset 75, then filler up to the game's size;
//   - exits when told.
//
// Arguments: --save N:TITLE (may repeat) writes savegame.N with TITLE and save number N at start.
//
// Commands: the file "standin_commands.txt" in the working folder is read every 20 ms; each
// complete line (ended by LF) is done once, in order, and the file is left as it is. Lines:
//   save N TITLE       writes savegame.N as above (TITLE may hold blanks)
//   exit CODE          exits with CODE
// After each command it appends the line and "\n" to "standin_done.txt", so that a test can wait
// until a command took effect. A file "standin_started.txt" holding the working folder is
// written at start.
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

#include "../savegame_bytes.h"

namespace {

bool WriteSavegame(int number, const std::string& title) {
  const std::string bytes = vardolin::testing::GameSavegameBytes(number, title);
  std::ofstream out("savegame." + std::to_string(number), std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return static_cast<bool>(out);
}

void NoteDone(const std::string& line) {
  std::ofstream("standin_done.txt", std::ios::app) << line << "\n";
}

// Gives true and the exit code when the command ends the game.
bool RunCommand(const std::string& line, int& exit_code) {
  std::istringstream in(line);
  std::string word;
  in >> word;
  if (word == "save") {
    int number = 0;
    in >> number;
    std::string title;
    std::getline(in, title);
    if (!title.empty() && title.front() == ' ') title.erase(0, 1);
    WriteSavegame(number, title);
  } else if (word == "exit") {
    exit_code = 0;
    in >> exit_code;
    NoteDone(line);
    return true;
  }
  NoteDone(line);
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i + 1 < argc; ++i) {
    if (std::string(argv[i]) != "--save") continue;
    const std::string value = argv[++i];
    const std::size_t colon = value.find(':');
    WriteSavegame(std::atoi(value.substr(0, colon).c_str()),
                  colon == std::string::npos ? std::string() : value.substr(colon + 1));
  }
  char cwd[4096] = {};
  if (getcwd(cwd, sizeof cwd)) std::ofstream("standin_started.txt") << cwd << "\n";

  std::size_t consumed = 0;  // bytes of the command file already done
  for (;;) {
    std::ifstream commands("standin_commands.txt", std::ios::binary);
    if (commands) {
      std::string all((std::istreambuf_iterator<char>(commands)), std::istreambuf_iterator<char>());
      if (all.size() < consumed) consumed = 0;  // the file was replaced by a new one
      for (std::size_t end; (end = all.find('\n', consumed)) != std::string::npos;) {
        std::string line = all.substr(consumed, end - consumed);
        consumed = end + 1;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        int code = 0;
        if (RunCommand(line, code)) return code;
      }
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}
