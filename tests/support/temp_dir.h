#pragma once
// A real temporary folder for one test, removed with everything in it afterwards.

#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin::testing {

class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view rel) const { return path_ / rel; }
  // Writes a file (making its folders) and gives its path.
  std::filesystem::path Write(std::string_view rel, std::string_view bytes) const;

 private:
  std::filesystem::path path_;
};

std::string ReadFile(const std::filesystem::path& path);
// Writes a file, making its folders.
void WriteBytes(const std::filesystem::path& path, const std::string& bytes);

}  // namespace vardolin::testing
