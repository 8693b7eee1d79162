#include "foundation/data_lists.h"

namespace vardolin {

namespace {

std::vector<std::string> SplitAtBar(const std::string& text) {
  std::vector<std::string> parts;
  std::size_t at = 0;
  for (;;) {
    std::size_t bar = text.find('|', at);
    parts.push_back(text.substr(at, bar == std::string::npos ? std::string::npos : bar - at));
    if (bar == std::string::npos) return parts;
    at = bar + 1;
  }
}

}  // namespace

DataLists BuildDataLists() {
  DataLists d;
  d.WadFileExtensions = {".sam", ".sfx", ".swd", ".tom", ".wad",
                         ".was", ".cd",  ".pc",  ".raw", ".lar"};
  d.EngineNames = {"<NONE>", "Tr4 The Last Revelation", "Tr5 Chronicles"};
  d.EngineShortNames = SplitAtBar("<NONE>|TR4|TR5");
  d.LevelDataExtensions = {".tr4", ".pak"};
  d.LevelSideExtensions = {".dat", ".h", ".txt", ".bmp", ".pcx"};
  d.UrlListSources = {"https://vardolin.sourceforge.io/download/urllist.bin",
                      "https://vardolin.github.io/mirror/urllist.bin"};
  d.EditorPackageSizes = {38264, 403696, 1139044, 1325439};
  d.FullEditorPackageSize = d.EditorPackageSizes.back();
  return d;
}

}  // namespace vardolin
