#include "foundation/pictures/bitmap.h"

namespace vardolin {

const char* PictureResultName(PictureResult result) {
  switch (result) {
    case PictureResult::Ok:
      return "ok";
    case PictureResult::CannotRead:
      return "cannot read";
    case PictureResult::CannotWrite:
      return "cannot write";
    case PictureResult::Malformed:
      return "malformed";
    case PictureResult::Unsupported:
      return "unsupported";
    case PictureResult::TooLarge:
      return "too large";
  }
  return "unknown";
}

Bitmap Bitmap::Make(int width, int height, int channels) {
  Bitmap b;
  b.width = width;
  b.height = height;
  b.channels = channels;
  b.pixels.assign(b.RowBytes() * std::size_t(height), 0);
  if (channels == 4)
    for (std::size_t i = 3; i < b.pixels.size(); i += 4) b.pixels[i] = 255;
  return b;
}

}  // namespace vardolin
