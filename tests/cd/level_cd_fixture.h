#pragma once
// An archive of levels on hard disk, ready to be put on CDs: each level has its files folder
// (level data of a given size) and a play folder, and the catalogue is saved.

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "archive/catalogue_file.h"
#include "archive_fixture.h"
#include "foundation/services/files.h"

namespace vardolin::testing {

struct LevelCdFixture : ArchiveFixture {
  std::filesystem::path archive = Path("Levels");

  // Levels with codes 1, 2 ... whose files folders hold `sizes` bytes of level data each.
  explicit LevelCdFixture(const std::vector<int>& sizes) {
    std::vector<std::string> names = {"Base"};
    for (std::size_t i = 0; i < sizes.size(); ++i)
      names.push_back("Level " + std::to_string(i + 1));
    const auto files = StoreNamedLevels(program, archive, names);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      std::string data(sizes[i], '\0');
      for (std::size_t b = 0; b < data.size(); ++b) data[b] = static_cast<char>(b * 7 + i);
      WriteTextFile(files[i + 1] / "level.tr4", data);
      std::filesystem::create_directories(files[i + 1] / "store");
      WriteTextFile(files[i + 1] / "store" / "scroll.mcf", "media " + std::to_string(i));
      std::filesystem::create_directories(files[i + 1].parent_path() / "play");
      WriteTextFile(files[i + 1].parent_path() / "play" / "savegame.0", "save");
      program.catalogue.levels[i + 1].FilesSize = sizes[i];
    }
    program.prefs.LastArchive = Path("home/Vardolin_archive.vdc").string();
    SaveCatalogueFile(program, program.prefs.LastArchive);
  }

  std::filesystem::path FilesOf(std::int32_t code) {
    return GetLevelFolder(program, code, false) / "files";
  }
};

// Makes an ISO image with the real genisoimage from "target=source" graft points.
inline bool MakeIso(const std::filesystem::path& image, const std::vector<std::string>& grafts) {
  std::string command = "genisoimage -quiet -J -R -o '" + image.string() + "' -graft-points";
  for (const std::string& g : grafts) command += " '" + g + "'";
  return std::system(command.c_str()) == 0;
}

}  // namespace vardolin::testing
