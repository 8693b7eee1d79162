// The mount-table reader over arbitrary text: every entry it gives has an absolute mount point.

#include "foundation/platform/mounts.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto mounts = vardolin::ParseMounts(std::string_view(reinterpret_cast<const char*>(data), size));
  for (const auto& m : mounts) {
    if (m.mount_point.empty() || m.mount_point[0] != '/') std::abort();
    vardolin::ClassifyMount(m, "/nonexistent-sys");
  }
  return 0;
}
