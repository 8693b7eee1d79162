#include "foundation/services/folder_swap.h"

#include <system_error>

#include "foundation/services/atomic_file.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

fs::path Beside(const fs::path& target, const char* suffix) {
  fs::path path = target;
  path += suffix;
  return path;
}

bool Stands(const fs::path& path) {
  std::error_code ec;
  return fs::exists(fs::symlink_status(path, ec));
}

void RemoveTree(const fs::path& path) {
  std::error_code ec;
  // Files the store marked read-only sit in folders that may be read-only too.
  for (auto it = fs::recursive_directory_iterator(path, ec);
       !ec && it != fs::recursive_directory_iterator(); it.increment(ec))
    if (it->is_directory(ec) && !it->is_symlink(ec))
      fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ec);
  fs::remove_all(path, ec);
}

}  // namespace

fs::path SwapStagingFolder(const fs::path& target) {
  return Beside(target, ".new~");
}

fs::path SwapOldFolder(const fs::path& target) {
  return Beside(target, ".old~");
}

bool RecoverFolderSwap(const fs::path& target) {
  const fs::path staging = SwapStagingFolder(target);
  const fs::path old = SwapOldFolder(target);
  const bool staged = Stands(staging), kept = Stands(old);
  if (!staged && !kept) return false;
  std::error_code ec;
  if (!Stands(target) && kept) {
    // Between the two renames: the old folder was set aside only once the new one was whole.
    fs::rename(staged ? staging : old, target, ec);
    if (ec) return true;
  }
  if (Stands(staging)) RemoveTree(staging);
  if (Stands(old)) RemoveTree(old);
  return true;
}

bool ReplaceFolderWhole(const fs::path& target, const std::function<bool(const fs::path&)>& fill) {
  RecoverFolderSwap(target);
  std::error_code ec;
  fs::create_directories(target, ec);
  const fs::path staging = SwapStagingFolder(target);
  fs::create_directories(staging, ec);
  if (ec || !fill(staging)) {
    RemoveTree(staging);
    return false;
  }
  const fs::path old = SwapOldFolder(target);
  fs::rename(target, old, ec);
  if (ec) {
    RemoveTree(staging);
    return false;
  }
  FaultPoint("folder-swap");
  fs::rename(staging, target, ec);
  if (ec) {
    fs::rename(old, target, ec);
    RemoveTree(staging);
    return false;
  }
  RemoveTree(old);
  return true;
}

}  // namespace vardolin
