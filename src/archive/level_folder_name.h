#pragma once
// Names of level folders.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "foundation/services/paths.h"

namespace vardolin {

// The prefix that text 1647 holds in every shipped language file.
inline constexpr std::string_view kLevelFolderPrefix = "\\LEVEL_";

// `prefix` followed by the code in at least four digits: 12 gives "\LEVEL_0012", 12345 gives
// "\LEVEL_12345". The prefix keeps its leading backslash so that it joins a folder directly.
std::string LevelFolderName(std::int32_t code, std::string_view prefix = kLevelFolderPrefix);

}  // namespace vardolin
