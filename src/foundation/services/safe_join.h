#pragma once
// Joining a name that came from a package, an archive or a file onto the folder it is meant for.
// Such names are not trusted: absolute names, drive letters, ".." and links that lead out of the
// target are refused, so nothing is ever written outside the target.

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vardolin {

struct SafeJoinResult {
  bool ok = false;
  std::filesystem::path path;  // inside the target when ok
  bool stood = false;          // whether the whole path stood on disk when it was joined
  std::string error;           // why the name was refused, for the user
  explicit operator bool() const { return ok; }
};

// `name` may use '/' or '\' as separators; empty and "." parts are dropped. Parts that already
// stand inside the target in another case take their on-disk spelling (names ignore case).
// Refused: an empty name, an absolute name, any ':' (drive letters, streams), a ".." part, a
// NUL, a part longer than the target's file system allows or a whole path longer than the system
// takes, and a name whose existing prefix inside the target is a link that leads out of it.
SafeJoinResult SafeJoin(const std::filesystem::path& target_folder, std::string_view name);

// SafeJoin for the many names of one package into one target. The target's real place is found
// once, and a folder read for a name in another case is not read again: the names the caller
// makes in it are told through Made instead, so a package of many files in one folder costs as
// many look-ups as files, not files times the folder's growing size.
class SafeJoiner {
 public:
  explicit SafeJoiner(const std::filesystem::path& target_folder);
  SafeJoinResult Join(std::string_view name);
  // `path`, as Join gave it, now stands; `new_folder`: it is a folder the caller just made, empty.
  void Made(const std::filesystem::path& path, bool new_folder);

 private:
  struct Listing {
    std::unordered_map<std::string, bool> names;            // as on disk: whether a link
    std::unordered_map<std::string, std::string> by_lower;  // folded: the name taken
  };
  const Listing& List(const std::filesystem::path& folder);

  std::filesystem::path given_, base_;
  std::size_t longest_ = 0;
  std::unordered_map<std::string, Listing> listings_;
};

}  // namespace vardolin
