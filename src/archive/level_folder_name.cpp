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

}  // namespace vardolin
