// The Wine registry reader over arbitrary text: it must visit values without crashing and find
// what it visited.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "foundation/platform/wine_registry.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  int visited = 0;
  vardolin::ParseWineRegistry(text,
                              [&](const vardolin::RegistryValue&) { return ++visited < 10000; });
  vardolin::FindWineRegistryValue(
      text, "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\winroomedit.exe", "");
  return 0;
}
