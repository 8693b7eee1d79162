#pragma once
// Drive services over the platform's list of drives. On Linux a drive is a mount point, and a
// drive "letter" is the mount point's path; DriveOfPath takes the place of "the first two
// characters of a path".

#include <filesystem>
#include <string>
#include <vector>

#include "foundation/ports/platform.h"

namespace vardolin {

// The mount point that holds `path` (the drive with the longest matching prefix); empty when no
// drive holds it.
std::string DriveOfPath(const std::vector<DriveInfo>& drives, const std::filesystem::path& path);
std::string DriveOfPath(Platform& platform, const std::filesystem::path& path);

// Fills `info` for the drive `letter` (a mount point). A drive that isn't there gives an empty
// record and false; for a drive that isn't ready only letter, ready flag, type and share name
// are filled.
bool GetDriveInfo(Platform& platform, const std::string& letter, DriveInfo& info);
// The type of the drive holding `path`; kDriveUnknown when none does.
int DriveTypeOfPath(Platform& platform, const std::filesystem::path& path);
// The fixed drives, in the platform's order.
std::vector<std::string> ListFixedDrives(Platform& platform);
// Bytes free on the drive of `any_path`; when the platform can't tell, DriveFreeBytes.
double DiskFreeBytes(Platform& platform, const std::filesystem::path& any_path);
// The free space GetDriveInfo tells for the drive of `path`; 0 when that fails.
double DriveFreeBytes(Platform& platform, const std::filesystem::path& path);
// The fixed drive with the most free bytes (the first on a tie); empty when there is none.
std::string BestFreeDrive(Platform& platform, double& free_bytes);

}  // namespace vardolin
