#pragma once
// Names of level folders and the joining of path fragments from the language texts.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

// The prefix that text 1647 holds in every shipped language file.
inline constexpr std::string_view kLevelFolderPrefix = "\\LEVEL_";

// `prefix` followed by the code in at least four digits: 12 gives "\LEVEL_0012", 12345 gives
// "\LEVEL_12345". The prefix keeps its leading backslash so that it joins a folder directly.
std::string LevelFolderName(std::int32_t code, std::string_view prefix = kLevelFolderPrefix);

// Joins a fragment as the texts hold it ("\files", "\LEVEL_0003", "sub\name.txt") to a folder:
// backslashes separate parts, a leading one is dropped.
std::filesystem::path JoinFragment(const std::filesystem::path& folder, std::string_view fragment);

}  // namespace vardolin
