// The stand-in game: a program that behaves toward Vardolin as tomb4.exe does, for the tests and
// the demo. It is built twice from this one source: natively, and as a Windows program that runs
// under Wine. Started in the editor folder (its working folder), it writes savegame files
// "savegame.N" there in the game's format (savegame_bytes.h) and exits when told.
//
// Commands: the file "standin_commands.txt" in the working folder is looked for every 20 ms;
// each complete line (ended by LF) is done once, in order. Lines:
//   save N TITLE       writes savegame.N as above (TITLE may hold blanks)
//   exit CODE          exits with CODE
// The game consumes what it reads: it takes the file away under another name
// ("standin_commands.taken") before reading it, and deletes that once it is done and no longer
// growing, or when the game ends. Lines appended meanwhile land in a new command file. So a
// second game in the same folder starts on an empty list instead of replaying the first one's.
// After each command it appends the line and "\n" to "standin_done.txt", so that a test can wait
// until a command took effect. A file "standin_started.txt" holding the working folder is
// written at start.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

#include "../savegame_bytes.h"

namespace {

namespace fs = std::filesystem;

const char kCommandFile[] = "standin_commands.txt";
const char kTakenFile[] = "standin_commands.taken";

std::string ReadAll(const char* name) {
  std::ifstream in(name, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
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
    std::ofstream("savegame." + std::to_string(number), std::ios::binary | std::ios::trunc)
        << vardolin::testing::GameSavegameBytes(number, title);
  } else if (word == "exit") {
    in >> exit_code;
  }
  // Binary, so that the Windows build writes the same bytes as the native one.
  std::ofstream("standin_done.txt", std::ios::binary | std::ios::app) << line << "\n";
  return word == "exit";
}

}  // namespace

int main() {
  std::error_code error;
  // Written whole under another name first: a test sees the file appear and reads it at once.
  std::ofstream("standin_started.part", std::ios::binary)
      << fs::current_path(error).string() << "\n";
  fs::rename("standin_started.part", "standin_started.txt", error);
  // Whatever a game before this one took and left behind was its own.
  fs::remove(kTakenFile, error);
  bool taken = false;
  std::size_t consumed = 0;   // bytes of the taken file already done
  std::size_t last_size = 0;  // its size at the look before; none for a file just taken
  for (;;) {
    if (!taken) {
      fs::rename(kCommandFile, kTakenFile, error);
      taken = !error;
      consumed = 0;
      last_size = std::string::npos;
    }
    if (taken) {
      // A writer that opened the file before it was taken may still be writing into it: it is
      // read again until it stays as it was for one look.
      const std::string all = ReadAll(kTakenFile);
      for (std::size_t end; (end = all.find('\n', consumed)) != std::string::npos;) {
        std::string line = all.substr(consumed, end - consumed);
        consumed = end + 1;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        int code = 0;
        if (RunCommand(line, code)) {
          fs::remove(kTakenFile, error);
          return code;
        }
      }
      if (consumed == all.size() && all.size() == last_size) {
        fs::remove(kTakenFile, error);
        taken = false;
      }
      last_size = all.size();
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}
