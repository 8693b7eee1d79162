#include "web/archive_unpack.h"

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include <zlib.h>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/codepage.h"
#include "foundation/services/drives.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "foundation/services/unfinished_work.h"
#include "web/text_ids.h"
#include "web/utf8_locale.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// The code page of zip names written without the UTF-8 flag: Windows writes them in the OEM
// code page, 850 on the Western-European machines most levels come from (437, the American
// one, agrees with it on the accented letters names use).
constexpr const char* kOemCharset = "CP850";
constexpr int kOemCodePage = 850;

std::string Quoted(const std::string& s) {
  return "\"" + s + "\"";
}

// The archive mapped into memory: libarchive then seeks for free, which the zip reader does
// once per entry (10,000 small entries cost 10,000 seeks), and reads without copying.
class MappedFile {
 public:
  ~MappedFile() {
    if (data_) munmap(data_, size_);
  }
  bool Open(const fs::path& path, std::string& error) {
    int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
      error = Quoted(ExtractFileName(path.string())) + ": " + std::strerror(errno);
      return false;
    }
    struct stat st {};
    bool ok = fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && st.st_size > 0;
    if (ok) {
      size_ = static_cast<std::size_t>(st.st_size);
      void* p = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, fd, 0);
      ok = p != MAP_FAILED;
      data_ = ok ? p : nullptr;
    }
    ::close(fd);
    if (!ok) error = Quoted(ExtractFileName(path.string())) + " is empty or not a file";
    return ok;
  }
  const void* data() const { return data_; }
  std::size_t size() const { return size_; }

 private:
  void* data_ = nullptr;
  std::size_t size_ = 0;
};

struct ReaderFree {
  void operator()(archive* a) const { archive_read_free(a); }
};
using Reader = std::unique_ptr<archive, ReaderFree>;

Reader OpenReader(ArchiveKinds kinds) {
  Reader a(archive_read_new());
  if (kinds == ArchiveKinds::Zip) {
    archive_read_support_format_zip_seekable(a.get());
  } else {
    // Every packing format, but not mtree: an mtree "archive" is a list that makes libarchive
    // read files from this machine's disk, which a hostile download would use to copy them.
    archive* r = a.get();
    for (auto support : {archive_read_support_format_7zip, archive_read_support_format_cab,
                         archive_read_support_format_cpio, archive_read_support_format_iso9660,
                         archive_read_support_format_lha, archive_read_support_format_rar,
                         archive_read_support_format_rar5, archive_read_support_format_tar,
                         archive_read_support_format_xar, archive_read_support_format_zip})
      support(r);
    archive_read_support_filter_all(r);
    archive_read_set_format_option(a.get(), "rar", "hdrcharset", kOemCharset);
  }
  archive_read_set_format_option(a.get(), "zip", "hdrcharset", kOemCharset);
  return a;
}

bool Start(archive* a, const MappedFile& file, const fs::path& path, std::string& error) {
  if (archive_read_open_memory(a, file.data(), file.size()) == ARCHIVE_OK) return true;
  const char* why = archive_error_string(a);
  error = Quoted(ExtractFileName(path.string())) + " can't be read as an archive" +
          (why ? std::string(": ") + why : std::string());
  return false;
}

std::string ErrorOf(archive* a) {
  const char* why = archive_error_string(a);
  return why ? why : "unknown error";
}

std::string EntryName(archive_entry* e) {
  const char* n = archive_entry_pathname(e);
  if (!n) n = archive_entry_pathname_utf8(e);
  std::string name = n ? n : "";
  if (ToUtf8(name, 65001)) return name;
  return ToUtf8Lossy(name, kOemCodePage);  // a flagged name that isn't UTF-8 after all
}

bool EndsWithSeparator(const std::string& name) {
  return !name.empty() && (name.back() == '/' || name.back() == '\\');
}

