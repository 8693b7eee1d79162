// The Wine registry reader over arbitrary text: no crash, and whatever a walk finds can be
// found again by key and name.

#include "foundation/platform/wine_registry.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  std::optional<vardolin::RegistryValue> first;
  vardolin::ParseWineRegistry(text, [&](const vardolin::RegistryValue& v) {
    if (!first) first = v;
    return true;
  });
  if (first && first->name != "@" && first->key.find_first_not_of('\\') != std::string::npos &&
      !vardolin::FindWineRegistryValue(text, first->key, first->name))
    std::abort();
  return 0;
}
