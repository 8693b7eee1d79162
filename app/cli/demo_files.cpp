#include "demo_files.h"

#include <fstream>
#include <random>
#include <system_error>

#include "foundation/pictures/bitmap.h"
#include "foundation/pictures/picture_file.h"

namespace vardolin {

namespace fs = std::filesystem;

bool WriteBytes(const fs::path& path, const std::string& bytes) {
  std::error_code ec;
  fs::create_directories(path.parent_path(), ec);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return static_cast<bool>(out);
}

// Bytes that look like a level's data: some of them repeat, so that packing has work to do.
std::string LevelBytes(unsigned seed, std::size_t size) {
  std::mt19937 random(seed);
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i)
    bytes[i] = static_cast<char>(i % 5 == 0 ? random() : 'A' + (i + seed) % 23);
  return bytes;
}

// A loading picture: a colour gradient in the level's own tint.
bool WriteLoadPicture(const fs::path& path, std::uint8_t red, std::uint8_t green,
                      std::uint8_t blue) {
  Bitmap bitmap = Bitmap::Make(160, 120);
  for (int y = 0; y < bitmap.height; ++y)
    for (int x = 0; x < bitmap.width; ++x) {
      std::uint8_t* p = bitmap.Pixel(x, y);
      p[0] = static_cast<std::uint8_t>(red * x / bitmap.width);
      p[1] = static_cast<std::uint8_t>(green * y / bitmap.height);
      p[2] = static_cast<std::uint8_t>(blue);
    }
  return WritePictureFile(path, bitmap) == PictureResult::Ok;
}

}  // namespace vardolin
