// The writer's bus scan over any text: every writer is a device string that reads back with
// the unit it was given, the first drive's mount point and then "X:".

#include "cd/burn_output.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto writers = vardolin::ParseScanBus(
      std::string_view(reinterpret_cast<const char*>(data), size), {"/media/cdrom0"});
  for (std::size_t i = 0; i < writers.size(); ++i) {
    vardolin::DeviceFields fields;
    if (vardolin::ParseDeviceString(writers[i], fields) &&
        fields.unit != (i == 0 ? "/media/cdrom0" : "X:"))
      __builtin_trap();
  }
  return 0;
}
