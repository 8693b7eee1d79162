#include "foundation/services/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool Stands(const fs::path& p) {
  std::error_code ec;
  return fs::exists(fs::symlink_status(p, ec));
}

bool IsFile(const fs::path& p) {
  std::error_code ec;
  return fs::is_regular_file(fs::status(p, ec));
}

bool IsFolder(const fs::path& p) {
  std::error_code ec;
  return fs::is_directory(fs::status(p, ec));
}

// The on-disk spelling of `name` inside `dir`, compared without regard to case. When several
// spellings stand (Linux allows that), the smallest by bytes wins so the answer is stable.
std::optional<std::string> FindNoCase(const fs::path& dir, const std::string& name) {
  std::error_code ec;
  std::optional<std::string> found;
  for (fs::directory_iterator it(dir.empty() ? fs::path(".") : dir, ec), end; !ec && it != end;
       it.increment(ec)) {
    std::string candidate = it->path().filename().string();
    if (EqualsNoCase(candidate, name) && (!found || candidate < *found)) found = candidate;
  }
  return found;
}

// Windows lists a folder by name without regard to case (its file system keeps the index in
// upper case), and what the program shows in listing order, the savegame slots first of all,
// rests on that; the raw order of a Linux folder is the order of its hash table.
bool ListedBefore(const fs::path& a, const fs::path& b) {
  const std::string x = a.filename().string();
  const std::string y = b.filename().string();
  const auto upper = [](char c) {
    return static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  };
  const std::size_t n = std::min(x.size(), y.size());
  for (std::size_t i = 0; i < n; ++i)
    if (upper(x[i]) != upper(y[i])) return upper(x[i]) < upper(y[i]);
  // Names that differ only in case can't both stand on Windows; bytes keep their order stable.
  return x.size() != y.size() ? x.size() < y.size() : x < y;
}

template <class It>
void InListingOrder(It first, It last) {
  std::sort(first, last, ListedBefore);
}

void AddOwnerWrite(const fs::path& p) {
  std::error_code ec;
  fs::permissions(p, fs::perms::owner_write, fs::perm_options::add | fs::perm_options::nofollow,
                  ec);
}

std::string FileDateText(const fs::path& p) {
  struct stat st;
  if (::stat(p.c_str(), &st) != 0) return {};
  std::tm local{};
  localtime_r(&st.st_mtime, &local);
  char buf[32];
  std::strftime(buf, sizeof buf, "%Y-%m-%d %H:%M:%S", &local);
  return buf;
}

double FileBytes(const fs::path& p) {
  std::error_code ec;
  auto size = fs::file_size(p, ec);
  return ec ? 0.0 : static_cast<double>(size);
}

}  // namespace

// Levels are thousands of small files, so each copy counts its system calls: one look at the
// source, and its times set through the open target rather than by name.
bool CopyNewFile(const fs::path& source, const fs::path& target) {
  const int in = ::open(source.c_str(), O_RDONLY | O_CLOEXEC);
  if (in < 0) return false;
  struct stat from {};
  if (::fstat(in, &from) != 0 || !S_ISREG(from.st_mode)) {
    const int error = S_ISREG(from.st_mode) ? errno : EINVAL;
    ::close(in);
    errno = error;
    return false;
  }
  const int out = ::open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                         from.st_mode & 07777);
  if (out < 0) {
    const int error = errno;
    ::close(in);
    errno = error;
    return false;
  }
  bool ok = true;
  bool by_hand = false;  // copy_file_range can't go between some file systems
  for (off_t left = from.st_size; ok && left > 0;) {
    const ssize_t n = ::copy_file_range(in, nullptr, out, nullptr, static_cast<size_t>(left), 0);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 && (errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP)) {
      by_hand = true;
      break;
    }
    if (n == 0) break;  // the source became shorter while it was copied
    ok = n > 0;
    left -= n;
  }
  if (by_hand) {
    char buffer[1 << 16];
    for (;;) {
      const ssize_t n = ::read(in, buffer, sizeof buffer);
      if (n < 0 && errno == EINTR) continue;
      if (n <= 0) {
        ok = n == 0;
        break;
      }
      for (ssize_t done = 0; ok && done < n;) {
        const ssize_t w = ::write(out, buffer + done, static_cast<size_t>(n - done));
        if (w < 0 && errno == EINTR) continue;
        ok = w > 0;
        done += w;
      }
      if (!ok) break;
    }
  }
  int error = ok ? 0 : errno;
  if (ok) {
    const struct timespec times[2] = {from.st_atim, from.st_mtim};
    ::futimens(out, times);
  }
  if (::close(out) != 0 && ok) {
    ok = false;
    error = errno;
  }
  ::close(in);
  if (!ok) ::unlink(target.c_str());  // made here (O_EXCL): a part must not pass for the file
  errno = error;
  return ok;
}

