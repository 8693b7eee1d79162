// The version-resource reader over arbitrary bytes: no crash, no read out of bounds.

#include "foundation/services/pe_version.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vardolin::ParsePeFileVersion(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
