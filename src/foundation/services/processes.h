#pragma once
// Starting outside programs and reading held keys, by the names the rest of the program uses.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "foundation/ports/platform.h"

namespace vardolin {

// Starts the program in its own folder and blocks until it ends; true when it could start.
bool RunAndWait(Platform& platform, const std::filesystem::path& program,
                const std::vector<std::string>& arguments, bool hidden);
// Starts the program in its own folder without waiting; empty when it couldn't start.
std::optional<Process> StartProcess(Platform& platform, const std::filesystem::path& program,
                                    const std::vector<std::string>& arguments, bool hidden);
// True when every given key (0 for none) is held down at this moment.
bool IsKeyCombinationDown(Platform& platform, int key1, int key2 = 0, int key3 = 0);
// The system's folder for temporary files, without a trailing separator.
std::filesystem::path GetTempFolder();

}  // namespace vardolin
