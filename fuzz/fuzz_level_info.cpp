// The level info file comes inside a package: any bytes must read without a crash, and what
// reads must come back the same through the writer once its fields are in their written form.

#include "intake/level_info.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  vardolin::LevelInfo info;
  if (vardolin::ParseLevelInfo(bytes, info) != vardolin::LevelInfoParse::Ok) return 0;
  const std::string image = vardolin::LevelInfoImage(info);
  vardolin::LevelInfo again;
  if (image.empty() || vardolin::ParseLevelInfo(image, again) != vardolin::LevelInfoParse::Ok)
    __builtin_trap();
  if (vardolin::LevelInfoImage(again) != image) __builtin_trap();
  return 0;
}
