#include "cd/cd_image_reader.h"

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <vector>

#include "archive/level_store.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"

namespace vardolin {
namespace fs = std::filesystem;

void ImageArchiveFree::operator()(archive* a) const {
  archive_read_free(a);
}

ImageArchive OpenImageArchive(const fs::path& image, std::string& error) {
  ImageArchive a(archive_read_new());
  archive_read_support_format_iso9660(a.get());
  if (archive_read_open_filename(a.get(), image.c_str(), 1 << 20) != ARCHIVE_OK) {
    error = archive_error_string(a.get());
    return nullptr;
  }
  return a;
}

std::string ImageEntryName(std::string name) {
  while (name.rfind("./", 0) == 0) name.erase(0, 2);
  while (!name.empty() && name.front() == '/') name.erase(0, 1);
  while (!name.empty() && name.back() == '/') name.pop_back();
  return name;
}

namespace {

std::string Damaged(archive* a) {
  const char* why = archive_error_string(a);
  return why ? why : "damaged entry";
}

bool SameNoCase(char x, char y) {
  return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
}

enum class Written { Ok, ReadFailed, WriteFailed };

// The reader's own blocks go straight to the file: no copy through a buffer of ours.
Written WriteEntry(archive* a, const fs::path& path) {
  std::error_code ec;
  fs::create_directories(path.parent_path(), ec);
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) return Written::WriteFailed;
  Written result = Written::Ok;
  const void* block = nullptr;
  std::size_t size = 0;
  la_int64_t offset = 0;
  for (;;) {
    const int status = archive_read_data_block(a, &block, &size, &offset);
    if (status == ARCHIVE_EOF) break;
    if (status != ARCHIVE_OK) {
      result = Written::ReadFailed;
      break;
    }
    const char* data = static_cast<const char*>(block);
    for (std::size_t done = 0; done < size && result == Written::Ok;) {
      const ssize_t put = ::pwrite(fd, data + done, size - done, offset + done);
      if (put <= 0) result = Written::WriteFailed;
      done += static_cast<std::size_t>(put);
    }
    if (result != Written::Ok) break;
  }
  if (::close(fd) != 0 && result == Written::Ok) result = Written::WriteFailed;
  return result;
}

}  // namespace

ImageLevel FindLevelInImage(const fs::path& image, std::int32_t code) {
  ImageLevel found;
  ImageArchive a = OpenImageArchive(image, found.error);
  if (!a) return found;
  archive_entry* entry = nullptr;
  int status = ARCHIVE_OK;
  while ((status = archive_read_next_header(a.get(), &entry)) == ARCHIVE_OK) {
    const std::string name = ImageEntryName(archive_entry_pathname(entry));
    const std::size_t slash = name.find('/');
    if (slash == std::string::npos || slash == 0) continue;
    const std::size_t end = name.find('/', slash + 1);
    const std::string level =
        name.substr(slash + 1, end == std::string::npos ? end : end - slash - 1);
    std::int64_t number = -1;
    if (IsLevelFolderName(level) && LevelNumberOf(level, number) && number == code) {
      found.readable = true;
      found.folder = name.substr(0, end);
      return found;
    }
  }
  found.readable = status == ARCHIVE_EOF;
  if (!found.readable) found.error = Damaged(a.get());
  return found;
}

