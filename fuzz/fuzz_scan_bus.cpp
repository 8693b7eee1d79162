// The writer's bus scan over any text: every writer it finds is a device string that reads back
// with the address it was given, and no more writers than device lines.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "cd/burn_output.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto writers = vardolin::ParseScanBus(text, {"/media/cdrom0"});
  std::size_t tabbed_lines = text.starts_with('\t') ? 1 : 0;
  for (std::size_t i = 1; i < text.size(); ++i)
    if (text[i] == '\t' && (text[i - 1] == '\n' || text[i - 1] == '\r')) ++tabbed_lines;
  if (writers.size() > tabbed_lines) __builtin_trap();
  for (std::size_t i = 0; i < writers.size(); ++i) {
    vardolin::DeviceFields fields;
    // A writer's description may be too short for a vendor and model; its address must read.
    if (vardolin::ParseDeviceString(writers[i], fields) &&
        fields.unit != (i == 0 ? "/media/cdrom0" : "X:"))
      __builtin_trap();
  }
  return 0;
}
