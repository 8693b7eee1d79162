#pragma once
// Writing string values into the local machine registry of a Wine prefix (its system.reg), for
// what a Windows setup would register: a program's App Paths key.

#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

// The text of `reg` (a system.reg, possibly empty) with `name` (empty for the default value)
// under `key` set to `data`: the key is added when missing, the value replaced when present.
std::string SetWineRegistryString(std::string_view reg, std::string_view key, std::string_view name,
                                  std::string_view data);
// Sets the value in the prefix's system.reg, replacing the file atomically. Wine keeps its
// registry in memory while it runs and writes it back at its end, so a value written meanwhile
// may be lost: callers write when no Windows program of theirs runs.
bool WriteWineRegistryString(const std::filesystem::path& prefix, std::string_view key,
                             std::string_view name, std::string_view data);
// A path on this machine as the prefix's Windows programs see it: below drive_c as "C:\...",
// anything else through Wine's Z: drive, which stands for the root.
std::string NativeToWinePath(const std::filesystem::path& prefix,
                             const std::filesystem::path& path);

}  // namespace vardolin
