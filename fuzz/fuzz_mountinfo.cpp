// The mountinfo reader over arbitrary text: every entry has a device number and an absolute
// mount point.

#include "cd/cd_drives.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto mounts =
      vardolin::ParseMountInfo(std::string_view(reinterpret_cast<const char*>(data), size));
  for (const auto& m : mounts)
    if (m.number.find(':') == std::string::npos || m.mount_point.empty() || m.mount_point[0] != '/')
      std::abort();
  return 0;
}
