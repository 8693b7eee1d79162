// The image listings of isoinfo over any text: every record of the long listing is a path that
// starts at the root and stands once, a folder has neither size nor date, and the tree listing
// keeps one line per line of the flat one.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "cd/burn_output.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::set<std::string> paths;
  for (const vardolin::ReportItem& item : vardolin::ParseIsoLongList(text)) {
    if (item.path.empty() || !paths.insert(item.path).second || item.size < 0) __builtin_trap();
    vardolin::ReportLine(item);
  }
  const std::string tree = vardolin::IsoTreeList(text);
  std::size_t lines = 0, pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find_first_of("\r\n", pos);
    if (end == std::string_view::npos) end = text.size();
    lines += end > pos ? 1 : 0;
    pos = end + 1;
  }
  std::size_t tree_lines = 0;
  for (std::size_t at = tree.find("\r\n"); at != std::string::npos; at = tree.find("\r\n", at + 2))
    ++tree_lines;
  if (tree_lines != lines) __builtin_trap();
  return 0;
}
