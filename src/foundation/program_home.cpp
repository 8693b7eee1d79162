#include "foundation/program_home.h"

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <system_error>

#include "foundation/services/atomic_file.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// What the program last put into the home, file by file, by the hash of its bytes. A file that
// still holds those bytes is the program's own and a newer program may replace it; one whose
// bytes differ was changed by the user and stays.
constexpr const char* kShippedStamp = ".shipped_resources";

std::optional<std::string> ReadBytes(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) return std::nullopt;
  return bytes;
}

// FNV-1a, 64 bits: the same bytes give the same text in every build, which a stamp kept across
// versions of the program needs.
std::string ContentHash(const std::string& bytes) {
  std::uint64_t hash = 14695981039346656037ull;
  for (unsigned char c : bytes) {
    hash ^= c;
    hash *= 1099511628211ull;
  }
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
  return text;
}

// One line per file: the hash, a blank and the path relative to the home.
std::map<std::string, std::string> ReadStamp(const fs::path& stamp) {
  std::map<std::string, std::string> out;
  std::ifstream in(stamp);
  for (std::string line; std::getline(in, line);) {
    const std::size_t blank = line.find(' ');
    if (blank != std::string::npos) out[line.substr(blank + 1)] = line.substr(0, blank);
  }
  return out;
}

std::string StampText(const std::map<std::string, std::string>& stamp) {
  std::string out;
  for (const auto& [rel, hash] : stamp) out += hash + " " + rel + "\n";
  return out;
}

}  // namespace

fs::path ResolveHome(const std::string& home_option) {
  if (!home_option.empty()) return fs::absolute(home_option);
  if (const char* env = std::getenv("VARDOLIN_HOME"); env && *env) return fs::absolute(env);
  if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg)
    return fs::path(xdg) / "vardolin";
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
  const fs::path stamp_path = home / kShippedStamp;
  // A home made before the stamp was kept can't tell the user's changes from older shipped
  // files: those are refreshed too, and what stood there is kept beside as ".old".
  const bool stamped = fs::exists(stamp_path, ec);
  const std::map<std::string, std::string> stamp = ReadStamp(stamp_path);
  std::map<std::string, std::string> next = stamp;
  fs::path resources = ResourcesFolder();
  for (auto it = fs::recursive_directory_iterator(resources, ec);
       !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
    fs::path rel = fs::relative(it->path(), resources, ec);
    fs::path target = home / rel;
    if (it->is_directory()) {
      fs::create_directories(target, ec);
      continue;
    }
    const std::optional<std::string> shipped = ReadBytes(it->path());
    if (!shipped) continue;
    const std::string key = rel.generic_string();
    const std::string shipped_hash = ContentHash(*shipped);
    if (fs::exists(target)) {
      const std::optional<std::string> present = ReadBytes(target);
      if (!present) continue;
      const std::string present_hash = ContentHash(*present);
      if (present_hash != shipped_hash) {
        const auto was = stamp.find(key);
        const bool ours = stamped ? was != stamp.end() && was->second == present_hash : true;
        if (!ours) continue;
        std::error_code copy_ec;
        if (!stamped)
          fs::copy_file(target, target.string() + ".old", fs::copy_options::overwrite_existing,
                        copy_ec);
        if (!AtomicWriteFile(target, *shipped, false)) continue;
      }
    } else if (!AtomicWriteFile(target, *shipped, false)) {
      continue;
    }
    next[key] = shipped_hash;
  }
  if (!stamped || next != stamp) AtomicWriteFile(stamp_path, StampText(next), false);
  return true;
}

}  // namespace vardolin
