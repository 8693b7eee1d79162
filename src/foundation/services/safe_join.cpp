#include "foundation/services/safe_join.h"

#include <unistd.h>

#include <climits>
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

// The longest single name the file system under `folder` takes. A longer part could never be
// written, and the file system functions fail on it ("File name too long").
std::size_t LongestName(fs::path folder) {
  std::error_code ec;
  while (!fs::exists(folder, ec) && folder.has_relative_path()) folder = folder.parent_path();
  const long longest = ::pathconf(folder.c_str(), _PC_NAME_MAX);
  return longest > 0 ? static_cast<std::size_t>(longest) : NAME_MAX;
}

}  // namespace

SafeJoiner::SafeJoiner(const fs::path& target_folder) : given_(target_folder) {
  if (target_folder.empty()) return;
  std::error_code ec;
  fs::path absolute = fs::absolute(target_folder, ec);
  if (ec) return;
  given_ = std::move(absolute);
  base_ = RealPath(given_);
  if (!base_.empty()) longest_ = LongestName(base_);
}

const SafeJoiner::Listing& SafeJoiner::List(const fs::path& folder) {
  Listing& l = listings_[folder.native()];
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    std::string name = it->path().filename().string();
    l.names.emplace(name, it->is_symlink(ec));
    // Of names that differ only in case the first in byte order is taken.
    auto [at, added] = l.by_lower.emplace(ToLower(name), name);
    if (!added && name < at->second) at->second = name;
  }
  return l;
}

void SafeJoiner::Made(const fs::path& path, bool new_folder) {
  auto l = listings_.find(path.parent_path().native());
  if (l != listings_.end()) {
    const std::string name = path.filename().string();
    l->second.names.emplace(name, false);
    l->second.by_lower.emplace(ToLower(name), name);
  }
  if (new_folder) listings_.emplace(path.native(), Listing{});
}

SafeJoinResult SafeJoiner::Join(std::string_view name) {
  if (given_.empty()) return Refuse(name, "no target folder");
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
  if (base_.empty()) return Refuse(name, "target folder unusable");
  for (const std::string& p : parts)
    if (p.size() > longest_)
      return Refuse(name, "a part is too long: the file system takes " + std::to_string(longest_) +
                              " bytes at most");

  fs::path out = given_;
  bool on_disk = true;  // whether `out` still stands, so that its parts may be looked up
  std::error_code ec;
  for (const std::string& p : parts) {
    fs::path next = out / p;
    bool link = false;
    if (on_disk) {
      // A folder read once answers for itself; another is asked only for names it lacks.
      auto listed = listings_.find(out.native());
      const Listing* l = listed == listings_.end() ? nullptr : &listed->second;
      if (!l) {
        auto st = fs::symlink_status(next, ec);
        on_disk = fs::exists(st);
        link = fs::is_symlink(st);
        if (!on_disk) l = &List(out);
      }
      if (l) {
        auto exact = l->names.find(p);
        if (exact == l->names.end()) {
          auto match = l->by_lower.find(ToLower(p));
          if (match != l->by_lower.end()) exact = l->names.find(match->second);
        }
        on_disk = exact != l->names.end();
        if (on_disk) {
          next = out / exact->first;
          link = exact->second;
        }
      }
    }
    out = std::move(next);
    if (link) {
      fs::path real = RealPath(out);
      if (real.empty() || !Inside(base_, real))
        return Refuse(name, "a link leads out of the folder");
    }
  }
  if (out.native().size() >= PATH_MAX) return Refuse(name, "the whole path is too long");
  SafeJoinResult r;
  r.ok = true;
  r.stood = on_disk;
  r.path = std::move(out);
  return r;
}

SafeJoinResult SafeJoin(const fs::path& target_folder, std::string_view name) {
  return SafeJoiner(target_folder).Join(name);
}

}  // namespace vardolin
