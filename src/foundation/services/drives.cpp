#include "foundation/services/drives.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool Holds(const std::string& mount_point, const std::string& path) {
  if (mount_point == "/") return !path.empty() && path.front() == '/';
  return path == mount_point ||
         (path.size() > mount_point.size() &&
          path.compare(0, mount_point.size(), mount_point) == 0 && path[mount_point.size()] == '/');
}

std::vector<std::string> DrivesOfType(Platform& platform, int type) {
  std::vector<std::string> out;
  for (const DriveInfo& d : platform.ListDrives())
    if (d.type == type) out.push_back(d.letter);
  return out;
}

}  // namespace

std::string DriveOfPath(const std::vector<DriveInfo>& drives, const fs::path& path) {
  if (path.empty()) return {};
  std::error_code ec;
  fs::path absolute = fs::absolute(path, ec);
  if (ec) return {};
  std::string text = fs::weakly_canonical(absolute, ec).string();
  if (ec) text = absolute.lexically_normal().string();
  const DriveInfo* best = nullptr;
  for (const DriveInfo& d : drives)
    if (Holds(d.letter, text) && (!best || d.letter.size() > best->letter.size())) best = &d;
  return best ? best->letter : std::string();
}

std::string DriveOfPath(Platform& platform, const fs::path& path) {
  return DriveOfPath(platform.ListDrives(), path);
}

bool GetDriveInfo(Platform& platform, const std::string& letter, DriveInfo& info) {
  info = DriveInfo{};
  for (const DriveInfo& d : platform.ListDrives()) {
    if (d.letter != letter) continue;
    if (d.ready) {
      info = d;
    } else {
      info.letter = d.letter;
      info.type = d.type;
      info.share_name = d.share_name;
    }
    return !info.letter.empty();
  }
  return false;
}

int DriveTypeOfPath(Platform& platform, const fs::path& path) {
  std::vector<DriveInfo> drives = platform.ListDrives();
  std::string letter = DriveOfPath(drives, path);
  for (const DriveInfo& d : drives)
    if (!letter.empty() && d.letter == letter) return d.type;
  return kDriveUnknown;
}

std::vector<std::string> ListFixedDrives(Platform& platform) {
  return DrivesOfType(platform, kDriveFixed);
}

double DiskFreeBytes(Platform& platform, const fs::path& any_path) {
  double free = platform.FreeBytes(any_path);
  return free >= 0 ? free : DriveFreeBytes(platform, any_path);
}

double DriveFreeBytes(Platform& platform, const fs::path& path) {
  DriveInfo info;
  if (!GetDriveInfo(platform, DriveOfPath(platform, path), info)) return 0;
  return info.free_bytes;
}

std::string BestFreeDrive(Platform& platform, double& free_bytes) {
  std::string best;
  free_bytes = 0;
  for (const DriveInfo& d : platform.ListDrives())
    if (d.type == kDriveFixed && d.ready && (best.empty() || d.free_bytes > free_bytes)) {
      best = d.letter;
      free_bytes = d.free_bytes;
    }
  return best;
}

}  // namespace vardolin
