#include "editor_folder_fixture.h"

#include <fstream>
#include <system_error>

namespace vardolin::testing {
namespace fs = std::filesystem;

const std::vector<std::string>& EditorFolderFiles() {
  static const std::vector<std::string> files = {
      // The root: the game, the editor's tools, the compiled script and its texts.
      "tomb4.exe", "tom2pc.exe", "winroomedit.exe", "script.exe", "script.dat", "english.dat",
      "binkw32.dll", "load.bmp", "readme.txt", "winroomedit.ini",
      // The levels the game plays, the script sources, the wads and textures, the projects.
      "data/title.tr4", "data/tut1.tr4", "script/script.txt", "script/english.txt",
      "graphics/wads/tut1.wad", "graphics/wads/tut1.was", "graphics/wads/tut1.swd",
      "graphics/wads/tut1.sam", "graphics/textures/tut1.tga", "maps/tut1.prj", "pix/title.bmp",
      "audio/044.wav", "audio/105.wav", "sound/samples/lara_step.wav"};
  return files;
}

const std::vector<std::string>& EditorFolderSubfolders() {
  static const std::vector<std::string> folders = {
      "audio", "data",   "graphics", "graphics/textures", "graphics/wads", "maps", "objects", "pix",
      "rooms", "script", "sound",    "sound/samples",     "text"};
  return folders;
}

std::string EditorFileContent(const std::string& relative) {
  // Programs begin as Windows programs do, so they read as such to whoever looks.
  bool program = relative.size() > 4 && relative.compare(relative.size() - 4, 4, ".exe") == 0;
  return (program ? "MZ" : "") + std::string("stand-in ") + relative + "\r\n";
}

bool BuildEditorFolder(const fs::path& folder, const EditorFolderOptions& options) {
  std::error_code ec;
  for (const std::string& sub : EditorFolderSubfolders()) {
    fs::create_directories(folder / sub, ec);
    if (ec) return false;
  }
  for (const std::string& rel : EditorFolderFiles()) {
    if (!options.with_game && rel == "tomb4.exe") continue;
    if (!options.with_compiler && rel == "tom2pc.exe") continue;
    if (!options.with_room_editor && rel == "winroomedit.exe") continue;
    if (!options.with_title_level && rel.rfind("data/", 0) == 0) continue;
    std::ofstream out(folder / rel, std::ios::binary | std::ios::trunc);
    out << EditorFileContent(rel);
    if (!out) return false;
  }
  return true;
}

}  // namespace vardolin::testing
