// The image listings of isoinfo over any text: every record of the long listing stands once,
// with no negative size, and the tree listing takes any flat one.

#include <set>

#include "cd/burn_output.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::set<std::string> paths;
  for (const vardolin::ReportItem& item : vardolin::ParseIsoLongList(text)) {
    if (item.path.empty() || !paths.insert(item.path).second || item.size < 0) __builtin_trap();
    vardolin::ReportLine(item);
  }
  vardolin::IsoTreeList(text);
  return 0;
}
