#pragma once
// Fixed lists that many parts of the program look things up in, built once at start.

#include <cstdint>
#include <string>
#include <vector>

namespace vardolin {

struct DataLists {
  std::vector<std::string> WadFileExtensions;
  std::vector<std::string> EngineNames;
  std::vector<std::string> EngineShortNames;
  std::vector<std::string> LevelDataExtensions;
  std::vector<std::string> LevelSideExtensions;
  std::vector<std::string> UrlListSources;
  std::vector<std::int32_t> EditorPackageSizes;
  // The size of the complete editor package, also looked at on its own.
  std::int32_t FullEditorPackageSize = 0;

  bool Built() const { return !WadFileExtensions.empty(); }
};

DataLists BuildDataLists();

}  // namespace vardolin