fs::path ResolveCase(const fs::path& path) {
  if (path.empty() || Stands(path)) return path;
  fs::path out = path.root_path();
  fs::path rel = path.relative_path();
  auto it = rel.begin();
  for (; it != rel.end(); ++it) {
    const fs::path& part = *it;
    fs::path candidate = out / part;
    if (part.empty() || part == "." || part == ".." || Stands(candidate)) {
      out = std::move(candidate);
      continue;
    }
    auto match = FindNoCase(out, part.string());
    if (!match) break;
    out /= *match;
  }
  for (; it != rel.end(); ++it) out /= *it;
  return out;
}

bool FileExists(const fs::path& path) {
  return !path.empty() && IsFile(ResolveCase(path));
}

bool FolderExists(const fs::path& path) {
  return !path.empty() && IsFolder(ResolveCase(path));
}

bool MakeEmptyFolder(const fs::path& path) {
  if (path.empty()) return false;
  std::error_code ec;
  fs::remove_all(path, ec);
  fs::create_directories(path, ec);
  return fs::is_directory(path, ec) && fs::is_empty(path, ec);
}

bool MakeFolder(const fs::path& path) {
  if (path.empty()) return false;
  fs::path real = ResolveCase(path);
  if (IsFolder(real)) return true;
  std::error_code ec;
  fs::create_directory(real, ec);
  return IsFolder(real);
}

bool DeleteFileForced(const fs::path& path) {
  if (path.empty()) return true;
  fs::path real = ResolveCase(path);
  std::error_code ec;
  auto st = fs::symlink_status(real, ec);
  if (!fs::exists(st)) return true;
  if (fs::is_directory(st)) return false;
  // The file's own mode is left alone unless it is in the way: it may be shared with another
  // name of the same file (a moved archive) that keeps it.
  if (::unlink(real.c_str()) == 0) return true;
  // A read-only folder doesn't keep a file from being deleted on the system the program was
  // made for; give the folder back its write permission and try once more.
  if (errno == EACCES || errno == EPERM) {
    if (!fs::is_symlink(st)) AddOwnerWrite(real);
    AddOwnerWrite(real.parent_path().empty() ? fs::path(".") : real.parent_path());
    if (::unlink(real.c_str()) == 0) return true;
  }
  return !Stands(real);
}

bool DeleteMatchingFiles(const fs::path& folder, std::string_view pattern) {
  for (const fs::path& file : ListFiles(folder, pattern))
    if (!DeleteFileForced(file)) return false;
  return true;
}

bool DeleteFolderTree(const fs::path& folder) {
  if (folder.empty()) return false;
  fs::path real = ResolveCase(folder);
  std::error_code ec;
  if (!fs::is_directory(fs::symlink_status(real, ec))) return false;
  if (!DeleteMatchingFiles(real, "*")) return false;
  AddOwnerWrite(real);
  return ::rmdir(real.c_str()) == 0;
}

