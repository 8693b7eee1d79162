// The JPEG reader on any bytes: libjpeg's errors must come back as results.

#include "foundation/pictures/jpeg_codec.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  vardolin::Bitmap bmp;
  std::string_view in(reinterpret_cast<const char*>(data), size);
  if (vardolin::ReadJpeg(in, bmp) == vardolin::PictureResult::Ok &&
      bmp.pixels.size() != bmp.RowBytes() * std::size_t(bmp.height))
    __builtin_trap();
  return 0;
}
