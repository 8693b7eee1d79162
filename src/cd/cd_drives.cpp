#include "cd/cd_drives.h"

#include <cstdlib>

#include "foundation/ports/platform.h"

namespace vardolin {

bool CdDrive::Ready() const {
  return status == kCdStatusDiscOk && !mount_point.empty();
}

std::vector<CdDrive> ListCdDrives(Platform& platform) {
  std::vector<MountInfoEntry> mounts = ParseMountInfo(platform.ReadMountInfo());
  std::vector<CdDrive> drives;
  for (const OpticalDevice& device : platform.ListOpticalDevices()) {
    CdDrive d;
    d.device = device.device;
    // A folder of the disc bound elsewhere is no view of the whole disc.
    for (const MountInfoEntry& m : mounts)
      if (!device.number.empty() && m.number == device.number && m.root == "/") {
        d.mount_point = m.mount_point;
        break;
      }
    d.status = platform.OpticalDriveStatus(device.device);
    drives.push_back(std::move(d));
  }
  return drives;
}

bool EjectCd(Platform& platform, const std::string& device) {
  return platform.OpticalDoor(device, true);
}

bool CloseCdTray(Platform& platform, const std::string& device) {
  return platform.OpticalDoor(device, false);
}

}  // namespace vardolin
