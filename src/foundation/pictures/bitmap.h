#pragma once
// A picture in memory: the common ground of the BMP and JPEG codecs. Rows run from the top,
// pixels are packed RGB (3 channels) or RGBA (4), one byte each.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vardolin {

enum class PictureResult {
  Ok,
  CannotRead,   // the file is missing or unreadable
  CannotWrite,  // the target can't be written
  Malformed,    // not a picture of the kind, or damaged
  Unsupported,  // a picture of the kind in a variant the program doesn't read or write
  TooLarge,     // dimensions beyond what the program handles (or the file could hold)
};

const char* PictureResultName(PictureResult result);

// Pictures above this many pixels are refused: far beyond any screen shot or loading picture,
// and it bounds what a damaged header can make the program allocate.
inline constexpr std::uint64_t kMaxPicturePixels = std::uint64_t(1) << 26;

struct Bitmap {
  int width = 0;
  int height = 0;
  int channels = 3;
  std::vector<std::uint8_t> pixels;

  // A black picture of the given size; channels 3 or 4 (alpha opaque).
  static Bitmap Make(int width, int height, int channels = 3);

  bool Empty() const { return width <= 0 || height <= 0; }
  std::size_t RowBytes() const { return std::size_t(width) * channels; }
  std::uint8_t* Pixel(int x, int y) {
    return pixels.data() + y * RowBytes() + std::size_t(x) * channels;
  }
  const std::uint8_t* Pixel(int x, int y) const {
    return pixels.data() + y * RowBytes() + std::size_t(x) * channels;
  }
};

}  // namespace vardolin
