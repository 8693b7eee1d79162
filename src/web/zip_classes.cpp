#include "web/zip_classes.h"

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <unordered_set>

#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "web/archive_unpack.h"
#include "web/utf8_locale.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

struct Item {
  std::string name;  // inside the zip, '/' separated
  fs::path path;
  bool folder = false;
};

bool HasWildcard(const std::string& name) {
  return name.find_first_of("*?") != std::string::npos;
}

std::string Joined(const std::string& prefix, const std::string& name) {
  return prefix.empty() ? name : prefix + "/" + name;
}

// The files (and, with `recurse`, the folders below) of `dir` whose names match, in name order.
// Linked folders are not entered, so a loop of links can't make the walk endless.
void Gather(const fs::path& dir, const std::string& prefix, const std::string& pattern,
            bool recurse, std::vector<Item>& out) {
  std::vector<std::pair<std::string, bool>> found;
  std::error_code ec;
  for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code sec;
    bool link = it->is_symlink(sec);
    bool folder = it->is_directory(sec);
    if (folder && link) continue;
    if (!folder && !it->is_regular_file(sec)) continue;
    found.emplace_back(it->path().filename().string(), folder);
  }
  std::sort(found.begin(), found.end());
  for (const auto& [name, folder] : found)
    if (!folder && WildcardMatch(name, pattern)) out.push_back({Joined(prefix, name), dir / name});
  if (!recurse) return;
  for (const auto& [name, folder] : found)
    if (folder) {
      out.push_back({Joined(prefix, name) + "/", dir / name, true});
      Gather(dir / name, Joined(prefix, name), pattern, true, out);
    }
}

// Deflating pays only when the data gains something: a quick level-1 trial on a slice at the
// start and one in the middle tells packed textures and sound from text and geometry, so that
// those are stored at once instead of being squeezed for nothing (as unzip tools would store
// them anyway, after trying).
bool WorthDeflating(int fd, std::int64_t size) {
  constexpr std::size_t kSlice = 64 * 1024;
  if (size < static_cast<std::int64_t>(2 * kSlice)) return true;
  z_stream z{};
  if (deflateInit2(&z, 1, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK) return true;
  std::vector<unsigned char> in(kSlice), out(deflateBound(&z, kSlice));
  bool worth = false;
  for (std::int64_t at : {std::int64_t(0), size / 2}) {
    ssize_t n = ::pread(fd, in.data(), kSlice, at);
    if (n <= 0) {
      worth = true;
      break;
    }
    deflateReset(&z);
    z.next_in = in.data();
    z.avail_in = static_cast<uInt>(n);
    z.next_out = out.data();
    z.avail_out = static_cast<uInt>(out.size());
    deflate(&z, Z_FINISH);
    if (z.total_out < static_cast<uLong>(n) * 98 / 100) {
      worth = true;
      break;
    }
  }
  deflateEnd(&z);
  return worth;
}

struct WriterFree {
  void operator()(archive* a) const { archive_write_free(a); }
};
struct EntryFree {
  void operator()(archive_entry* e) const { archive_entry_free(e); }
};

bool WriteZip(const fs::path& target, const std::vector<Item>& items,
              const std::function<void()>& on_file, std::string& error) {
  ScopedUtf8Locale locale;
  std::unique_ptr<archive, WriterFree> w(archive_write_new());
  archive_write_set_format_zip(w.get());
  archive_write_set_format_option(w.get(), "zip", "hdrcharset", "UTF-8");
  archive_write_set_bytes_per_block(w.get(), 1 << 20);
  archive_write_set_bytes_in_last_block(w.get(), 1);
  if (archive_write_open_filename(w.get(), target.c_str()) != ARCHIVE_OK) {
    error = archive_error_string(w.get());
    return false;
  }
  std::vector<char> buffer(1 << 20);
  for (const Item& item : items) {
    struct stat st {};
    int fd = item.folder ? -1 : ::open(item.path.c_str(), O_RDONLY | O_CLOEXEC);
    if ((!item.folder && fd < 0) ||
        (item.folder ? ::stat(item.path.c_str(), &st) : ::fstat(fd, &st)) != 0) {
      error = "\"" + item.name + "\" can't be read: " + std::strerror(errno);
      if (fd >= 0) ::close(fd);
      return false;
    }
    std::unique_ptr<archive_entry, EntryFree> e(archive_entry_new());
    archive_entry_set_pathname_utf8(e.get(), item.name.c_str());
    archive_entry_set_filetype(e.get(), item.folder ? AE_IFDIR : AE_IFREG);
    archive_entry_set_perm(e.get(), item.folder ? 0755 : (st.st_mode & 0777));
    archive_entry_set_mtime(e.get(), st.st_mtim.tv_sec, st.st_mtim.tv_nsec);
    if (!item.folder) {
      archive_entry_set_size(e.get(), st.st_size);
      if (WorthDeflating(fd, st.st_size))
        archive_write_zip_set_compression_deflate(w.get());
      else
        archive_write_zip_set_compression_store(w.get());
    }
    bool ok = archive_write_header(w.get(), e.get()) == ARCHIVE_OK;
    std::int64_t left = item.folder ? 0 : st.st_size;
    while (ok && left > 0) {
      ssize_t n = ::read(fd, buffer.data(), std::min<std::int64_t>(left, buffer.size()));
      if (n < 0 && errno == EINTR) continue;
      ok = n > 0 && archive_write_data(w.get(), buffer.data(), n) == n;
      left -= n;
    }
    if (fd >= 0) ::close(fd);
    if (!ok) {
      const char* why = archive_error_string(w.get());
      error = "\"" + item.name + "\" can't be zipped" + (why ? std::string(": ") + why : "");
      return false;
    }
    if (!item.folder && on_file) on_file();
  }
  if (archive_write_close(w.get()) != ARCHIVE_OK) {
    const char* why = archive_error_string(w.get());
    error = why ? why : "the zip can't be finished";
    return false;
  }
  return true;
}

}  // namespace

