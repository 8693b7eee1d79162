#include "foundation/services/safe_join.h"

#include <unistd.h>

#include <climits>
#include <optional>
#include <vector>

#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

SafeJoinResult Refuse(std::string_view name, std::string_view why) {
  SafeJoinResult r;
  r.error = "Refused name \"" + std::string(name) + "\": " + std::string(why);
  return r;
}

bool Inside(const fs::path& base, const fs::path& p) {
  auto b = base.begin(), e = base.end();
  auto q = p.begin();
  for (; b != e; ++b, ++q) {
    if (b->empty() && std::next(b) == e) break;  // trailing separator of the base
    if (q == p.end() || *q != *b) return false;
  }
  return true;
}

// Where a path really leads, following every link, also links whose target doesn't exist (a
// dangling link is where a write would land). Empty when the links loop.
fs::path RealPath(const fs::path& path, int& budget) {
  fs::path out = path.root_path();
  for (const fs::path& part : path.relative_path()) {
    if (part.empty() || part == ".") continue;
    if (part == "..") {
      out = out.parent_path();
      continue;
    }
    fs::path next = out / part;
    std::error_code ec;
    if (fs::is_symlink(fs::symlink_status(next, ec))) {
      if (--budget < 0) return {};
      fs::path link = fs::read_symlink(next, ec);
      if (ec) return {};
      out = RealPath(link.is_absolute() ? link : out / link, budget);
      if (out.empty()) return {};
    } else {
      out = std::move(next);
    }
  }
  return out;
}

fs::path RealPath(const fs::path& path) {
  int budget = 40;
  return RealPath(path, budget);
}

std::optional<std::string> FindNoCase(const fs::path& dir, const std::string& name) {
  std::error_code ec;
  std::optional<std::string> found;
  for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
    std::string candidate = it->path().filename().string();
    if (EqualsNoCase(candidate, name) && (!found || candidate < *found)) found = candidate;
  }
  return found;
}

// The longest single name the file system under `folder` takes. A longer part could never be
// written, and the file system functions fail on it ("File name too long").
std::size_t LongestName(fs::path folder) {
  std::error_code ec;
  while (!fs::exists(folder, ec) && folder.has_relative_path()) folder = folder.parent_path();
  const long longest = ::pathconf(folder.c_str(), _PC_NAME_MAX);
  return longest > 0 ? static_cast<std::size_t>(longest) : NAME_MAX;
}

}  // namespace

SafeJoinResult SafeJoin(const fs::path& target_folder, std::string_view name) {
  if (target_folder.empty()) return Refuse(name, "no target folder");
  if (name.empty()) return Refuse(name, "empty name");
  if (name.find('\0') != std::string_view::npos) return Refuse(name, "NUL in the name");
  if (name.front() == '/' || name.front() == '\\') return Refuse(name, "absolute name");
  if (name.find(':') != std::string_view::npos) return Refuse(name, "drive letter or ':'");

  std::vector<std::string> parts;
  std::string part;
  for (std::size_t i = 0; i <= name.size(); ++i) {
    if (i == name.size() || name[i] == '/' || name[i] == '\\') {
      if (part == "..") return Refuse(name, "'..' leads out of the folder");
      if (!part.empty() && part != ".") parts.push_back(part);
      part.clear();
    } else {
      part += name[i];
    }
  }
  if (parts.empty()) return Refuse(name, "empty name");

  // Links are judged against the target's real place; the answer keeps the target's spelling.
  std::error_code ec;
  fs::path given = fs::absolute(target_folder, ec);
  fs::path base = ec ? fs::path() : RealPath(given);
  if (ec || base.empty()) return Refuse(name, "target folder unusable");
  const std::size_t longest = LongestName(base);
  for (const std::string& p : parts)
    if (p.size() > longest)
      return Refuse(name, "a part is too long: the file system takes " + std::to_string(longest) +
                              " bytes at most");

  fs::path out = given;
  bool on_disk = true;  // whether `out` still stands, so that its parts may be looked up
  for (const std::string& p : parts) {
    fs::path next = out / p;
    if (on_disk && !fs::exists(fs::symlink_status(next, ec))) {
      auto match = FindNoCase(out, p);
      if (match) next = out / *match;
    }
    out = std::move(next);
    auto st = fs::symlink_status(out, ec);
    if (on_disk && fs::exists(st)) {
      if (fs::is_symlink(st)) {
        fs::path real = RealPath(out);
        if (real.empty() || !Inside(base, real))
          return Refuse(name, "a link leads out of the folder");
      }
    } else {
      on_disk = false;
    }
  }
  if (out.native().size() >= PATH_MAX) return Refuse(name, "the whole path is too long");
  SafeJoinResult r;
  r.ok = true;
  r.path = std::move(out);
  return r;
}

}  // namespace vardolin
