#include "archive/level_folder_name.h"

#include <cstdio>

namespace vardolin {

std::string LevelFolderName(std::int32_t code, std::string_view prefix) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "%04d", static_cast<int>(code));
  std::string name(prefix);
  name += digits;
  return name;
}

std::filesystem::path JoinFragment(const std::filesystem::path& folder, std::string_view fragment) {
  std::filesystem::path out = folder;
  std::size_t start = 0;
  while (start <= fragment.size()) {
    std::size_t end = fragment.find('\\', start);
    if (end == std::string_view::npos) end = fragment.size();
    std::string_view part = fragment.substr(start, end - start);
    if (!part.empty()) out /= std::string(part);
    start = end + 1;
  }
  return out;
}

}  // namespace vardolin
