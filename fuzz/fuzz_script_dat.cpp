// A level's compiled script comes from its package: the reader of its level paths must take any
// bytes and give only plain file names, at most one for each path the header counts.

#include "intake/completeness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto names = vardolin::ParseScriptLevelPaths(bytes, "\\");
  if (names.size() > (size < 12 ? 0u : data[10] | data[11] << 8)) std::abort();
  for (const std::string& name : names)
    if (name.empty() || name.find_first_of("/\\:") != std::string::npos) std::abort();
  return 0;
}
