// cd_images.txt may hold any bytes: what the reader keeps is written back and read again alike.

#include "cd/cd_images.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto images = vardolin::ParseCdImageList(bytes);
  const auto again = vardolin::ParseCdImageList(vardolin::CdImageListText(images));
  if (again.size() > images.size()) std::abort();
  return 0;
}