namespace {

bool CopyResolved(const fs::path& source, const fs::path& dst, const char* fault_point) {
  const bool disk_full = fault_point && FaultPoint(fault_point);
  if (source.empty() || dst.empty()) return false;
  fs::path src = ResolveCase(source);
  if (!IsFile(src)) return false;
  std::error_code ec;
  if (Stands(dst)) {
    if (fs::equivalent(src, dst, ec)) return true;  // removing it would lose the source
    if (IsFolder(dst)) return false;
    if (!DeleteFileForced(dst)) return false;
  }
  if (disk_full) {
    // What a full disk leaves: the target begun and cut off part way.
    std::ifstream in(src, std::ios::binary);
    std::string head((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::ofstream(dst, std::ios::binary)
        .write(head.data(), static_cast<std::streamsize>(head.size() / 2));
  } else if (CopyNewFile(src, dst)) {
    return true;
  }
  // A copy broken off (a full disk) must not pass for the file.
  const int error = errno;
  fs::remove(dst, ec);
  errno = disk_full ? ENOSPC : error;
  return false;
}

}  // namespace

bool CopyFileOver(const fs::path& source, const fs::path& target, const char* fault_point) {
  return CopyResolved(source, target.empty() ? target : ResolveCase(target), fault_point);
}

bool CopyFileOverAsSpelled(const fs::path& source, const fs::path& target) {
  return CopyResolved(source, target, nullptr);
}

bool MoveFileOver(const fs::path& source, const fs::path& target, const char* fault_point) {
  const bool disk_full = fault_point && FaultPoint(fault_point);
  if (source.empty() || target.empty()) return false;
  const fs::path src = ResolveCase(source);
  if (!IsFile(src)) return false;
  const fs::path dst = ResolveCase(target);
  if (IsFolder(dst)) return false;
  if (disk_full) {
    // A rename that finds no room for the new entry leaves both files as they were.
    errno = ENOSPC;
    return false;
  }
  if (::rename(src.c_str(), dst.c_str()) == 0) return true;
  if (errno != EXDEV) return false;
  return CopyFileOver(src, dst) && DeleteFileForced(src);
}

bool LinkFileOver(const fs::path& source, const fs::path& target, const char* fault_point) {
  const bool disk_full = fault_point && FaultPoint(fault_point);
  if (source.empty() || target.empty()) return false;
  const fs::path src = ResolveCase(source);
  if (!IsFile(src)) return false;
  const fs::path dst = ResolveCase(target);
  if (disk_full) {
    errno = ENOSPC;
    return false;
  }
  std::error_code ec;
  if (Stands(dst)) {
    if (fs::equivalent(src, dst, ec)) return true;
    if (IsFolder(dst) || !DeleteFileForced(dst)) return false;
  }
  // A link to a file gives its file, as the copy would.
  if (::linkat(AT_FDCWD, src.c_str(), AT_FDCWD, dst.c_str(), AT_SYMLINK_FOLLOW) == 0) return true;
  // Another file system, or one without hard links (FAT): the bytes must be copied.
  if (errno != EXDEV && errno != EPERM && errno != EMLINK && errno != EOPNOTSUPP) return false;
  return CopyFileOver(src, dst);
}

std::string ReplaceFileQuestion(const fs::path& new_file, const fs::path& old_file) {
  std::ostringstream text;
  text << "Replace file: " << old_file.string() << "\n"
       << FormatFileSize(FileBytes(old_file)) << "\n"
       << "Date: " << FileDateText(old_file) << "\n"
       << "with file:\n"
       << new_file.string() << "\n"
       << FormatFileSize(FileBytes(new_file)) << "\n"
       << "Date: " << FileDateText(new_file) << "\n"
       << "Replace it?";
  return text.str();
}

bool AskReplaceFile(Program& program, const fs::path& new_file, const fs::path& old_file) {
  return AskUser(program, ReplaceFileQuestion(new_file, old_file), msg::kYesNo, "") != msg::kNo;
}

bool CopyMatchingFiles(Program& program, const fs::path& source_folder,
                       const fs::path& target_folder, bool overwrite, std::string_view pattern,
                       std::vector<fs::path>* failed) {
  bool all = true;
  for (const fs::path& file : ListFiles(source_folder, pattern)) {
    fs::path target = ResolveCase(target_folder / file.filename());
    if (!overwrite && IsFile(target) && !AskReplaceFile(program, file, target)) continue;
    if (CopyFileOver(file, target)) continue;
    if (!failed) return false;
    failed->push_back(file);
    all = false;
  }
  return all;
}

std::vector<fs::path> ListFiles(const fs::path& folder, std::string_view pattern) {
  std::vector<fs::path> out;
  if (folder.empty()) return out;
  const fs::path real = ResolveCase(folder);
  // readdir, matching each name in place: the watcher lists the editor folder on every tick,
  // and a path built for every entry would cost more than the listing itself.
  DIR* dir = ::opendir(real.c_str());
  if (!dir) return out;
  while (const dirent* entry = ::readdir(dir)) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == ".." || !WildcardMatch(name, pattern)) continue;
    bool file = entry->d_type == DT_REG;
    if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
      struct stat st {};
      file = ::stat((real / name).c_str(), &st) == 0 && S_ISREG(st.st_mode);
    }
    if (file) out.push_back(real / name);
  }
  ::closedir(dir);
  InListingOrder(out.begin(), out.end());
  return out;
}

