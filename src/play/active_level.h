#pragma once
// Which level stands in the editor folder. The marker file there says so, not any memory of the
// run, so that the answer holds after a crash.

#include <cstdint>
#include <filesystem>

namespace vardolin {

class Program;

// The editor folder as the settings name it.
std::filesystem::path EditorFolderPath(const Program& program);
// The marker file's path in the editor folder.
std::filesystem::path ActiveLevelFilePath(const Program& program);
// The code in the marker: 0 when there is no marker (the base level stands in the folder) or
// when the marker holds no code.
std::int32_t GetActiveLevelCode(const Program& program);

}  // namespace vardolin
