#pragma once
// Joining a name that came from a package, an archive or a file onto the folder it is meant for.
// Such names are not trusted: absolute names, drive letters, ".." and links that lead out of the
// target are refused, so nothing is ever written outside the target.

#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

struct SafeJoinResult {
  bool ok = false;
  std::filesystem::path path;  // inside the target when ok
  std::string error;           // why the name was refused, for the user
  explicit operator bool() const { return ok; }
};

// `name` may use '/' or '\' as separators; empty and "." parts are dropped. Parts that already
// stand inside the target in another case take their on-disk spelling (names ignore case).
// Refused: an empty name, an absolute name, any ':' (drive letters, streams), a ".." part, a
// NUL, a part longer than the target's file system allows or a whole path longer than the system
// takes, and a name whose existing prefix inside the target is a link that leads out of it.
SafeJoinResult SafeJoin(const std::filesystem::path& target_folder, std::string_view name);

}  // namespace vardolin
