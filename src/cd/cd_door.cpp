// The door of an optical drive, through the kernel's CD-ROM ioctls on the device that is mounted
// at the unit (or on the unit itself when it names the device).
#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "cd/burn_engine.h"
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
  if (device.empty()) return false;
  const int fd = ::open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return false;
  const bool moved = ::ioctl(fd, open ? CDROMEJECT : CDROMCLOSETRAY, 0) == 0;
  ::close(fd);
  return moved;
}

}  // namespace vardolin
