// A level's compiled script comes from its package: the reader of its level paths must take any
// bytes and give only file names, never a path that could lead out of the level's folder.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "intake/completeness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto names = vardolin::ParseScriptLevelPaths(bytes, "\\");
  const std::size_t count =
      size >= 12 ? static_cast<std::uint8_t>(bytes[10]) | static_cast<std::uint8_t>(bytes[11]) << 8
                 : 0;
  if (names.size() > count) std::abort();
  for (const std::string& name : names)
    if (name.empty() || name.find_first_of("/\\:") != std::string::npos) std::abort();
  return 0;
}