ZipClassError ZipClass::AddFile(const std::string& sFileName) {
  for (const auto& n : names_)
    if (EqualsNoCase(n, sFileName))
      return {kFileAlreadyInZipList, "CGZip::AddFile", "File is already in Zip List"};
  names_.push_back(sFileName);
  return {};
}

ZipClassError ZipClass::RemoveFile(const std::string& sFileName) {
  for (auto it = names_.begin(); it != names_.end(); ++it)
    if (EqualsNoCase(*it, sFileName)) {
      names_.erase(it);
      return {};
    }
  return {kFileNotInZipList, "CGZip::RemoveFile", "File is not in Zip List"};
}

long ZipClass::MakeZipFile() {
  last_message_.clear();
  if (names_.size() > kMaxZipNames) {
    last_message_ = "CGZipFiles::MakeZipFile: more than 99 names";
    return kZipClassFailed;
  }
  std::vector<Item> items;
  for (const std::string& name : names_) {
    if (HasWildcard(name)) {
      fs::path dir = JoinFragment(BaseFolder, ExtractFolder(name));
      std::string prefix = ExtractFolder(name);
      std::replace(prefix.begin(), prefix.end(), '\\', '/');
      Gather(dir, prefix, ExtractFileName(name), RecurseFolders, items);
      continue;
    }
    fs::path path = JoinFragment(BaseFolder, name);
    std::string inside = name;
    std::replace(inside.begin(), inside.end(), '\\', '/');
    std::error_code ec;
    if (fs::is_directory(path, ec)) {
      items.push_back({inside + "/", path, true});
      if (RecurseFolders) Gather(path, inside, "*", true, items);
    } else if (fs::is_regular_file(path, ec)) {
      items.push_back({inside, path});
    }
  }
  // Names that two patterns both matched go in once.
  std::unordered_set<std::string> seen;
  items.erase(std::remove_if(items.begin(), items.end(),
                             [&](const Item& i) { return !seen.insert(ToLower(i.name)).second; }),
              items.end());
  if (items.empty()) {
    last_message_ = "zip: nothing to do";
    return 12;
  }
  // Written beside and renamed into place, so that a failed run leaves no zip that looks whole.
  fs::path target = ZipFileName;
  fs::path temp = target;
  temp += ".part";
  std::string error;
  // A part left by a broken-off run, or a link put there, goes first: never written through.
  std::error_code gone;
  fs::remove(temp, gone);
  if (!WriteZip(temp, items, OnFile, error)) {
    std::error_code ec;
    fs::remove(temp, ec);
    last_message_ = "CGZipFiles::MakeZipFile: " + error;
    return kZipClassFailed;
  }
  std::error_code ec;
  fs::rename(temp, target, ec);
  if (ec) {
    fs::remove(temp, ec);
    last_message_ = "CGZipFiles::MakeZipFile: " + ec.message();
    return kZipClassFailed;
  }
  return 0;
}

long UnzipClass::UnZip(const std::string& sZipFileName, const std::string& sExtractDir) {
  if (!sZipFileName.empty()) ZipFileName = sZipFileName;
  if (!sExtractDir.empty()) ExtractDir = sExtractDir;
  last_message_.clear();
  if (ExtractList == 1) {
    std::string error;
    bool ok = ListArchive(
        ZipFileName, ArchiveKinds::Zip,
        [&](const ListedEntry& e) {
          if (OnEntry) OnEntry(e.name, e.folder);
        },
        error);
    last_message_ = error;
    return ok ? 0 : 9;
  }
  UnpackOptions options;
  options.honor_directories = HonorDirectories;
  options.space_to_underscore = SpaceToUnderScore;
  options.progress = [&](std::int64_t done, double) {
    if (OnFileDone) OnFileDone(done);
  };
  UnpackResult r = UnpackArchive(program_, ZipFileName, ExtractDir, options);
  last_message_ = r.message;
  for (const auto* lines : {&r.damaged, &r.refused})
    for (const std::string& line : *lines)
      last_message_ += (last_message_.empty() ? "" : "\n") + line;
  return r.ok ? 0 : static_cast<long>(r.failure) + 1;
}

}  // namespace vardolin
