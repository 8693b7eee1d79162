// The mount table reader over arbitrary text.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "foundation/platform/mounts.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  auto mounts = vardolin::ParseMounts(text);
  // Classifying reads /sys for device attributes; point it where nothing can be found.
  for (const auto& m : mounts) vardolin::ClassifyMount(m, "/nonexistent-sys");
  return 0;
}
