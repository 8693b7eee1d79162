#include "cd/cd_drives.h"

#include <cstdlib>

#include "foundation/ports/platform.h"

namespace vardolin {

namespace {

std::vector<std::string_view> Fields(std::string_view line) {
  std::vector<std::string_view> out;
  std::size_t i = 0;
  while (i < line.size()) {
    while (i < line.size() && (line[i] == ' ' || line[i] == '\t')) ++i;
    std::size_t start = i;
    while (i < line.size() && line[i] != ' ' && line[i] != '\t') ++i;
    if (i > start) out.push_back(line.substr(start, i - start));
  }
  return out;
}

// The kernel writes blanks, tabs, line ends and backslashes in paths as \ and three octal digits.
std::string Unescape(std::string_view field) {
  std::string out;
  for (std::size_t i = 0; i < field.size(); ++i) {
    auto octal = [&](std::size_t k) { return field[k] >= '0' && field[k] <= '7'; };
    if (field[i] == '\\' && i + 3 < field.size() && octal(i + 1) && octal(i + 2) && octal(i + 3)) {
      out += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 +
                               (field[i + 3] - '0'));
      i += 3;
    } else {
      out += field[i];
    }
  }
  return out;
}

}  // namespace

bool CdDrive::Ready() const {
  return status == kCdStatusDiscOk && !mount_point.empty();
}

std::vector<MountInfoEntry> ParseMountInfo(std::string_view text) {
  std::vector<MountInfoEntry> out;
  while (!text.empty()) {
    std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    // id parent major:minor root mount-point options [optional...] - type source super-options
    std::vector<std::string_view> f = Fields(line);
    if (f.size() < 5 || f[2].find(':') == std::string_view::npos) continue;
    MountInfoEntry e{std::string(f[2]), Unescape(f[3]), Unescape(f[4])};
    if (e.mount_point.empty() || e.mount_point.front() != '/') continue;
    std::erase_if(out, [&](const MountInfoEntry& m) { return m.mount_point == e.mount_point; });
    out.push_back(std::move(e));
  }
  return out;
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
