// The door of an optical drive: the one of the device that is mounted at the unit (or of the
// unit itself when it names the device).
#include "cd/burn_engine.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/platform/mounts.h"
#include "foundation/services/files.h"

namespace vardolin {

bool MoveCdDoor(const std::string& unit, bool open) {
  std::string device = unit;
  if (unit.rfind("/dev/", 0) != 0) {
    device.clear();
    for (const MountEntry& m : ParseMounts(ReadWholeFile("/proc/self/mounts")))
      if (m.mount_point == unit) device = m.device;
  }
  return !device.empty() && MoveOpticalDoor(device, open);
}

}  // namespace vardolin
