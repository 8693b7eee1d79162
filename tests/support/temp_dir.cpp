#include "temp_dir.h"

#include <stdlib.h>

#include <fstream>
#include <stdexcept>

namespace vardolin::testing {

TempDir::TempDir() {
  std::string tmpl = (std::filesystem::temp_directory_path() / "vardolin-test-XXXXXX").string();
  if (!mkdtemp(tmpl.data())) throw std::runtime_error("mkdtemp failed");
  path_ = tmpl;
}

TempDir::~TempDir() {
  std::error_code ec;
  // Tests may leave read-only files behind; make everything writable before removing.
  for (auto it = std::filesystem::recursive_directory_iterator(path_, ec);
       !ec && it != std::filesystem::recursive_directory_iterator(); it.increment(ec))
    std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ec);
  std::filesystem::remove_all(path_, ec);
}

std::filesystem::path TempDir::Write(std::string_view rel, std::string_view bytes) const {
  WriteBytes(path_ / rel, std::string(bytes));
  return path_ / rel;
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

}  // namespace vardolin::testing
