// Any name from a package either is refused or lands inside the target folder.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "foundation/services/safe_join.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::filesystem::path target = [] {
    auto t = std::filesystem::temp_directory_path() / "vardolin-fuzz-safe-join";
    std::filesystem::create_directories(t / "sub");
    return std::filesystem::canonical(t);
  }();
  std::string_view name(reinterpret_cast<const char*>(data), size);
  auto result = vardolin::SafeJoin(target, name);
  if (!result.ok) return 0;
  auto normal = result.path.lexically_normal();
  auto rel = normal.lexically_relative(target);
  if (rel.empty() || rel.begin()->string() == "..") std::abort();
  return 0;
}
