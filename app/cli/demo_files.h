#pragma once
// The files the demo home is made of: bytes written where they belong, made-up level data and
// loading pictures.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace vardolin {

// Writes the bytes, making the file's folders first; false when it can't.
bool WriteBytes(const std::filesystem::path& path, const std::string& bytes);
// Bytes that look like a level's data: some of them repeat, so that packing has work to do.
std::string LevelBytes(unsigned seed, std::size_t size);
// A loading picture: a colour gradient in the level's own tint.
bool WriteLoadPicture(const std::filesystem::path& path, std::uint8_t red, std::uint8_t green,
                      std::uint8_t blue);

}  // namespace vardolin
