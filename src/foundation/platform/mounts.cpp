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

// The first `most` blank-separated fields of a line.
std::vector<std::string_view> Fields(std::string_view line, std::size_t most) {
  std::vector<std::string_view> fields;
  std::size_t i = 0;
  const auto blank = [&](std::size_t k) {
    return line[k] == ' ' || line[k] == '\t' || line[k] == '\r';
  };
  while (i < line.size() && fields.size() < most) {
    while (i < line.size() && blank(i)) ++i;
    const std::size_t start = i;
    while (i < line.size() && !blank(i)) ++i;
    if (i > start) fields.push_back(line.substr(start, i - start));
  }
  return fields;
}

// Each line of a table, without its end.
template <class Each>
void ForEachLine(std::string_view text, Each each) {
  for (std::size_t pos = 0; pos < text.size();) {
    std::size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    each(text.substr(pos, end - pos));
    pos = end + 1;
  }
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
  ForEachLine(text, [&](std::string_view line) {
    const std::vector<std::string_view> fields = Fields(line, 4);
    if (fields.size() < 3 || fields[0].front() == '#') return;
    MountEntry m{Unescape(fields[0]), Unescape(fields[1]), Unescape(fields[2]),
                 fields.size() > 3 ? Unescape(fields[3]) : std::string()};
    if (m.mount_point.empty() || m.mount_point.front() != '/') return;
    std::erase_if(out, [&](const MountEntry& e) { return e.mount_point == m.mount_point; });
    out.push_back(std::move(m));
  });
  return out;
}

std::vector<MountInfoEntry> ParseMountInfo(std::string_view text) {
  std::vector<MountInfoEntry> out;
  ForEachLine(text, [&](std::string_view line) {
    // id parent major:minor root mount-point options [optional...] - type source super-options
    const std::vector<std::string_view> f = Fields(line, 5);
    if (f.size() < 5 || f[2].find(':') == std::string_view::npos) return;
    MountInfoEntry e{std::string(f[2]), Unescape(f[3]), Unescape(f[4])};
    if (e.mount_point.empty() || e.mount_point.front() != '/') return;
    std::erase_if(out, [&](const MountInfoEntry& m) { return m.mount_point == e.mount_point; });
    out.push_back(std::move(e));
  });
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
