#include "cd/cd_copy_check.h"

#include <archive.h>
#include <archive_entry.h>

#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <vector>

#include "cd/cd_image_reader.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBlock = 1 << 16;

// Every file below `folder`, by its relative name with '/', still to be found in the copy.
std::map<std::string, fs::path> FilesBelow(const fs::path& folder) {
  std::map<std::string, fs::path> files;
  std::error_code ec;
  for (auto it = fs::recursive_directory_iterator(folder, ec); !ec && it != fs::end(it);
       it.increment(ec)) {
    if (it->is_regular_file(ec))
      files[fs::relative(it->path(), folder, ec).generic_string()] = it->path();
  }
  return files;
}

// Reads `stream` to its end against the file; true when both hold the same bytes.
template <class ReadBlock>
bool SameBytes(const fs::path& original, ReadBlock read_block) {
  std::ifstream in(original, std::ios::binary);
  if (!in) return false;
  std::vector<char> copy(kBlock), mine(kBlock);
  for (;;) {
    const long got = read_block(copy.data(), copy.size());
    if (got < 0) return false;
    in.read(mine.data(), got);
    if (in.gcount() != got || std::memcmp(copy.data(), mine.data(), got) != 0) return false;
    if (got == 0) return in.peek() == std::char_traits<char>::eof();
  }
}

CopyCheck Missing(const std::map<std::string, fs::path>& left) {
  if (left.empty()) return {true, {}};
  return {false, "missing " + left.begin()->first};
}

}  // namespace

CopyCheck CheckFolderCopy(const fs::path& copy, const fs::path& original) {
  std::map<std::string, fs::path> left = FilesBelow(original);
  for (auto it = left.begin(); it != left.end();) {
    std::ifstream in(copy / it->first, std::ios::binary);
    if (!in) return {false, "missing " + it->first};
    const bool same = SameBytes(it->second, [&in](char* data, std::size_t size) -> long {
      in.read(data, static_cast<std::streamsize>(size));
      return in.bad() ? -1 : static_cast<long>(in.gcount());
    });
    if (!same) return {false, "different " + it->first};
    it = left.erase(it);
  }
  return Missing(left);
}

CopyCheck CheckFolderInImage(const fs::path& image, const std::string& folder_in_image,
                             const fs::path& original) {
  std::map<std::string, fs::path> left = FilesBelow(original);
  std::string error;
  const ImageArchive a = OpenImageArchive(image, error);
  if (!a) return {false, "unreadable image " + image.string() + ": " + error};
  const std::string prefix = ImageEntryName(folder_in_image) + "/";
  archive_entry* entry = nullptr;
  int status = ARCHIVE_OK;
  while ((status = archive_read_next_header(a.get(), &entry)) == ARCHIVE_OK) {
    const std::string name = ImageEntryName(archive_entry_pathname(entry));
    if (name.rfind(prefix, 0) != 0 || archive_entry_filetype(entry) != AE_IFREG) continue;
    const auto mine = left.find(name.substr(prefix.size()));
    if (mine == left.end()) continue;
    const bool same = SameBytes(mine->second, [&a](char* data, std::size_t size) -> long {
      return static_cast<long>(archive_read_data(a.get(), data, size));
    });
    if (!same) return {false, "different " + mine->first + " in " + image.string()};
    left.erase(mine);
  }
  if (status != ARCHIVE_EOF)
    return {false, "damaged image " + image.string() + ": " + archive_error_string(a.get())};
  return Missing(left);
}

}  // namespace vardolin
