#pragma once
// SHA-256, for telling a file by its very bytes: a checksum a package can't forge to pass for
// a program the home allows.

#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

// The digest of the bytes, as 64 lower-case hex digits.
std::string Sha256Hex(std::string_view bytes);
// The digest of a file's bytes; empty when it can't be read.
std::string Sha256OfFile(const std::filesystem::path& file);

}  // namespace vardolin