// The parts of a name as the file system would see them on Windows: separators either way,
// no empty or "." parts, case folded.
std::vector<std::string> FoldedParts(const std::string& name) {
  std::vector<std::string> parts;
  std::string part;
  for (std::size_t i = 0; i <= name.size(); ++i) {
    if (i == name.size() || name[i] == '/' || name[i] == '\\') {
      if (!part.empty() && part != ".") parts.push_back(ToLower(part));
      part.clear();
    } else {
      part += name[i];
    }
  }
  return parts;
}

std::string JoinParts(const std::vector<std::string>& parts, std::size_t n) {
  std::string s;
  for (std::size_t i = 0; i < n; ++i) s += (i ? "/" : "") + parts[i];
  return s;
}

struct PasswordQuestion {
  Program* program = nullptr;
  bool asked = false;
  std::string answer;

  static const char* Callback(archive*, void* data) {
    auto* self = static_cast<PasswordQuestion*>(data);
    if (self->asked) return nullptr;  // once per archive: a second call means it was wrong
    self->asked = true;
    self->answer = AskInput(*self->program, "Please Enter The Password!");
    return self->answer.empty() ? nullptr : self->answer.c_str();
  }
};

// Lets the window breathe inside long loops without paying for it on every small entry.
class Breather {
 public:
  explicit Breather(Ui& ui) : ui_(ui) {}
  void operator()() {
    auto now = std::chrono::steady_clock::now();
    if (now - last_ < std::chrono::milliseconds(40)) return;
    last_ = now;
    ui_.DoEvents();
  }

 private:
  Ui& ui_;
  std::chrono::steady_clock::time_point last_{};
};

bool ListZipDirectory(const MappedFile& file, const std::function<void(const ListedEntry&)>& each,
                      std::string& why);

// Past these a package is asked about before it is unpacked: a zip bomb is small and expands
// to fill the disk, while a level's files compress a few times at most.
constexpr double kAskAboveRatio = 100;
constexpr double kAskAboveBytes = 4.0 * 1024 * 1024 * 1024;
// What a file takes on disk beyond its bytes: its last block, and the folder's entry.
constexpr double kBytesPerFile = 4096;
// The share of the disk's free space an unpacking leaves for everything else.
constexpr double kFreeMargin = 0.02;

// A file read whole. A name the folder didn't hold is written in place (`temp` empty); one that
// stood waits under a temporary name until the whole archive has been read.
struct Pending {
  fs::path temp;
  fs::path final;
  std::string name;  // as the archive gave it, for messages
};

class Unpacker {
 public:
  Unpacker(Program& program, const fs::path& archive_path, const fs::path& destination,
           const UnpackOptions& options)
      : program_(program),
        archive_path_(archive_path),
        archive_name_(ExtractFileName(archive_path.string())),
        destination_(destination),
        options_(options),
        breathe_(program.ui()) {}

