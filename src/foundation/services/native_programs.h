#pragma once
// The native programs a home allows to run in the place of a Windows one. The game and the
// editor's tools are Windows programs that start through Wine; a program that isn't one runs
// only when the home names its very bytes (the demo's and the tests' stand-ins), never because
// of its own form, so that a package can't bring a native program that runs. The list is a file
// of the home in the form sha256sum writes: a checksum, two blanks and a name, one a line.

#include <filesystem>

namespace vardolin {

std::filesystem::path AllowedProgramsFile(const std::filesystem::path& home);
// True when the file's checksum stands in the home's list.
bool IsAllowedNativeProgram(const std::filesystem::path& home,
                            const std::filesystem::path& program);
// Puts the file's checksum into the home's list; false when it can't be read or written.
bool AllowNativeProgram(const std::filesystem::path& home, const std::filesystem::path& program);

}  // namespace vardolin
