#pragma once
// A program with an archive on disk for the level store tests: SecondaryDir in the test's
// folder, a few levels in the table, and helpers to fill a level's files folder and compare
// folders file by file.

#include <random>

#include "archive/level_store.h"
#include "archive_fixture.h"
#include "foundation/pictures/picture_file.h"
#include "web/zlib_tool.h"

namespace vardolin::testing {

// Every file below a folder, by its path relative to it, with its bytes; with `folders`, each
// folder too (as "<folder>"), so that one left behind shows.
inline std::map<std::string, std::string> Snapshot(const std::filesystem::path& folder,
                                                   bool folders = false) {
  std::map<std::string, std::string> out;
  std::error_code ec;
  for (auto it = std::filesystem::recursive_directory_iterator(folder, ec);
       !ec && it != std::filesystem::recursive_directory_iterator(); it.increment(ec))
    if (it->is_regular_file() || (folders && it->is_directory()))
      out[std::filesystem::relative(it->path(), folder).generic_string()] =
          it->is_directory() ? "<folder>" : ReadFile(it->path());
  return out;
}

inline std::vector<std::string> Names(const std::map<std::string, std::string>& snapshot) {
  std::vector<std::string> names;
  for (const auto& [name, bytes] : snapshot) names.push_back(name);
  return names;
}

// Bytes that compress a little, different for each seed.
inline std::string LevelBytes(unsigned seed, std::size_t size = 20000) {
  std::mt19937 random(seed);
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i)
    bytes[i] = static_cast<char>(i % 7 == 0 ? random() : 'A' + (i % 13));
  return bytes;
}

// A picture file of one shade, of the kind its extension names.
inline void WritePicture(const std::filesystem::path& path, int width = 32, int height = 24,
                         std::uint8_t shade = 120) {
  Bitmap bitmap = Bitmap::Make(width, height);
  for (auto& byte : bitmap.pixels) byte = shade;
  std::filesystem::create_directories(path.parent_path());
  ASSERT_EQ(WritePictureFile(path, bitmap), PictureResult::Ok) << path;
}

inline void Pack(const std::filesystem::path& plain, const std::filesystem::path& packed) {
  ASSERT_EQ(PackFile(plain, packed), ZlResult::Ok) << plain;
}

struct StoreFixture : ArchiveFixture {
  std::filesystem::path archive = Path("archive");

  StoreFixture() {
    std::filesystem::create_directories(archive);
    program.catalogue = SampleCatalogue(4, archive.string());
    program.catalogue.levels[3].CdNumber = 2;
  }
  // The files folder of a level on hard disk.
  std::filesystem::path Files(std::int32_t code) {
    return GetLevelFolder(program, code, false) / "files";
  }
};

}  // namespace vardolin::testing
