#pragma once
// How long an MP3 file plays, estimated before the decoder runs so that its progress bar has a
// maximum: the file's size at the bit rate of the first frame found.

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace vardolin {

// Whole seconds, at least 1: a missing or unreadable file, one without a frame header in its
// first 32,767 bytes, and a free-format file all give 1. A variable bit rate file is taken at
// the rate of its first frame, and whatever lies around the frames counts as audio.
std::int32_t Mp3DurationSeconds(const std::filesystem::path& path);

// The same over the file's first bytes (`head`) and its whole length.
std::int32_t Mp3DurationSeconds(std::string_view head, std::uint64_t file_length);

}  // namespace vardolin
