// A CD image may be any file the user chose: looking for a level in it, reading its root (the
// catalogue's copy) and fetching the level's files never crashes and never writes outside the
// target folder.
#include <unistd.h>

#include <fstream>
#include <string>
#include <vector>

#include "cd/cd_image_reader.h"

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fs::path dir = fs::temp_directory_path() / ("fuzz-cd-" + std::to_string(getpid()));
  fs::remove_all(dir);
  fs::create_directories(dir / "target");
  const fs::path image = dir / "cd.iso";
  std::ofstream(image, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  const auto found = vardolin::FindLevelInImage(image, 1);
  std::vector<std::string> folders;
  std::string catalogue;
  vardolin::ReadImageRoot(image, "*.vdc", folders, catalogue);
  std::string error;
  vardolin::ExtractImageFolder(image, found.folder.empty() ? "a/LEVEL_0001" : found.folder,
                               dir / "target", error);
  for (const auto& entry : fs::directory_iterator(dir))
    if (entry.path() != image && entry.path() != dir / "target") std::abort();
  return 0;
}