  UnpackResult Run() {
    ScopedUtf8Locale locale;
    MappedFile file;
    std::string error;
    if (!file.Open(archive_path_, error)) return Fail(UnpackFailure::Unreadable, error);
    made_.emplace(program_);
    if (!MakeDestination()) return Fail(UnpackFailure::CannotWrite, error_);
    joiner_.emplace(destination_);
    known_folders_.insert(destination_.native());
    Reader a = OpenReader(options_.kinds);
    password_.program = &program_;
    archive_read_set_passphrase_callback(a.get(), &password_, &PasswordQuestion::Callback);
    if (!Start(a.get(), file, archive_path_, error)) return Fail(UnpackFailure::Unreadable, error);
    archive_size_ = static_cast<double>(file.size());
    if (options_.kinds == ArchiveKinds::Zip) {
      // The whole of what the zip declares, told before a byte is written.
      double total = 0, files = 0;
      std::string why;
      if (ListZipDirectory(
              file,
              [&](const ListedEntry& e) {
                total += static_cast<double>(e.size);
                files += e.folder ? 0 : 1;
              },
              why)) {
        if (!RoomFor(total, files)) return Fail(failure_, error_);
        total_checked_ = true;
      }
    }

    archive_entry* e = nullptr;
    int failed_headers = 0;
    for (;;) {
      int r = archive_read_next_header(a.get(), &e);
      if (r == ARCHIVE_EOF) break;
      if (r < ARCHIVE_WARN) {
        // One bad header of a zip leaves the others readable; a broken stream ends the reading,
        // and what came before it stays.
        const std::string why = ErrorOf(a.get());
        const bool more = r == ARCHIVE_FAILED && ++failed_headers < kMaxFailedHeaders;
        result_.damaged.push_back(
            (more && e && archive_entry_pathname(e) ? Quoted(EntryName(e)) : "the rest") + ": " +
            why);
        if (more) continue;
        break;
      }
      if (!Entry(a.get(), e)) return Fail(failure_, error_);
      if (stop_reading_) break;
      if (options_.progress) {
        double fraction = static_cast<double>(archive_filter_bytes(a.get(), -1)) /
                          static_cast<double>(file.size());
        options_.progress(result_.files_done, fraction > 1 ? 1 : fraction);
      }
      breathe_();
    }
    if (pending_.empty() && !result_.damaged.empty())
      return Fail(UnpackFailure::Damaged,
                  Quoted(archive_name_) + " is damaged: " + result_.damaged.front());
    if (!PutInPlace()) return Fail(UnpackFailure::CannotWrite, error_);
    result_.ok = true;
    return std::move(result_);
  }

 private:
  bool MakeDestination() {
    std::error_code ec;
    if (fs::is_directory(destination_, ec)) return true;
    if (!MakeParents(destination_ / "x")) {
      error_ = Quoted(destination_.string()) + " can't be made";
      return false;
    }
    return true;
  }

  // Makes the missing folders down to `path`'s parent, remembering them so that a failure can
  // take them back. False when something that is not a folder stands in the way.
  bool MakeParents(const fs::path& path) {
    const fs::path parent = path.parent_path();
    if (known_folders_.count(parent.native())) return true;
    std::vector<fs::path> missing;
    std::error_code ec;
    for (fs::path dir = parent; !dir.empty(); dir = dir.parent_path()) {
      auto st = fs::status(dir, ec);
      if (fs::is_directory(st)) break;
      if (fs::exists(st)) return false;
      missing.push_back(dir);
      if (dir == dir.parent_path()) break;
    }
    for (auto it = missing.rbegin(); it != missing.rend(); ++it) {
      made_->Add(*it);
      if (::mkdir(it->c_str(), 0755) != 0) {
        if (errno != EEXIST) return false;
        continue;
      }
      created_folders_.push_back(*it);
      if (joiner_) joiner_->Made(*it, true);
    }
    known_folders_.insert(parent.native());
    return true;
  }

  // Whether `bytes` in `files` files fit on the destination's disk, and whether the user wants
  // a package that expands that far; false (failure_ and error_ tell why) when not.
  bool RoomFor(double bytes, double files) {
    const double free = DiskFreeBytes(program_.platform(), destination_);
    const double needed = bytes + files * kBytesPerFile;
    if (needed > free * (1 - kFreeMargin))
      return Stop(UnpackFailure::NoSpace, Quoted(archive_name_) + " needs " +
                                              FormatFileSize(needed) + " and the disk has " +
                                              FormatFileSize(free) + " free");
    return AskIfFar(bytes);
  }

  // A package that expands far beyond its own size is the user's to allow, asked once.
  bool AskIfFar(double bytes) {
    if (asked_size_ || (bytes <= kAskAboveRatio * archive_size_ && bytes <= kAskAboveBytes))
      return true;
    asked_size_ = true;
    const std::string ratio =
        std::to_string(static_cast<long long>(bytes / std::max(archive_size_, 1.0)));
    if (AskUser(program_,
                program_.GetText(text::PackageExpandsFar,
                                 {Quoted(archive_name_), FormatFileSize(bytes), ratio}),
                msg::kYesNo) == msg::kNo)
      return Stop(UnpackFailure::Declined, Quoted(archive_name_) + " expands to " +
                                               FormatFileSize(bytes) + ": not unpacked");
    return true;
  }

