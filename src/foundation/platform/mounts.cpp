#include "foundation/platform/mounts.h"

#include <algorithm>
#include <cctype>
#include <fstream>

#include "foundation/ports/platform.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool IsOctal(char c) {
  return c >= '0' && c <= '7';
}

std::string Unescape(std::string_view field) {
  std::string out;
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] == '\\' && i + 3 < field.size() && IsOctal(field[i + 1]) &&
        IsOctal(field[i + 2]) && IsOctal(field[i + 3])) {
      out += static_cast<char>(((field[i + 1] - '0') << 6) | ((field[i + 2] - '0') << 3) |
                               (field[i + 3] - '0'));
      i += 3;
      continue;
    }
    out += field[i];
  }
  return out;
}

bool OneOf(std::string_view value, std::initializer_list<std::string_view> list) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

bool Under(std::string_view path, std::string_view folder) {
  return path == folder || (path.size() > folder.size() &&
                            path.substr(0, folder.size()) == folder && path[folder.size()] == '/');
}

std::string FirstLine(const fs::path& file) {
  std::ifstream in(file);
  std::string line;
  std::getline(in, line);
  return Trim(line);
}

// The whole disk a partition belongs to: sdb1 -> sdb, nvme0n1p2 -> nvme0n1, mmcblk0p1 ->
// mmcblk0. A name that is a disk itself stays.
std::string DiskOf(const std::string& name, const fs::path& sys_root) {
  std::error_code ec;
  if (fs::exists(sys_root / "block" / name, ec)) return name;
  std::string base = name;
  while (!base.empty() && std::isdigit(static_cast<unsigned char>(base.back()))) base.pop_back();
  if (base.size() >= 2 && base.back() == 'p' &&
      std::isdigit(static_cast<unsigned char>(base[base.size() - 2])))
    base.pop_back();
  return base;
}

}  // namespace

std::vector<MountEntry> ParseMounts(std::string_view text) {
  std::vector<MountEntry> out;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(pos, end - pos);
    pos = end + 1;
    std::vector<std::string_view> fields;
    std::size_t i = 0;
    while (i < line.size() && fields.size() < 4) {
      while (i < line.size() && (line[i] == ' ' || line[i] == '\t' || line[i] == '\r')) ++i;
      std::size_t start = i;
      while (i < line.size() && line[i] != ' ' && line[i] != '\t' && line[i] != '\r') ++i;
      if (i > start) fields.push_back(line.substr(start, i - start));
    }
    if (fields.size() < 3 || fields[0].front() == '#') continue;
    MountEntry m{Unescape(fields[0]), Unescape(fields[1]), Unescape(fields[2]),
                 fields.size() > 3 ? Unescape(fields[3]) : std::string()};
    if (m.mount_point.empty() || m.mount_point.front() != '/') continue;
    out.erase(std::remove_if(out.begin(), out.end(),
                             [&](const MountEntry& e) { return e.mount_point == m.mount_point; }),
              out.end());
    out.push_back(std::move(m));
  }
  return out;
}

int ClassifyMount(const MountEntry& m, const fs::path& sys_root) {
  const std::string& mp = m.mount_point;
  if (Under(mp, "/proc") || Under(mp, "/sys") || Under(mp, "/dev") || Under(mp, "/run") ||
      Under(mp, "/snap"))
    return -1;
  const std::string& fs_type = m.fs_type;
  if (OneOf(fs_type,
            {"nfs", "nfs4", "cifs", "smb3", "smbfs", "sshfs", "fuse.sshfs", "9p", "afs", "ceph",
             "glusterfs", "fuse.glusterfs", "davfs", "fuse.davfs2", "fuse.rclone"}))
    return kDriveRemote;
  // A memory file system is a drive only where people put files: the temporary folder.
  if (fs_type == "tmpfs") return mp == "/tmp" ? kDriveFixed : -1;
  if (OneOf(fs_type, {"iso9660", "udf"})) return kDriveCdRom;
  if (fs_type == "overlay") return kDriveFixed;

  if (m.device.rfind("/dev/", 0) == 0) {
    std::string name = fs::path(m.device).filename().string();
    std::error_code ec;
    if (name.rfind("sr", 0) == 0 || name.rfind("scd", 0) == 0) return kDriveCdRom;
    std::string disk = DiskOf(name, sys_root);
    fs::path sys = sys_root / "block" / disk;
    if (FirstLine(sys / "device" / "type") == "5") return kDriveCdRom;
    if (FirstLine(sys / "removable") == "1") return kDriveRemovable;
    if (name.rfind("loop", 0) == 0 || !fs::exists(sys, ec)) {
      // A loop device or a device the kernel lists no attributes for: a drive only when it
      // holds a disk file system.
      return OneOf(fs_type, {"ext2", "ext3", "ext4", "xfs", "btrfs", "vfat", "exfat", "ntfs",
                             "ntfs3", "fuseblk", "f2fs", "jfs", "reiserfs", "hfsplus"})
                 ? kDriveFixed
                 : -1;
    }
    return kDriveFixed;
  }
  if (OneOf(fs_type, {"zfs", "fuseblk"})) return kDriveFixed;
  return -1;
}

}  // namespace vardolin
