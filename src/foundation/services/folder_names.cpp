#include "foundation/services/folder_names.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <system_error>

#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

FolderNames::FolderNames(const fs::path& folder) : folder_(folder) {
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    std::string name = it->path().filename().string();
    // Of names that differ only in case the file services take the first in byte order.
    auto [at, added] = by_lower_.emplace(ToLower(name), name);
    if (!added && name < at->second) at->second = name;
  }
}

fs::path FolderNames::Place(const std::string& name) {
  return folder_ / by_lower_.emplace(ToLower(name), name).first->second;
}

bool CopyFileOverPlaced(const fs::path& source, const fs::path& target, const char* fault_point) {
  // A full disk at this point fails the copy before anything is written (errno is ENOSPC).
  if (fault_point && FaultPoint(fault_point)) return false;
  std::error_code ec;
  const auto st = fs::symlink_status(target, ec);
  if (fs::exists(st)) {
    if (fs::is_directory(st)) return false;
    if (!fs::is_symlink(st) && fs::equivalent(source, target, ec)) return true;
    if (!DeleteFileForced(target)) return false;
  }
  return CopyNewFile(source, target);
}

}  // namespace vardolin
