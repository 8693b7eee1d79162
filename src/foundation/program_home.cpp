#include "foundation/program_home.h"

#include <unistd.h>

#include <cstdlib>
#include <system_error>

namespace vardolin {
namespace fs = std::filesystem;

fs::path ResolveHome(const std::string& home_option) {
  if (!home_option.empty()) return fs::absolute(home_option);
  if (const char* env = std::getenv("VARDOLIN_HOME"); env && *env) return fs::absolute(env);
  if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg) return fs::path(xdg) / "vardolin";
  const char* user_home = std::getenv("HOME");
  return fs::path(user_home ? user_home : ".") / ".local" / "share" / "vardolin";
}

fs::path ResourcesFolder() {
  if (const char* env = std::getenv("VARDOLIN_RESOURCES"); env && *env) return env;
  std::error_code ec;
  fs::path exe = fs::read_symlink("/proc/self/exe", ec);
  if (!ec) {
    fs::path installed = exe.parent_path().parent_path() / "share" / "vardolin";
    if (fs::is_directory(installed, ec)) return installed;
  }
  return fs::path(VARDOLIN_SOURCE_DIR) / "resources";
}

bool PrepareHome(const fs::path& home) {
  std::error_code ec;
  fs::create_directories(home, ec);
  if (!fs::is_directory(home, ec)) return false;
  fs::path resources = ResourcesFolder();
  for (auto it = fs::recursive_directory_iterator(resources, ec);
       !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
    fs::path rel = fs::relative(it->path(), resources, ec);
    fs::path target = home / rel;
    if (it->is_directory()) {
      fs::create_directories(target, ec);
    } else if (!fs::exists(target)) {
      fs::copy_file(it->path(), target, ec);
    }
  }
  return true;
}

}  // namespace vardolin
