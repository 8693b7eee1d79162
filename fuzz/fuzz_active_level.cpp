// The marker of the active level is read back from the editor folder, where anything may have
// been written into it: its reader must take any bytes.

#include "play/active_level_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view marker(reinterpret_cast<const char*>(data), size);
  for (std::string_view key : {"Level code:", "Replaced files:", "Level files:", ""}) {
    const std::string value = vardolin::ReadMarkerField(marker, key);
    (void)vardolin::ParseMarkerCode(value);
    (void)vardolin::SplitMarkerList(value);
  }
  return 0;
}
