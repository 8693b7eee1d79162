#pragma once
// The machine's drives are its mount points. This reads the kernel's mount table and tells which
// entries are drives the program should offer, and of which type.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

struct MountEntry {
  std::string device;
  std::string mount_point;
  std::string fs_type;
  std::string options;
};

// Parses the text of /proc/self/mounts (or /etc/mtab): one mount a line, fields separated by
// blanks, octal escapes (\040 for a blank) decoded. Malformed lines are skipped. A mount point
// mounted again later hides the earlier entry, so only the last one is kept.
std::vector<MountEntry> ParseMounts(std::string_view text);

// The mount points of a mountinfo text (/proc/self/mountinfo) by device number ("11:0"), in the
// table's order; a mount point mounted again later hides the earlier mount. Escapes (\040) are
// decoded; malformed lines are skipped.
struct MountInfoEntry {
  std::string number;
  std::string root;  // the folder of the file system that is mounted there, "/" for all of it
  std::string mount_point;
};
std::vector<MountInfoEntry> ParseMountInfo(std::string_view text);

// The drive type of a mount (kDriveRemovable, kDriveFixed, kDriveRemote, kDriveCdRom), or -1 for
// a mount that is no drive (kernel and memory file systems, the system's run-time folders).
// `sys_root` is where the kernel's device attributes are read (/sys).
int ClassifyMount(const MountEntry& mount, const std::filesystem::path& sys_root = "/sys");

}  // namespace vardolin
