#include "editor_folder_fixture.h"

#include <fstream>

namespace vardolin::testing {
namespace fs = std::filesystem;

namespace {

// Every file of a full stand-in folder.
const char* const kFiles[] = {
    // The root: the game, the editor's tools, the compiled script and its texts.
    "tomb4.exe", "tom2pc.exe", "winroomedit.exe", "script.exe", "script.dat", "english.dat",
    "binkw32.dll", "load.bmp", "readme.txt", "winroomedit.ini",
    // The levels the game plays, the script sources, the wads and textures, the projects.
    "data/title.tr4", "data/tut1.tr4", "script/script.txt", "script/english.txt",
    "graphics/wads/tut1.wad", "graphics/wads/tut1.was", "graphics/wads/tut1.swd",
    "graphics/wads/tut1.sam", "graphics/textures/tut1.tga", "maps/tut1.prj", "pix/title.bmp",
    "audio/044.wav", "audio/105.wav", "sound/samples/lara_step.wav"};

// Its sub-folders, some of them empty as in a fresh install.
const char* const kSubfolders[] = {
    "audio", "data",   "graphics", "graphics/textures", "graphics/wads", "maps", "objects", "pix",
    "rooms", "script", "sound",    "sound/samples",     "text"};

}  // namespace

std::string EditorFileContent(const std::string& relative) {
  // Programs begin as Windows programs do, so they read as such to whoever looks.
  return (relative.ends_with(".exe") ? "MZ" : "") + std::string("stand-in ") + relative + "\r\n";
}

bool BuildEditorFolder(const fs::path& folder, const EditorFolderOptions& options) {
  std::error_code ec;
  for (const char* sub : kSubfolders) {
    fs::create_directories(folder / sub, ec);
    if (ec) return false;
  }
  for (const std::string rel : kFiles) {
    if (!options.with_game && rel == "tomb4.exe") continue;
    if (!options.with_compiler && rel == "tom2pc.exe") continue;
    if (!options.with_room_editor && rel == "winroomedit.exe") continue;
    if (!options.with_title_level && rel.starts_with("data/")) continue;
    std::ofstream out(folder / rel, std::ios::binary | std::ios::trunc);
    out << EditorFileContent(rel);
    if (!out) return false;
  }
  return true;
}

}  // namespace vardolin::testing
