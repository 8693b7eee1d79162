#pragma once
// Old_Search.bin, the folders the zip search remembers: a signed 32-bit count, then per folder
// its path (256 bytes of code page 1252, blank-padded) and the 64-bit date it was last used.
// No magic, no version: the count alone says where the entries end.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/program.h"

namespace vardolin {

// The entries the bytes hold: as many whole entries as the count names and the bytes carry, so a
// file cut short or with a count beyond its size gives what stands; bytes behind the last entry
// are left alone. A negative count, or too few bytes for it, gives none.
std::vector<SearchedFolder> ParseSearchHistory(std::string_view bytes);
std::string SearchHistoryBytes(const std::vector<SearchedFolder>& history);

std::filesystem::path SearchHistoryPath(const Program& program);
// Reads the file into the program's history when that is empty; a missing or unreadable file
// leaves it empty, without a message.
void LoadSearchHistory(Program& program);
// The folder a search starts in before any was searched: the folder for downloads of the
// settings, or the desktop's own while the settings hold none (text 2524).
std::string FirstSearchFolder(Program& program);
// Replaces the file with the history (written beside and renamed over). False on failure.
bool SaveSearchHistory(Program& program);

}  // namespace vardolin
