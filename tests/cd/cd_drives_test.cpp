// The optical drives: their mount points from the kernel's mount table, their state, their door.
#include "cd/cd_drives.h"

#include <gtest/gtest.h>

#include "foundation/platform/linux_platform.h"
#include "recording_platform.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

using testing::RecordingPlatform;
using testing::TempDir;

TEST(CdDrives, MountPointsAndReadinessFromTheMountTable) {
  RecordingPlatform platform;
  platform.optical = {{"sr0", "/dev/sr0", "11:0"},
                      {"sr1", "/dev/sr1", "11:1"},
                      {"sr2", "/dev/sr2", "11:2"},
                      {"sr3", "/dev/sr3", "11:3"}};
  platform.mountinfo =
      "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
      // A folder of the disc in sr0 bound elsewhere comes first: not the disc's mount point.
      "40 22 11:0 /LEVELS /srv/levels ro - iso9660 /dev/sr0 ro\n"
      "41 22 11:0 / /media/user/LEVEL\\040CD\\0401 ro,nosuid shared:9 - iso9660 /dev/sr0 ro\n"
      "42 22 11:1 / /media/old ro - iso9660 /dev/sr1 ro\n"
      "43 22 8:1 / /media/old rw - ext4 /dev/sda1 rw\n"  // mounted over the disc's mount point
      "bad line\n"
      "44 22 11:3 / /media/cd3 ro - udf /dev/sr3 ro";
  platform.optical_status = {{"/dev/sr0", kCdStatusDiscOk},
                             {"/dev/sr1", kCdStatusDiscOk},
                             {"/dev/sr2", kCdStatusTrayOpen},
                             {"/dev/sr3", kCdStatusNotReady}};
  std::vector<CdDrive> drives = ListCdDrives(platform);
  struct Want {
    std::string device, mount;
    bool ready;
  } want[] = {{"/dev/sr0", "/media/user/LEVEL CD 1", true},
              {"/dev/sr1", "", false},
              {"/dev/sr2", "", false},
              {"/dev/sr3", "/media/cd3", false}};
  ASSERT_EQ(drives.size(), std::size(want));
  for (std::size_t i = 0; i < drives.size(); ++i) {
    SCOPED_TRACE(want[i].device);
    EXPECT_EQ(drives[i].device, want[i].device);
    EXPECT_EQ(drives[i].mount_point, want[i].mount);
    EXPECT_EQ(drives[i].Ready(), want[i].ready);
  }

  EXPECT_TRUE(CloseCdTray(platform, "/dev/sr2"));
  EXPECT_EQ(platform.calls.back(), "close /dev/sr2");
}

// The Linux side reads the kernel's names in their order and its mount table as they stand; a
// device that isn't a drive can't be asked and refuses its door.
TEST(CdDrives, LinuxPlatformReadsTheKernelsDrives) {
  TempDir dir;
  for (std::string name : {"sr10", "sr1", "sda", "sr0"})
    dir.Write("sys/block/" + name + "/dev",
              name == "sda" ? "8:0\n" : "11:" + name.substr(2) + "\n");
  dir.Write("mountinfo", "41 22 11:1 / /media/cd ro - iso9660 /dev/sr1 ro\n");
  LinuxPlatform::Options options;
  options.sys_root = dir / "sys";
  options.mountinfo_file = dir / "mountinfo";
  LinuxPlatform platform(options);
  std::vector<OpticalDevice> devices = platform.ListOpticalDevices();
  ASSERT_EQ(devices.size(), 3u);
  EXPECT_EQ(devices[1].number, "11:1");
  EXPECT_EQ(devices[2].device, "/dev/sr10");
  EXPECT_EQ(ParseMountInfo(platform.ReadMountInfo()).at(0).mount_point, "/media/cd");
  std::string not_a_drive = dir.Write("plain", "x").string();
  EXPECT_EQ(platform.OpticalDriveStatus(not_a_drive), kCdStatusUnknown);
  EXPECT_FALSE(platform.OpticalDoor(not_a_drive, true));
}

}  // namespace
}  // namespace vardolin