std::vector<fs::path> ListSubfolders(const fs::path& folder) {
  std::vector<fs::path> out;
  std::string text = folder.string();
  while (text.size() > 1 && (text.back() == '\\' || text.back() == '/')) text.pop_back();
  if (text.empty()) return out;
  std::error_code ec;
  for (fs::directory_iterator it(ResolveCase(text), ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code type_ec;
    if (it->is_directory(type_ec)) out.push_back(it->path());
  }
  InListingOrder(out.begin(), out.end());
  return out;
}

bool FolderTreeWalker::WalkFolderTree(const fs::path& folder) {
  files_.clear();
  folders_.clear();
  if (folder.empty()) return false;
  fs::path real = ResolveCase(folder);
  if (!IsFolder(real)) return false;
  return Walk(real);
}

bool FolderTreeWalker::Walk(const fs::path& folder) {
  if (ui_) ui_->DoEvents();
  std::error_code ec;
  fs::directory_iterator it(folder, ec);
  if (ec) return false;
  std::vector<fs::path> subfolders;
  const std::size_t first_file = files_.size();
  for (fs::directory_iterator end; it != end; it.increment(ec)) {
    if (ec) return false;
    std::error_code type_ec;
    bool link = it->is_symlink(type_ec);
    if (it->is_directory(type_ec)) {
      if (!link) subfolders.push_back(it->path());
    } else if (it->is_regular_file(type_ec)) {
      files_.push_back(it->path());
    }
  }
  InListingOrder(files_.begin() + static_cast<std::ptrdiff_t>(first_file), files_.end());
  InListingOrder(subfolders.begin(), subfolders.end());
  // A sub-folder that can't be read is skipped, as any unreadable entry is.
  folders_.insert(folders_.end(), subfolders.begin(), subfolders.end());
  for (const fs::path& sub : subfolders) Walk(sub);
  return true;
}

double FolderSizeBytes(const fs::path& folder, std::string_view pattern, Ui* ui) {
  FolderTreeWalker walker(ui);
  walker.WalkFolderTree(folder);
  double total = 0;
  for (const fs::path& file : walker.Files())
    if (WildcardMatch(file.filename().string(), pattern)) total += FileBytes(file);
  return total;
}

namespace {

bool ReadOpenFile(int fd, std::string& bytes) {
  struct stat info {};
  if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) return false;
  bytes.clear();
  char buffer[16384];
  for (;;) {
    const ssize_t got = ::read(fd, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return false;
    if (got == 0) return true;
    bytes.append(buffer, static_cast<std::size_t>(got));
  }
}

}  // namespace

bool ReadFileIfThere(const fs::path& path, std::string& bytes) {
  if (path.empty()) return false;
  int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0 && errno == ENOENT) {
    const fs::path real = ResolveCase(path);
    if (real != path) fd = ::open(real.c_str(), O_RDONLY | O_CLOEXEC);
  }
  if (fd < 0) return false;
  const bool read = ReadOpenFile(fd, bytes);
  ::close(fd);
  return read;
}

std::string ReadWholeFile(const fs::path& path) {
  std::string bytes;
  return ReadFileIfThere(path, bytes) ? bytes : std::string();
}

bool WriteTextFile(const fs::path& path, std::string_view text) {
  if (path.empty()) return false;
  std::ofstream out(ResolveCase(path), std::ios::binary | std::ios::trunc);
  if (!out) return false;
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  return !out.fail();
}

bool SetFileDateTime(const fs::path& path, std::chrono::system_clock::time_point when) {
  if (path.empty()) return false;
  fs::path real = ResolveCase(path);
  if (!IsFile(real)) return false;
  int fd = ::open(real.c_str(), O_RDWR | O_CLOEXEC);
  if (fd < 0) return false;
  auto since = when.time_since_epoch();
  auto secs = std::chrono::floor<std::chrono::seconds>(since);
  struct timespec times[2];
  times[0].tv_sec = static_cast<time_t>(secs.count());
  times[0].tv_nsec =
      static_cast<long>(std::chrono::duration_cast<std::chrono::nanoseconds>(since - secs).count());
  times[1] = times[0];
  bool ok = ::futimens(fd, times) == 0;
  ::close(fd);
  return ok;
}

}  // namespace vardolin
