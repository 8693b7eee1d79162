#include "foundation/services/drives.h"

#include <gtest/gtest.h>

#include <regex>

#include "foundation/platform/linux_platform.h"
#include "foundation/platform/mounts.h"
#include "recording_platform.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

using testing::MakeDrive;
using testing::RecordingPlatform;
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
      {"/dev/sdc", "/media/u/disc2", "auto", kDriveCdRom},
      {"/dev/sr0", "/media/u/TRLE", "iso9660", kDriveCdRom},
      {"/dev/sr1", "/media/cdrom", "auto", kDriveCdRom},
      {"/dev/nvme0n1p2", "/home", "btrfs", kDriveFixed},
      {"/dev/mmcblk0p1", "/media/sd", "exfat", kDriveRemovable},
      {"/dev/loop3", "/mnt/image", "ext4", kDriveFixed},
      {"/dev/loop4", "/snap/core/1", "squashfs", -1},
      {"/dev/loop5", "/mnt/squash", "squashfs", -1},
      {"/home/u/img.iso", "/mnt/iso", "iso9660", kDriveCdRom},
      {"server:/export", "/net/share", "nfs4", kDriveRemote},
      {"//nas/levels", "/mnt/nas", "cifs", kDriveRemote},
      {"u@host:", "/mnt/ssh", "fuse.sshfs", kDriveRemote},
      {"overlay", "/", "overlay", kDriveFixed},
      {"tmpfs", "/tmp", "tmpfs", kDriveFixed},
      {"tmpfs", "/dev/shm", "tmpfs", -1},
      {"tmpfs", "/run/user/1000", "tmpfs", -1},
      {"proc", "/proc", "proc", -1},
      {"sysfs", "/sys", "sysfs", -1},
      {"cgroup2", "/sys/fs/cgroup", "cgroup2", -1},
      {"/dev/sda2", "/run/media/x", "ext4", -1},
      {"gvfsd-fuse", "/home/u/.gvfs", "fuse.gvfsd-fuse", -1},
  };
  for (const auto& [device, mount_point, fs_type, type] : cases)
    EXPECT_EQ(ClassifyMount({device, mount_point, fs_type, "rw"}, sys.path()), type)
        << device << " on " << mount_point;
}

struct NoFreeBytes : RecordingPlatform {
  double FreeBytes(const std::filesystem::path&) override { return -1; }
};

struct DrivesTest : ::testing::Test {
  NoFreeBytes platform;
  void SetUp() override {
    platform.drives = {MakeDrive("/", kDriveFixed, true, 100),
                       MakeDrive("/media/cd", kDriveCdRom, true, 0),
                       MakeDrive("/home", kDriveFixed, true, 500),
                       MakeDrive("/data", kDriveFixed, true, 500),
                       MakeDrive("/dev/sr1", kDriveCdRom, false, 0),
                       MakeDrive("/mnt/stick", kDriveRemovable, true, 900),
                       MakeDrive("/big", kDriveFixed, false, 9000)};
  }
};

TEST_F(DrivesTest, FreeBytesFallBackOnTheDriveRecord) {
  EXPECT_EQ(DiskFreeBytes(platform, "/home/u"), 500);
  EXPECT_EQ(DriveFreeBytes(platform, "/mnt/stick/x"), 900);
  EXPECT_EQ(DriveFreeBytes(platform, "/big/x"), 0);  // not ready
  RecordingPlatform answers;                         // a platform that can tell is asked directly
  EXPECT_EQ(DiskFreeBytes(answers, "/anything"), 1e12);
}

TEST(LinuxDrivesTest, ListsTheMountsOfACannedTable) {
  TempDir dir;
  std::filesystem::create_directories(dir / "mnt/usb stick");
  std::filesystem::create_directories(dir / "sys/block/sdb");
  dir.Write("sys/block/sdb/removable", "1");
  std::filesystem::create_directories(dir / "sys/block/sr0");
  std::filesystem::create_directories(dir / "sys/block/sr1");
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

  EXPECT_GT(linux_platform.FreeBytes(dir.path()), 0);
  EXPECT_EQ(linux_platform.FreeBytes(dir / "not/yet/made"), linux_platform.FreeBytes(dir.path()));
}

}  // namespace
}  // namespace vardolin
