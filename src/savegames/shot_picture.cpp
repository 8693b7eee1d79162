#include "savegames/shot_picture.h"

#include <algorithm>
#include <cmath>

namespace vardolin {

Bitmap StretchBitmap(const Bitmap& source, int width, int height) {
  if (source.Empty() || width <= 0 || height <= 0) return {};
  Bitmap out = Bitmap::Make(width, height, 3);
  const double sx = double(source.width) / width;
  const double sy = double(source.height) / height;
  for (int y = 0; y < height; ++y) {
    // Sample at pixel centres, so that a picture painted at its own size comes out unchanged.
    const double fy = std::clamp((y + 0.5) * sy - 0.5, 0.0, double(source.height - 1));
    const int y0 = static_cast<int>(fy);
    const int y1 = std::min(y0 + 1, source.height - 1);
    const double wy = fy - y0;
    for (int x = 0; x < width; ++x) {
      const double fx = std::clamp((x + 0.5) * sx - 0.5, 0.0, double(source.width - 1));
      const int x0 = static_cast<int>(fx);
      const int x1 = std::min(x0 + 1, source.width - 1);
      const double wx = fx - x0;
      std::uint8_t* to = out.Pixel(x, y);
      for (int c = 0; c < 3; ++c) {
        const double top = source.Pixel(x0, y0)[c] * (1 - wx) + source.Pixel(x1, y0)[c] * wx;
        const double bottom = source.Pixel(x0, y1)[c] * (1 - wx) + source.Pixel(x1, y1)[c] * wx;
        to[c] = static_cast<std::uint8_t>(std::lround(top * (1 - wy) + bottom * wy));
      }
    }
  }
  return out;
}

}  // namespace vardolin
