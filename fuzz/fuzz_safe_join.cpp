// SafeJoin must never give a path outside its target, whatever the name, with links in the
// target pointing inside, outside and nowhere.
#include <unistd.h>

#include "foundation/services/safe_join.h"

namespace fs = std::filesystem;

namespace {

fs::path Target() {
  static fs::path target = [] {
    std::string tmpl = (fs::temp_directory_path() / "fuzz-safe-join-XXXXXX").string();
    if (!mkdtemp(tmpl.data())) std::abort();
    fs::path root = tmpl;
    fs::create_directories(root / "target/Data/sub");
    fs::create_directories(root / "outside");
    fs::create_directory_symlink(root / "outside", root / "target/out");
    fs::create_directory_symlink("../..", root / "target/Data/up");
    fs::create_directory_symlink("sub", root / "target/Data/in");
    fs::create_symlink("../../outside/x", root / "target/Data/dangling");
    return fs::canonical(root / "target");
  }();
  return target;
}

// Where the path leads once every existing link is followed.
bool LeadsInside(const fs::path& base, const fs::path& p) {
  std::error_code ec;
  fs::path real = fs::weakly_canonical(p, ec);
  if (ec) std::abort();  // a path that SafeJoin gives must be one the system can resolve
  auto b = base.begin();
  auto r = real.begin();
  for (; b != base.end(); ++b, ++r)
    if (r == real.end() || *r != *b) return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fs::path& target = Target();
  std::string name(reinterpret_cast<const char*>(data), size);
  vardolin::SafeJoinResult r = vardolin::SafeJoin(target, name);
  if (!r && r.error.empty()) std::abort();
  if (r && (!LeadsInside(target, r.path.lexically_normal()) || !LeadsInside(target, r.path)))
    std::abort();
  return 0;
}
