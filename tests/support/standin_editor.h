#pragma once
// A stand-in editor folder as an installed level editor has it, with recognisable contents in
// the files that start-up copies into the base level.

#include <filesystem>

#include "editor_folder_fixture.h"
#include "temp_dir.h"

namespace vardolin::testing {

inline std::filesystem::path MakeStandinEditor(const TempDir& dir, std::string_view rel = "trle") {
  BuildEditorFolder(dir / rel);
  dir.Write(std::string(rel) + "/tomb4.exe", "MZ stand-in game");
  dir.Write(std::string(rel) + "/tom2pc.exe", "MZ stand-in compiler");
  dir.Write(std::string(rel) + "/script.exe", "MZ stand-in script compiler");
  dir.Write(std::string(rel) + "/script.dat", "script of the base level");
  dir.Write(std::string(rel) + "/english.dat", "strings of the base level");
  dir.Write(std::string(rel) + "/script/script.txt", "[PSXExtensions]\r\n");
  dir.Write(std::string(rel) + "/script/english.txt", "[Strings]\r\n");
  return dir / rel;
}

}  // namespace vardolin::testing
