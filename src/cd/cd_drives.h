#pragma once
// The machine's optical drives, what each has mounted and its door. A drive is "ready" when a
// disc is in it and mounted: only then can its files be read, for the program never mounts.

#include <string>
#include <string_view>
#include <vector>
#include "foundation/platform/mounts.h"  // MountInfoEntry, ParseMountInfo

namespace vardolin {

class Platform;

struct CdDrive {
  std::string device;       // "/dev/sr0"
  std::string mount_point;  // where its disc is mounted; empty when none is
  int status = -1;          // kCdStatus... of the platform port
  bool Ready() const;
};

// The optical drives in the kernel's order (sr0, sr1, ... sr10), each with the mount point of
// its disc (the first mount of the whole disc) and the drive's state.
std::vector<CdDrive> ListCdDrives(Platform& platform);

// The door of the drive: open ejects the disc. False when the drive refused.
bool EjectCd(Platform& platform, const std::string& device);
bool CloseCdTray(Platform& platform, const std::string& device);

}  // namespace vardolin
