#pragma once
// The FileVersion text of a Windows program's version resource, read from the file's bytes: the
// program tells editions of the game and the editor's tools apart by it.

#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

// The FileVersion string of a PE image's version resource; empty when the bytes are no PE
// image, hold no version resource, or the resource has no FileVersion.
std::string ParsePeFileVersion(std::string_view image);
// The same for a file on disk; empty when it can't be read.
std::string GetFileVersionText(const std::filesystem::path& path);

}  // namespace vardolin
