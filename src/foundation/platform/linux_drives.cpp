// The Linux platform's drives: the mount points of the machine, and optical drives without a
// disc.
#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>

#include <map>
#include <set>
#include <string>

#include "foundation/platform/linux_platform.h"
#include "foundation/platform/mounts.h"
#include "foundation/services/files.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

std::map<std::string, std::string> DiskLabels() {
  std::map<std::string, std::string> labels;  // real device path -> label
  std::error_code ec;
  for (fs::directory_iterator it("/dev/disk/by-label", ec), end; !ec && it != end;
       it.increment(ec)) {
    std::string raw = it->path().filename().string(), label;
    for (std::size_t i = 0; i < raw.size(); ++i) {
      if (raw.compare(i, 2, "\\x") == 0 && i + 3 < raw.size()) {
        label += static_cast<char>(std::stoi(raw.substr(i + 2, 2), nullptr, 16));
        i += 3;
      } else {
        label += raw[i];
      }
    }
    std::error_code link_ec;
    fs::path device = fs::canonical(it->path(), link_ec);
    if (!link_ec) labels[device.string()] = label;
  }
  return labels;
}

}  // namespace

std::vector<DriveInfo> LinuxPlatform::ListDrives() {
  std::vector<DriveInfo> drives;
  std::string table = ReadWholeFile(options_.mounts_file);
  std::map<std::string, std::string> labels = DiskLabels();
  std::set<std::string> mounted_devices;
  for (const MountEntry& m : ParseMounts(table)) {
    int type = ClassifyMount(m, options_.sys_root);
    if (type < 0) continue;
    std::error_code ec;
    if (!fs::is_directory(m.mount_point, ec)) continue;  // files bound into a container
    DriveInfo d;
    d.letter = m.mount_point;
    d.type = type;
    if (type == kDriveRemote) d.share_name = m.device;
    std::error_code dev_ec;
    fs::path device = m.device;
    if (m.device.rfind("/dev/", 0) == 0) {
      fs::path real = fs::canonical(m.device, dev_ec);
      if (!dev_ec) device = real;
      mounted_devices.insert(device.string());
    }
    struct statvfs st;
    if (::statvfs(m.mount_point.c_str(), &st) == 0) {
      d.ready = true;
      d.serial = static_cast<std::uint32_t>(st.f_fsid);
      d.total_bytes = static_cast<double>(st.f_blocks) * st.f_frsize;
      d.free_bytes = static_cast<double>(st.f_bavail) * st.f_frsize;
      auto label = labels.find(device.string());
      if (label != labels.end()) d.volume_name = label->second.substr(0, 64);
    }
    drives.push_back(std::move(d));
  }
  // Optical drives with no disc in them are there too, like an empty drive letter.
  std::error_code ec;
  for (fs::directory_iterator it(options_.sys_root / "block", ec), end; !ec && it != end;
       it.increment(ec)) {
    std::string name = it->path().filename().string();
    if (name.rfind("sr", 0) != 0) continue;
    std::string device = "/dev/" + name;
    std::error_code dev_ec;
    fs::path real = fs::canonical(device, dev_ec);
    if (mounted_devices.count(dev_ec ? device : real.string())) continue;
    DriveInfo d;
    d.letter = device;
    d.type = kDriveCdRom;
    drives.push_back(std::move(d));
  }
  return drives;
}

std::vector<OpticalDevice> LinuxPlatform::ListOpticalDevices() {
  std::vector<OpticalDevice> out;
  std::error_code ec;
  for (fs::directory_iterator it(options_.sys_root / "block", ec), end; !ec && it != end;
       it.increment(ec)) {
    std::string name = it->path().filename().string();
    if (name.rfind("sr", 0) != 0) continue;
    std::string number = ReadWholeFile(it->path() / "dev");
    while (!number.empty() && std::isspace(static_cast<unsigned char>(number.back())))
      number.pop_back();
    out.push_back({name, "/dev/" + name, number});
  }
  std::sort(out.begin(), out.end(), [](const OpticalDevice& a, const OpticalDevice& b) {
    return a.name.size() != b.name.size() ? a.name.size() < b.name.size() : a.name < b.name;
  });
  return out;
}

std::string LinuxPlatform::ReadMountInfo() {
  return ReadWholeFile(options_.mountinfo_file);
}

int LinuxPlatform::OpticalDriveStatus(const std::string& device) {
  // O_NONBLOCK: without it opening a drive with no disc fails, or closes an open tray.
  int fd = ::open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return kCdStatusUnknown;
  int status = ::ioctl(fd, CDROM_DRIVE_STATUS, CDSL_CURRENT);
  ::close(fd);
  return status < 0 ? kCdStatusUnknown : status;
}

bool MoveOpticalDoor(const std::string& device, bool open) {
  int fd = ::open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return false;
  int result = ::ioctl(fd, open ? CDROMEJECT : CDROMCLOSETRAY, 0);
  ::close(fd);
  return result == 0;
}

bool LinuxPlatform::OpticalDoor(const std::string& device, bool open) {
  return MoveOpticalDoor(device, open);
}

double LinuxPlatform::FreeBytes(const fs::path& any_path) {
  std::error_code ec;
  fs::path p = fs::absolute(any_path, ec);
  if (ec) return -1;
  while (!p.empty() && !fs::exists(p, ec)) {
    if (p == p.parent_path()) break;
    p = p.parent_path();
  }
  struct statvfs st;
  if (p.empty() || ::statvfs(p.c_str(), &st) != 0) return -1;
  return static_cast<double>(st.f_bavail) * st.f_frsize;
}

}  // namespace vardolin