bool ListLevelsInImage(const fs::path& image, const std::string& files, const std::string& pattern,
                       std::vector<std::int32_t>& codes) {
  std::string error;
  ImageArchive a = OpenImageArchive(image, error);
  if (!a) return false;
  archive_entry* entry = nullptr;
  int status = ARCHIVE_OK;
  while ((status = archive_read_next_header(a.get(), &entry)) == ARCHIVE_OK) {
    // root/LEVEL_nnnn/files/name
    const std::string name = ImageEntryName(archive_entry_pathname(entry));
    std::vector<std::string> parts;
    for (std::size_t start = 0, end; start <= name.size(); start = end + 1) {
      end = std::min(name.find('/', start), name.size());
      parts.push_back(name.substr(start, end - start));
    }
    std::int64_t number = -1;
    if (parts.size() != 4 || archive_entry_filetype(entry) != AE_IFREG ||
        !IsLevelFolderName(parts[1]) || !LevelNumberOf(parts[1], number) ||
        !EqualsNoCase(parts[2], files) || !WildcardMatch(parts[3], pattern))
      continue;
    if (std::find(codes.begin(), codes.end(), number) == codes.end())
      codes.push_back(static_cast<std::int32_t>(number));
  }
  return status == ARCHIVE_EOF;
}

bool ExtractImageFolder(const fs::path& image, const std::string& folder_in_image,
                        const fs::path& target, std::string& error,
                        const std::function<bool(const std::string& relative)>& take) {
  ImageArchive a = OpenImageArchive(image, error);
  if (!a) return false;
  // The image's root is the folder "".
  std::string prefix = ImageEntryName(folder_in_image);
  if (!prefix.empty()) prefix += "/";
  archive_entry* entry = nullptr;
  int status = ARCHIVE_OK;
  while ((status = archive_read_next_header(a.get(), &entry)) == ARCHIVE_OK) {
    const std::string name = ImageEntryName(archive_entry_pathname(entry));
    // ISO 9660 names keep their case on Joliet and Rock Ridge discs, but a plain disc's names
    // are upper case: the folder is looked for without regard to case, as on the disc.
    if (name.size() <= prefix.size() ||
        !std::equal(prefix.begin(), prefix.end(), name.begin(), SameNoCase))
      continue;
    const std::string relative = name.substr(prefix.size());
    if (take && !take(relative)) continue;
    const SafeJoinResult joined = SafeJoin(target, relative);
    if (!joined) {
      error = joined.error;
      return false;
    }
    const auto type = archive_entry_filetype(entry);
    if (type == AE_IFDIR) {
      std::error_code ec;
      fs::create_directories(joined.path, ec);
    } else if (type == AE_IFREG) {
      const Written written = WriteEntry(a.get(), joined.path);
      if (written == Written::Ok) continue;
      error = written == Written::ReadFailed ? Damaged(a.get()) : joined.path.string();
      return false;
    }
  }
  if (status != ARCHIVE_EOF) {
    error = Damaged(a.get());
    return false;
  }
  return true;
}

bool ReadImageRoot(const fs::path& image, const std::string& file_pattern,
                   std::vector<std::string>& folders, std::string& file) {
  std::string error;
  ImageArchive a = OpenImageArchive(image, error);
  if (!a) return false;
  bool file_read = file_pattern.empty();
  archive_entry* entry = nullptr;
  int status = ARCHIVE_OK;
  while ((status = archive_read_next_header(a.get(), &entry)) == ARCHIVE_OK) {
    const std::string name = ImageEntryName(archive_entry_pathname(entry));
    const std::size_t slash = name.find('/');
    const auto type = archive_entry_filetype(entry);
    if (type == AE_IFDIR && slash == std::string::npos && !name.empty()) {
      if (std::find(folders.begin(), folders.end(), name) == folders.end()) folders.push_back(name);
    } else if (slash != std::string::npos) {
      // A folder's own entry may be left out of an image: its files still name it.
      const std::string folder = name.substr(0, slash);
      if (std::find(folders.begin(), folders.end(), folder) == folders.end())
        folders.push_back(folder);
    } else if (type == AE_IFREG && !file_read && WildcardMatch(name, file_pattern)) {
      const la_int64_t size = archive_entry_size(entry);
      file.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
      const la_ssize_t got = archive_read_data(a.get(), file.data(), file.size());
      if (got < 0 || static_cast<std::size_t>(got) != file.size()) return false;
      file_read = true;
    }
  }
  return status == ARCHIVE_EOF && file_read;
}

}  // namespace vardolin
