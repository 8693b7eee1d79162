// The BMP reader on any bytes; a picture it accepts must be whole and write back out.

#include "foundation/pictures/bmp_codec.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  vardolin::Bitmap bmp;
  std::string_view in(reinterpret_cast<const char*>(data), size);
  if (vardolin::ReadBmp(in, bmp) == vardolin::PictureResult::Ok) {
    if (bmp.pixels.size() != bmp.RowBytes() * std::size_t(bmp.height)) __builtin_trap();
    std::string again;
    if (!vardolin::WriteBmp(bmp, again)) __builtin_trap();
  }
  return 0;
}
