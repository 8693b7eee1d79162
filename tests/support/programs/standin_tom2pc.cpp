// The stand-in level converter: a program that behaves toward Vardolin as tom2pc.exe does, for
// the tests and the demo. Built natively and, like the stand-in game, as a Windows program that
// runs under Wine. Started in the editor folder with the level source (.tom) as its last
// argument, it reads the wad "graphics/wads/BASE.was" and writes "data/BASE.tmp" while it works,
// then the compiled level "data/BASE.tr4": a head line, the source's bytes and the wad's.
//
// The source's first line tells it how to behave (anything else is "normal"):
//   tom2pc normal        compiles as above; without the wad it writes nothing and exits with 2
//   tom2pc hang          writes half a level and never ends
//   tom2pc slow MS N     writes the work file a byte every MS milliseconds, N times, then
//                        compiles
//   tom2pc nooutput      exits with 0 and writes nothing
//   tom2pc crash         writes half a work file and aborts
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>

namespace {

namespace fs = std::filesystem;

std::string ReadAll(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// The base name of the source, whichever separator its path uses.
std::string BaseName(std::string path) {
  const std::size_t slash = path.find_last_of("/\\");
  if (slash != std::string::npos) path.erase(0, slash + 1);
  const std::size_t dot = path.rfind('.');
  return dot == std::string::npos ? path : path.substr(0, dot);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 3;
  const std::string source_path = argv[argc - 1];
  const std::string source = ReadAll(source_path);
  const std::string base = BaseName(source_path);
  std::istringstream head(source.substr(0, source.find('\n')));
  std::string word, mode;
  head >> word >> mode;
  if (word != "tom2pc") mode = "normal";

  std::error_code error;
  fs::create_directories("data", error);
  const fs::path work = fs::path("data") / (base + ".tmp");
  const fs::path level = fs::path("data") / (base + ".tr4");
  if (mode == "nooutput") return 0;
  if (mode == "hang") {
    std::ofstream(level, std::ios::binary) << "TR4 half a level";
    for (;;) std::this_thread::sleep_for(std::chrono::seconds(1));
  }
  if (mode == "crash") {
    std::ofstream(work, std::ios::binary) << "half";
    std::abort();
  }
  if (mode == "slow") {
    int ms = 10, count = 100;
    head >> ms >> count;
    std::ofstream out(work, std::ios::binary);
    for (int i = 0; i < count; ++i) {
      out << '.' << std::flush;
      std::this_thread::sleep_for(std::chrono::milliseconds(ms));
    }
  }
  const fs::path wad = fs::path("graphics") / "wads" / (base + ".was");
  if (!fs::exists(wad)) return 2;
  { std::ofstream(work, std::ios::binary | std::ios::app) << source; }
  std::ofstream(level, std::ios::binary) << "TR4 stand-in level " << base << "\n"
                                         << source << ReadAll(wad);
  fs::remove(work, error);
  return 0;
}