  void Refuse(const std::string& name, const std::string& why) {
    result_.refused.push_back(Quoted(name) + ": " + why);
  }

  bool ThroughStoredLink(const std::string& name) {
    if (links_.empty()) return false;
    auto parts = FoldedParts(name);
    for (std::size_t n = 1; n < parts.size(); ++n)
      if (links_.count(JoinParts(parts, n))) return true;
    return false;
  }

  // One entry; false when the whole unpacking must stop (failure_ and error_ tell why).
  bool Entry(archive* a, archive_entry* e) {
    std::string stored = EntryName(e);
    const auto type = archive_entry_filetype(e);
    if (type == AE_IFLNK) {
      // Links could carry later names out of the destination; levels need none.
      links_.insert(JoinParts(FoldedParts(stored), FoldedParts(stored).size()));
      Refuse(stored, "links are not unpacked");
      return true;
    }
    // A hard link without data of its own stands for a copy of a file brought earlier.
    const char* copy_of = archive_entry_size(e) == 0 ? archive_entry_hardlink(e) : nullptr;
    const bool folder = !copy_of && (type == AE_IFDIR || EndsWithSeparator(stored));
    if (!copy_of && !folder && type != AE_IFREG) {
      Refuse(stored, "not a plain file");
      return true;
    }
    if (folder && !options_.honor_directories) return true;
    if (ThroughStoredLink(stored)) {
      Refuse(stored, "passes through a link stored in the archive");
      return true;
    }
    std::string name = options_.honor_directories ? stored : ExtractFileName(stored);
    if (options_.space_to_underscore)
      for (char& c : name)
        if (c == ' ') c = '_';
    SafeJoinResult joined = joiner_->Join(name);
    if (!joined) {
      Refuse(stored, joined.error);
      return true;
    }
    if (folder) {
      std::error_code ec;
      if (!fs::is_directory(joined.path, ec) && !MakeParents(joined.path / "x"))
        Refuse(stored, "a file stands where the folder goes");
      return true;
    }
    if (!MakeParents(joined.path)) {
      Refuse(stored, "a file stands where a folder of the name goes");
      return true;
    }
    if (copy_of) return CopyEarlier(stored, copy_of, joined);
    return WriteFile(a, e, stored, joined);
  }

  struct Claimed {
    int fd = -1;
    fs::path temp;  // empty: written in place
    fs::path final;
    std::string key;
  };

