#pragma once
// Path fragments from the language files keep their Windows backslashes ("\LEVEL_0000",
// "\backup_trle", "Vardolin.prf"); this joins one onto a native folder.

#include <filesystem>
#include <string_view>

namespace vardolin {

// Appends each backslash- or slash-separated piece of `fragment` to `folder`; empty pieces (the
// leading backslash, doubled separators) are skipped.
std::filesystem::path JoinTextPath(const std::filesystem::path& folder, std::string_view fragment);

}  // namespace vardolin
