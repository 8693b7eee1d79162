// The stand-in game: a program that behaves toward Vardolin as tomb4.exe does, for the tests and
// the demo. It is built twice from this one source: natively, and as a Windows program that runs
// under Wine. It is started in the editor folder (its working folder) and
//   - writes savegame files there in the game's format: "savegame.N", the level title in the
//     first 75 bytes (blank-padded, ended by a comma as the game writes it), the save number as
//     a signed 16-bit little-endian number at offset 75, then filler up to the game's size;
//   - can put a picture on the clipboard: with VARDOLIN_FAKE_CLIPBOARD set, "shot" writes a
//     small 24-bit BMP to the file that variable names (the clipboard's stand-in);
//   - exits when told, or after a time.
//
// Arguments (any order, each may repeat where it makes sense):
//   --save N:TITLE     writes savegame.N with TITLE and save number N at start
//   --shot             puts a picture on the clipboard's stand-in at start
//   --exit-after MS    exits with code 0 after MS milliseconds (default: runs until told)
//   --exit-code C      the code that --exit-after ends with
//
// Commands: the file "standin_commands.txt" in the working folder is looked for every 20 ms;
// each complete line (ended by LF) is done once, in order. Lines:
//   save N TITLE       writes savegame.N as above (TITLE may hold blanks)
//   shot               puts a picture on the clipboard's stand-in
//   exit CODE          exits with CODE
// The game consumes what it reads: it takes the file away under another name
// ("standin_commands.taken") before reading it, and deletes that once it is done and no longer
// growing, or when the game ends. Lines appended meanwhile land in a new command file. So a
// second game in the same folder starts on an empty list instead of replaying the first one's.
// After each command it appends the line and "\n" to "standin_done.txt", so that a test can wait
// until a command took effect. A file "standin_started.txt" holding the working folder is
// written at start.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "../savegame_bytes.h"

namespace {

namespace fs = std::filesystem;

const char kCommandFile[] = "standin_commands.txt";
const char kTakenFile[] = "standin_commands.taken";

void Put32(std::string& out, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
}

bool WriteSavegame(int number, const std::string& title) {
  const std::string bytes = vardolin::testing::GameSavegameBytes(number, title);
  std::ofstream out("savegame." + std::to_string(number), std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return static_cast<bool>(out);
}

// A 16 x 8 bitmap, 24 bits, bottom-up rows of 48 bytes (already a multiple of 4).
bool WriteClipboardPicture() {
  const char* target = std::getenv("VARDOLIN_FAKE_CLIPBOARD");
  if (!target || !*target) return false;
  const int width = 16, height = 8, row = width * 3;
  std::string bmp = "BM";
  Put32(bmp, 54 + row * height);
  Put32(bmp, 0);
  Put32(bmp, 54);
  Put32(bmp, 40);
  Put32(bmp, width);
  Put32(bmp, height);
  bmp += std::string("\x01\x00\x18\x00", 4);
  Put32(bmp, 0);
  Put32(bmp, row * height);
  Put32(bmp, 2835);
  Put32(bmp, 2835);
  Put32(bmp, 0);
  Put32(bmp, 0);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      bmp.push_back(static_cast<char>(x * 16));
      bmp.push_back(static_cast<char>(y * 32));
      bmp.push_back(static_cast<char>(0xC0));
    }
  // Written beside and renamed, so a reader never sees half a picture.
  const std::string partial = std::string(target) + ".part";
  {
    std::ofstream out(partial, std::ios::binary | std::ios::trunc);
    out.write(bmp.data(), static_cast<std::streamsize>(bmp.size()));
    if (!out) return false;
  }
  std::error_code error;
  fs::rename(partial, target, error);
  return !error;
}

// Binary, so that the Windows build writes the same bytes as the native one.
void NoteDone(const std::string& line) {
  std::ofstream("standin_done.txt", std::ios::binary | std::ios::app) << line << "\n";
}

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
    WriteSavegame(number, title);
  } else if (word == "shot") {
    WriteClipboardPicture();
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
  long exit_after_ms = -1;
  int timed_exit_code = 0;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    const bool has_value = i + 1 < argc;
    if (arg == "--save" && has_value) {
      const std::string value = argv[++i];
      const std::size_t colon = value.find(':');
      WriteSavegame(std::atoi(value.substr(0, colon).c_str()),
                    colon == std::string::npos ? std::string() : value.substr(colon + 1));
    } else if (arg == "--shot") {
      WriteClipboardPicture();
    } else if (arg == "--exit-after" && has_value) {
      exit_after_ms = std::atol(argv[++i]);
    } else if (arg == "--exit-code" && has_value) {
      timed_exit_code = std::atoi(argv[++i]);
    }
  }
  {
    std::error_code error;
    const fs::path folder = fs::current_path(error);
    std::ofstream("standin_started.txt", std::ios::binary) << folder.string() << "\n";
    // Whatever a game before this one took and left behind was its own.
    fs::remove(kTakenFile, error);
  }

  const auto start = std::chrono::steady_clock::now();
  bool taken = false;
  std::size_t consumed = 0;   // bytes of the taken file already done
  std::size_t last_size = 0;  // its size at the look before; none for a file just taken
  const auto finish = [](int code) {
    std::error_code error;
    fs::remove(kTakenFile, error);
    return code;
  };
  for (;;) {
    std::error_code error;
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
        if (RunCommand(line, code)) return finish(code);
      }
      if (consumed == all.size() && all.size() == last_size) {
        fs::remove(kTakenFile, error);
        taken = false;
      }
      last_size = all.size();
    }
    if (exit_after_ms >= 0 &&
        std::chrono::steady_clock::now() - start >= std::chrono::milliseconds(exit_after_ms))
      return finish(timed_exit_code);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}