  // Opens the file that `place` gets, after checking that `size` bytes fit on the disk. False
  // when the unpacking must stop.
  bool Claim(const std::string& stored, const SafeJoinResult& place, double size, bool exec,
             Claimed& c) {
    // Names that differ only in case are one file, as on Windows: the later entry wins.
    c.key = ToLower(place.path.string());
    auto seen = by_name_.find(c.key);
    c.final = seen == by_name_.end() ? place.path : pending_[seen->second].final;

    declared_ += size;
    if (!total_checked_) {
      const double free = DiskFreeBytes(program_.platform(), c.final.parent_path());
      if (size > free)
        return Stop(UnpackFailure::NoSpace, Quoted(stored) + " of " + Quoted(archive_name_) +
                                                " needs " + FormatFileSize(size) +
                                                " and the disk has " + FormatFileSize(free) +
                                                " free");
    }
    // Kinds that declare no total are asked about once what they have brought passes the mark.
    if (!AskIfFar(declared_)) return false;
    const mode_t mode = exec ? 0755 : 0644;

    // A name the folder didn't hold is nobody's but this unpacking's: it is written where it
    // goes, named first in the list that a kill leaves for the next run to clear.
    if (seen == by_name_.end() && !place.stood) {
      made_->Add(c.final);
      c.fd = ::open(c.final.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
      if (c.fd < 0)
        return Stop(UnpackFailure::CannotWrite,
                    Quoted(stored) + " can't be written: " + std::strerror(errno));
      return true;
    }
    // What stands is replaced only once the whole archive has been read: until then the new
    // bytes wait in a folder of their own.
    if (staging_.empty()) {
      std::string pattern = (destination_ / ".vardolin-unzip-XXXXXX").string();
      if (!::mkdtemp(pattern.data()))
        return Stop(UnpackFailure::CannotWrite,
                    Quoted(destination_.string()) + " can't be written: " + std::strerror(errno));
      staging_ = pattern;
      made_->Add(staging_, true);
    }
    c.temp = staging_ / std::to_string(temps_made_++);
    c.fd = ::open(c.temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (c.fd < 0)
      return Stop(UnpackFailure::CannotWrite,
                  Quoted(stored) + " can't be written: " + std::strerror(errno));
    return true;
  }

  // The whole file is written. False when a later entry of a name can't take the earlier one's
  // place.
  bool Keep(const Claimed& c, const std::string& stored) {
    auto seen = by_name_.find(c.key);
    if (seen != by_name_.end()) {
      Pending& p = pending_[seen->second];
      if (!p.temp.empty()) {
        ::unlink(p.temp.c_str());
        p.temp = c.temp;
      } else if (::rename(c.temp.c_str(), p.final.c_str()) != 0) {
        // The earlier one is this unpacking's own, in place: the later one takes it over now.
        ::unlink(c.temp.c_str());
        return Stop(UnpackFailure::CannotWrite,
                    Quoted(stored) + " can't be put in place: " + std::strerror(errno));
      }
      p.name = stored;
    } else {
      by_name_.emplace(c.key, pending_.size());
      pending_.push_back({c.temp, c.final, stored});
      if (c.temp.empty()) joiner_->Made(c.final, false);
    }
    ++result_.files_done;
    FaultPoint("unpack-entry");  // the kill tests break an unpacking off here
    return true;
  }

  static void Drop(Claimed& c) {
    if (c.fd >= 0) ::close(c.fd);
    c.fd = -1;
    ::unlink((c.temp.empty() ? c.final : c.temp).c_str());
  }

  bool CopyEarlier(const std::string& stored, const std::string& target,
                   const SafeJoinResult& place) {
    SafeJoinResult from =
        joiner_->Join(options_.honor_directories ? target : ExtractFileName(target));
    auto source = from ? by_name_.find(ToLower(from.path.string())) : by_name_.end();
    if (source == by_name_.end()) {
      Refuse(stored, "a link to a file the archive doesn't bring before it");
      return true;
    }
    const Pending& earlier = pending_[source->second];
    const fs::path source_temp = earlier.temp.empty() ? earlier.final : earlier.temp;
    std::error_code ec;
    const auto size = fs::file_size(source_temp, ec);
    Claimed c;
    if (!Claim(stored, place, static_cast<double>(size), false, c)) return false;
    int in = ::open(source_temp.c_str(), O_RDONLY | O_CLOEXEC);
    off_t at = 0;
    bool ok = in >= 0;
    while (ok && static_cast<std::uintmax_t>(at) < size) {
      ssize_t n = ::copy_file_range(in, &at, c.fd, nullptr, size - at, 0);
      ok = n > 0;
    }
    if (in >= 0) ::close(in);
    ok = ::close(c.fd) == 0 && ok;
    c.fd = -1;
    if (!ok) {
      Drop(c);
      return Stop(UnpackFailure::CannotWrite, Quoted(stored) + " can't be written");
    }
    return Keep(c, stored);
  }

  bool WriteFile(archive* a, archive_entry* e, const std::string& stored,
                 const SafeJoinResult& place) {
    const bool exec = (archive_entry_perm(e) & 0111) != 0;
    Claimed c;
    if (!Claim(stored, place,
               archive_entry_size_is_set(e) ? static_cast<double>(archive_entry_size(e)) : 0, exec,
               c))
      return false;

    std::int64_t end = 0;
    for (;;) {
      const void* block = nullptr;
      std::size_t size = 0;
      la_int64_t offset = 0;
      int r = archive_read_data_block(a, &block, &size, &offset);
      if (r == ARCHIVE_EOF) break;
      // A warning here is a checksum that doesn't match: the bytes are not the author's.
      if (r < ARCHIVE_OK) {
        Drop(c);
        std::string why = ErrorOf(a);
        // A wrong password may also pass the zip's one-byte check and show as bad data.
        if (why.find("assphrase") != std::string::npos ||
            (password_.asked && archive_entry_is_encrypted(e)))
          return Stop(
              UnpackFailure::Password,
              Quoted(archive_name_) + ": " +
                  (password_.answer.empty() ? "no password given for " : "wrong password for ") +
                  Quoted(stored));
        // This entry stays out; the others still come.
        result_.damaged.push_back(Quoted(stored) + ": " + why);
        stop_reading_ = r == ARCHIVE_FATAL;
        return true;
      }
      const char* bytes = static_cast<const char*>(block);
      std::size_t written = 0;
      while (written < size) {
        ssize_t w = ::pwrite(c.fd, bytes + written, size - written, offset + written);
        if (w < 0 && errno == EINTR) continue;
        if (w <= 0) {
          int err = errno;
          Drop(c);
          return Stop(err == ENOSPC ? UnpackFailure::NoSpace : UnpackFailure::CannotWrite,
                      Quoted(stored) + " of " + Quoted(archive_name_) +
                          " can't be written: " + std::strerror(err));
        }
        written += static_cast<std::size_t>(w);
      }
      end = std::max<std::int64_t>(end, offset + static_cast<std::int64_t>(size));
      breathe_();
    }
    // A sparse entry may end in a hole.
    if (archive_entry_size_is_set(e) && archive_entry_size(e) > end)
      if (::ftruncate(c.fd, archive_entry_size(e)) != 0) {
        Drop(c);
        return Stop(UnpackFailure::NoSpace, Quoted(stored) + " can't be written");
      }
    if (archive_entry_mtime_is_set(e)) {
      timespec times[2];
      times[0].tv_sec = times[1].tv_sec = archive_entry_mtime(e);
      times[0].tv_nsec = times[1].tv_nsec = archive_entry_mtime_nsec(e);
      ::futimens(c.fd, times);
    }
    const bool closed = ::close(c.fd) == 0;
    c.fd = -1;
    if (!closed) {
      Drop(c);
      return Stop(UnpackFailure::CannotWrite, Quoted(stored) + " can't be written");
    }
    return Keep(c, stored);
  }

  // The files that replace others go in place; Fail takes back the rest when one can't.
  bool PutInPlace() {
    for (Pending& p : pending_) {
      if (p.temp.empty()) continue;
      if (::rename(p.temp.c_str(), p.final.c_str()) != 0) {
        error_ = Quoted(p.name) + " of " + Quoted(archive_name_) +
                 " can't be put in place: " + std::strerror(errno);
        return false;
      }
      p.temp.clear();
      p.final.clear();  // replaced: it can't come back, and it isn't taken away either
    }
    pending_.clear();
    RemoveStaging();
    return true;
  }

  void RemoveStaging() {
    std::error_code ec;
    if (!staging_.empty()) fs::remove_all(staging_, ec);
    staging_.clear();
  }

  bool Stop(UnpackFailure failure, std::string why) {
    failure_ = failure;
    error_ = std::move(why);
    return false;
  }

  UnpackResult Fail(UnpackFailure failure, const std::string& why) {
    // New files go again, waiting ones with their folder.
    for (const Pending& p : pending_)
      if (p.temp.empty() && !p.final.empty()) ::unlink(p.final.c_str());
    RemoveStaging();
    for (auto it = created_folders_.rbegin(); it != created_folders_.rend(); ++it)
      ::rmdir(it->c_str());
    UnpackResult r;
    r.failure = failure;
    r.message = why;
    r.refused = std::move(result_.refused);
    r.damaged = std::move(result_.damaged);
    return r;
  }

  Program& program_;
  fs::path archive_path_;
  std::string archive_name_;
  fs::path destination_;
  const UnpackOptions& options_;
  Breather breathe_;
  PasswordQuestion password_;
  UnpackResult result_;
  UnpackFailure failure_ = UnpackFailure::None;
  std::string error_;
  std::vector<Pending> pending_;
  std::size_t temps_made_ = 0;
  std::unordered_map<std::string, std::size_t> by_name_;
  std::unordered_set<std::string> links_;
  std::vector<fs::path> created_folders_;
  std::unordered_set<std::string> known_folders_;  // folders that stand, made or found
  std::optional<SafeJoiner> joiner_;
  std::optional<UnfinishedList> made_;  // what this unpacking made, for a kill's clean-up
  fs::path staging_;                    // where the files wait, inside the destination
  double archive_size_ = 0;
  double declared_ = 0;  // the sizes of the files met so far
  bool asked_size_ = false;
  bool total_checked_ = false;  // the zip's declared total fits on the disk
  bool stop_reading_ = false;   // the archive can't be read past the entry that failed
  // Headers that fail one by one; past this many the archive is read no further.
  static constexpr int kMaxFailedHeaders = 64;
};

}  // namespace

namespace {

std::uint64_t Le(const unsigned char* p, int bytes) {
  std::uint64_t v = 0;
  for (int i = bytes - 1; i >= 0; --i) v = (v << 8) | p[i];
  return v;
}

bool IsAscii(std::string_view s) {
  for (unsigned char c : s)
    if (c >= 0x80) return false;
  return true;
}

// A zip's names straight from its central directory. libarchive would read every local header
// too and turn each entry's DOS time through mktime, which costs a look at the time zone file
// per entry: ten times what a listing of a big zip needs. The data is still read by libarchive
// alone. Zip64 and zips behind a self-extractor's program are understood; a name takes the
// Info-ZIP Unicode path field when it has one that belongs to it.
bool ListZipDirectory(const MappedFile& file, const std::function<void(const ListedEntry&)>& each,
                      std::string& why) {
  const auto* data = static_cast<const unsigned char*>(file.data());
  const std::uint64_t size = file.size();
  if (size < 22) return why = "too short for a zip", false;
  std::uint64_t eocd = size - 22;
  const std::uint64_t lowest = size > 22 + 65535 ? size - 22 - 65535 : 0;
  while (!(Le(data + eocd, 4) == 0x06054b50 && eocd + 22 + Le(data + eocd + 20, 2) <= size)) {
    if (eocd == lowest) return why = "no end of central directory", false;
    --eocd;
  }
  std::uint64_t count = Le(data + eocd + 10, 2);
  std::uint64_t cd_size = Le(data + eocd + 12, 4);
  std::uint64_t cd_offset = Le(data + eocd + 16, 4);
  std::uint64_t end_of_cd = eocd;  // where the directory ends, in the file
  if ((count == 0xFFFF || cd_size == 0xFFFFFFFF || cd_offset == 0xFFFFFFFF) && eocd >= 20 &&
      Le(data + eocd - 20, 4) == 0x07064b50) {
    std::uint64_t z64 = Le(data + eocd - 20 + 8, 8);
    if (size < 56 || z64 > size - 56 || Le(data + z64, 4) != 0x06064b50)
      return why = "bad zip64 end", false;
    count = Le(data + z64 + 32, 8);
    cd_size = Le(data + z64 + 40, 8);
    cd_offset = Le(data + z64 + 48, 8);
    end_of_cd = z64;
  }
  // Offsets count from the zip's own start, which a self-extractor's program shifts.
  if (cd_size > end_of_cd) return why = "bad central directory size", false;
  std::uint64_t at = end_of_cd - cd_size;
  if (at < cd_offset && cd_offset <= end_of_cd) at = cd_offset;
  ListedEntry entry;
  for (std::uint64_t i = 0; i < count; ++i) {
    if (at + 46 > end_of_cd || Le(data + at, 4) != 0x02014b50)
      return why = "central directory cut short", false;
    const std::uint64_t flags = Le(data + at + 8, 2);
    std::uint64_t uncompressed = Le(data + at + 24, 4);
    const std::uint64_t name_len = Le(data + at + 28, 2);
    const std::uint64_t extra_len = Le(data + at + 30, 2);
    const std::uint64_t comment_len = Le(data + at + 32, 2);
    const std::uint64_t next = at + 46 + name_len + extra_len + comment_len;
    if (next > end_of_cd) return why = "central directory cut short", false;
    std::string_view raw(reinterpret_cast<const char*>(data + at + 46), name_len);
    std::string name;
    // The Unicode path field carries the CRC-32 of the name it stands for.
    const unsigned char* x = data + at + 46 + name_len;
    for (std::uint64_t k = 0; k + 4 <= extra_len;) {
      std::uint64_t id = Le(x + k, 2), len = Le(x + k + 2, 2);
      if (k + 4 + len > extra_len) break;
      // Zip64: the true size stands first in its field when the plain one is all ones.
      if (id == 0x0001 && uncompressed == 0xFFFFFFFF && len >= 8) uncompressed = Le(x + k + 4, 8);
      if (id == 0x7075 && len >= 5 && x[k + 4] == 1 &&
          Le(x + k + 5, 4) ==
              crc32(0, reinterpret_cast<const Bytef*>(raw.data()), static_cast<uInt>(raw.size())))
        name.assign(reinterpret_cast<const char*>(x + k + 9), len - 5);
      k += 4 + len;
    }
    if (name.empty()) {
      if (IsAscii(raw) || ((flags & 0x800) && ToUtf8(raw, 65001)))
        name.assign(raw);
      else
        name = ToUtf8Lossy(raw, kOemCodePage);
    }
    entry.name = std::move(name);
    entry.folder = EndsWithSeparator(entry.name);
    entry.size = entry.folder ? 0 : uncompressed;
    each(entry);
    at = next;
  }
  return true;
}

}  // namespace

bool ListArchive(const fs::path& archive_path, ArchiveKinds kinds,
                 const std::function<void(const ListedEntry&)>& each, std::string& error) {
  ScopedUtf8Locale locale;
  MappedFile file;
  if (!file.Open(archive_path, error)) return false;
  if (kinds == ArchiveKinds::Zip) {
    std::string why;
    if (ListZipDirectory(file, each, why)) return true;
    error = Quoted(ExtractFileName(archive_path.string())) + " can't be read as a zip: " + why;
    return false;
  }
  Reader a = OpenReader(kinds);
  if (!Start(a.get(), file, archive_path, error)) return false;
  archive_entry* e = nullptr;
  ListedEntry entry;
  for (;;) {
    int r = archive_read_next_header(a.get(), &e);
    if (r == ARCHIVE_EOF) return true;
    if (r < ARCHIVE_WARN) {
      error = Quoted(ExtractFileName(archive_path.string())) + " is damaged: " + ErrorOf(a.get());
      return false;
    }
    entry.name = EntryName(e);
    entry.folder = archive_entry_filetype(e) == AE_IFDIR || EndsWithSeparator(entry.name);
    each(entry);
  }
}

UnpackResult UnpackArchive(Program& program, const fs::path& archive_path,
                           const fs::path& destination, const UnpackOptions& options) {
  return Unpacker(program, archive_path, destination, options).Run();
}

}  // namespace vardolin
