#include "foundation/services/drives.h"

#include <gtest/gtest.h>

#include <regex>

#include "foundation/platform/linux_platform.h"
#include "foundation/platform/mounts.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

using testing::TempDir;

TEST(MountsTest, ClassifiesMountsAsDrives) {
  TempDir sys;
  sys.Write("block/sda/removable", "0\n");
  sys.Write("block/sdb/removable", "1\n");
  sys.Write("block/sdc/removable", "0\n");
  sys.Write("block/sdc/device/type", "5\n");
  sys.Write("block/nvme0n1/removable", "0\n");
  sys.Write("block/mmcblk0/removable", "1\n");
  const std::tuple<const char*, const char*, const char*, int> cases[] = {
      {"/dev/sda1", "/", "ext4", kDriveFixed},
      {"/dev/sdb1", "/media/u/STICK", "vfat", kDriveRemovable},
      {"/dev/sdc", "/media/u/disc", "udf", kDriveCdRom},
      {"/dev/sr0", "/media/u/TRLE", "iso9660", kDriveCdRom},
      {"/dev/loop3", "/mnt/image", "ext4", kDriveFixed},
      {"/dev/loop4", "/snap/core/1", "squashfs", -1},
      {"/home/u/img.iso", "/mnt/iso", "iso9660", kDriveCdRom},
      {"server:/export", "/net/share", "nfs4", kDriveRemote},
      {"tmpfs", "/tmp", "tmpfs", kDriveFixed},
      {"tmpfs", "/dev/shm", "tmpfs", -1},
      {"/dev/sda2", "/run/media/x", "ext4", -1},
      {"gvfsd-fuse", "/home/u/.gvfs", "fuse.gvfsd-fuse", -1},
  };
  for (const auto& [device, mount_point, fs_type, type] : cases)
    EXPECT_EQ(ClassifyMount({device, mount_point, fs_type, "rw"}, sys.path()), type)
        << device << " on " << mount_point;
}

TEST(LinuxDrivesTest, ListsTheMountsOfACannedTable) {
  TempDir dir;
  for (const char* folder : {"mnt/usb stick", "sys/block/sr0", "sys/block/sr1"})
    std::filesystem::create_directories(dir / folder);
  dir.Write("sys/block/sdb/removable", "1");
  dir.Write("mounted-file", "");
  const std::string root = dir.path().string();
  std::string table;
  // The stick is mounted over a disk: the later mount is the one seen. Comments and broken lines
  // are skipped.
  for (const char* line :
       {"proc /proc proc rw 0 0", "# a comment", "broken-line",
        "/dev/sda3 @/mnt/usb\\040stick ext4 rw 0 0", "/dev/sdb1 @/mnt/usb\\040stick vfat rw 0 0",
        "/dev/sda1 @/mounted-file ext4 rw 0 0", "/dev/sr0 @ iso9660 ro 0 0",
        "/dev/sda2 @/gone ext4 rw 0 0"})
    table += std::regex_replace(line, std::regex("@"), root) + "\n";
  dir.Write("mounts", table);
  LinuxPlatform::Options options;
  options.mounts_file = dir / "mounts";
  options.sys_root = dir / "sys";
  LinuxPlatform linux_platform(options);
  std::vector<DriveInfo> drives = linux_platform.ListDrives();
  ASSERT_EQ(drives.size(), 3u);
  EXPECT_EQ(drives[0].letter, root + "/mnt/usb stick");
  EXPECT_EQ(drives[0].type, kDriveRemovable);
  EXPECT_TRUE(drives[0].ready);
  EXPECT_GT(drives[0].total_bytes, 0);
  EXPECT_EQ(drives[1].letter, root);
  EXPECT_EQ(drives[1].type, kDriveCdRom);
  // The second optical drive has no disc mounted: there, but not ready.
  EXPECT_EQ(drives[2].letter, "/dev/sr1");
  EXPECT_EQ(drives[2].type, kDriveCdRom);
  EXPECT_FALSE(drives[2].ready);

  // Tests running beside this one write to the same disk, so the two readings may differ a
  // little; a path not yet made must still read its nearest existing folder's disk.
  double made = linux_platform.FreeBytes(dir.path());
  EXPECT_GT(made, 0);
  EXPECT_NEAR(linux_platform.FreeBytes(dir / "not/yet/made"), made, 1e9);
}

}  // namespace
}  // namespace vardolin
