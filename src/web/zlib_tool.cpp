#include "web/zlib_tool.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <exception>
#include <mutex>
#include <string>
#include <thread>

#include "web/zl_codec.h"

namespace vardolin {
namespace fs = std::filesystem;
namespace {

class FdSource : public zl::Source {
 public:
  explicit FdSource(int fd) : fd_(fd) {}
  std::ptrdiff_t Read(unsigned char* buffer, std::size_t n) override {
    for (;;) {
      ssize_t r = ::read(fd_, buffer, n);
      if (r >= 0 || errno != EINTR) return r;
    }
  }

 private:
  int fd_;
};

class FdSink : public zl::Sink {
 public:
  explicit FdSink(int fd) : fd_(fd) {}
  bool Write(const unsigned char* bytes, std::size_t n) override {
    while (n > 0) {
      ssize_t w = ::write(fd_, bytes, n);
      if (w < 0 && errno == EINTR) continue;
      if (w <= 0) return false;
      bytes += w;
      n -= static_cast<std::size_t>(w);
    }
    return true;
  }

 private:
  int fd_;
};

class MemorySource : public zl::Source {
 public:
  explicit MemorySource(std::string_view bytes) : bytes_(bytes) {}
  std::ptrdiff_t Read(unsigned char* buffer, std::size_t n) override {
    n = std::min(n, bytes_.size());
    std::memcpy(buffer, bytes_.data(), n);
    bytes_.remove_prefix(n);
    return static_cast<std::ptrdiff_t>(n);
  }

 private:
  std::string_view bytes_;
};

class StringSink : public zl::Sink {
 public:
  explicit StringSink(std::string& out) : out_(out) {}
  bool Write(const unsigned char* bytes, std::size_t n) override {
    out_.append(reinterpret_cast<const char*>(bytes), n);
    return true;
  }

 private:
  std::string& out_;
};

class InputFile {
 public:
  explicit InputFile(const fs::path& path) : fd_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    struct stat st;
    if (fd_ >= 0 && (::fstat(fd_, &st) != 0 || !S_ISREG(st.st_mode))) Close();
    if (fd_ >= 0) {
      size_ = static_cast<std::uint64_t>(st.st_size);
      ::posix_fadvise(fd_, 0, 0, POSIX_FADV_SEQUENTIAL);
    }
  }
  ~InputFile() { Close(); }
  bool Ok() const { return fd_ >= 0; }
  int Fd() const { return fd_; }
  std::uint64_t Size() const { return size_; }

 private:
  void Close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }
  int fd_;
  std::uint64_t size_ = 0;
};

// The output is written under a hidden name beside its final place and renamed over it only
// when complete, so that no half-written or unverified file ever carries the real name.
class PendingOutput {
 public:
  explicit PendingOutput(const fs::path& target) : target_(target) {
    static std::atomic<unsigned> counter{0};
    if (target.filename().empty()) return;
    for (int attempt = 0; attempt < 100 && fd_ < 0; ++attempt) {
      temp_ = target.parent_path() /
              ("." + target.filename().string() + ".part-" + std::to_string(::getpid()) + "-" +
               std::to_string(counter.fetch_add(1)));
      fd_ = ::open(temp_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      if (fd_ < 0 && errno != EEXIST) break;
    }
  }
  ~PendingOutput() {
    if (fd_ >= 0) ::close(fd_);
    if (!committed_ && !temp_.empty()) ::unlink(temp_.c_str());
  }
  bool Ok() const { return fd_ >= 0; }
  int Fd() const { return fd_; }

  bool Commit(bool sync) {
    bool ok = !sync || ::fsync(fd_) == 0;
    ok = ::close(fd_) == 0 && ok;
    fd_ = -1;
    if (!ok || ::rename(temp_.c_str(), target_.c_str()) != 0) return false;
    committed_ = true;
    if (sync) {
      fs::path folder = target_.parent_path().empty() ? fs::path(".") : target_.parent_path();
      int dir = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
      if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
      }
    }
    return true;
  }

 private:
  fs::path target_, temp_;
  int fd_ = -1;
  bool committed_ = false;
};

// A head may promise no more than any disk could ever hold.
constexpr std::uint64_t kMostExpanded = std::uint64_t(1) << 48;

// Memory or threads running out are the only exceptions inside; they end the one file.
template <class F>
ZlResult Guarded(F body) {
  try {
    return body();
  } catch (const std::exception&) {
    return ZlResult::CannotWriteOutput;
  }
}

}  // namespace

const char* ZlResultName(ZlResult result) {
  switch (result) {
    case ZlResult::Ok:
      return "ok";
    case ZlResult::CannotReadInput:
      return "cannot read the input";
    case ZlResult::CannotWriteOutput:
      return "cannot write the output";
    case ZlResult::NotPacked:
      return "not a packed file";
    case ZlResult::Truncated:
      return "truncated";
    case ZlResult::Corrupt:
      return "corrupt";
    case ZlResult::NoSpace:
      return "declares more than the disk has free";
  }
  return "unknown";
}

ZlResult PackFile(const fs::path& input, const fs::path& output, const ZlOptions& options) {
  InputFile in(input);
  if (!in.Ok()) return ZlResult::CannotReadInput;
  PendingOutput out(output);
  if (!out.Ok()) return ZlResult::CannotWriteOutput;
  FdSource source(in.Fd());
  FdSink sink(out.Fd());
  ZlResult result = Guarded([&] { return zl::Pack(source, in.Size(), sink, options); });
  if (result != ZlResult::Ok) return result;
  return out.Commit(options.sync) ? ZlResult::Ok : ZlResult::CannotWriteOutput;
}

std::optional<std::uint64_t> ZlDeclaredLength(const fs::path& input) {
  InputFile in(input);
  unsigned char head[kZlHeadSize];
  if (!in.Ok() || ::pread(in.Fd(), head, sizeof head, 0) != static_cast<ssize_t>(sizeof head) ||
      std::memcmp(head, "VZL\x01", 4) != 0)
    return std::nullopt;
  std::uint64_t length = 0;
  for (int i = 0; i < 8; ++i) length |= std::uint64_t(head[4 + i]) << (8 * i);
  return length;
}

ZlResult ExpandFile(const fs::path& input, const fs::path& output, const ZlOptions& options) {
  InputFile in(input);
  if (!in.Ok()) return ZlResult::CannotReadInput;
  // Refused before a byte is written: a head that promises more than the disk holds would fill
  // it and only then turn out wrong.
  struct statvfs disk {};
  const std::optional<std::uint64_t> declared = ZlDeclaredLength(input);
  const fs::path folder = output.parent_path().empty() ? fs::path(".") : output.parent_path();
  if (declared && *declared <= kMostExpanded && ::statvfs(folder.c_str(), &disk) == 0 &&
      *declared > static_cast<std::uint64_t>(disk.f_bavail) * disk.f_frsize)
    return ZlResult::NoSpace;
  PendingOutput out(output);
  if (!out.Ok()) return ZlResult::CannotWriteOutput;
  FdSource source(in.Fd());
  FdSink sink(out.Fd());
  // A head may promise no more than the disk could ever hold; the stream's own checks catch
  // a smaller lie.
  ZlResult result =
      Guarded([&] { return zl::Expand(source, in.Size(), sink, kMostExpanded, options); });
  if (result != ZlResult::Ok) return result;
  return out.Commit(options.sync) ? ZlResult::Ok : ZlResult::CannotWriteOutput;
}

std::size_t ExpandFiles(const std::vector<std::pair<fs::path, fs::path>>& files, ZlResult& failure,
                        int threads, const ZlBatchProgress& progress) {
  std::vector<std::uint64_t> sizes(files.size(), 0);
  std::uint64_t total = 0;
  for (std::size_t i = 0; i < files.size(); ++i) {
    std::error_code ec;
    const auto size = fs::file_size(files[i].first, ec);
    sizes[i] = ec ? 0 : static_cast<std::uint64_t>(size);
    total += sizes[i];
  }
  std::atomic<std::size_t> next{0};
  std::atomic<std::uint64_t> finished{0};  // bytes of the files already expanded
  std::atomic<bool> stop{false};
  std::mutex mutex;
  std::size_t failed = files.size();
  failure = ZlResult::Ok;

  // Each thread takes the next file not yet begun. Only the calling thread reports progress.
  auto work = [&](bool caller) {
    for (;;) {
      if (stop.load()) return;
      const std::size_t i = next.fetch_add(1);
      if (i >= files.size()) return;
      ZlOptions options;
      options.threads = 1;
      if (caller && progress)
        options.progress = [&, i](std::uint64_t done, std::uint64_t) {
          progress(i, finished.load() + done, total);
        };
      const ZlResult result =
          Guarded([&] { return ExpandFile(files[i].first, files[i].second, options); });
      finished += sizes[i];
      if (result != ZlResult::Ok) {
        std::lock_guard<std::mutex> lock(mutex);
        if (i < failed) {
          failed = i;
          failure = result;
        }
        stop = true;
      }
    }
  };
  std::vector<std::thread> helpers;
  for (int t = 1; t < threads && static_cast<std::size_t>(t) < files.size(); ++t) {
    try {
      helpers.emplace_back(work, false);
    } catch (const std::exception&) {
      break;  // fewer threads only means fewer files at once
    }
  }
  work(true);
  for (std::thread& helper : helpers) helper.join();
  return failed;
}

ZlResult PackBytes(std::string_view data, std::string& packed, const ZlOptions& options) {
  packed.clear();
  MemorySource source(data);
  StringSink sink(packed);
  return Guarded([&] { return zl::Pack(source, data.size(), sink, options); });
}

ZlResult ExpandBytes(std::string_view packed, std::string& data, std::uint64_t max_size) {
  data.clear();
  MemorySource source(packed);
  StringSink sink(data);
  ZlResult result = Guarded([&] { return zl::Expand(source, packed.size(), sink, max_size, {}); });
  if (result != ZlResult::Ok) data.clear();
  return result;
}

bool ZlibTool::Compress() {
  // The caller deletes the source once the packed file stands, so it must be on disk first.
  ZlOptions options{.level = CompressionLevel, .threads = 2, .sync = true, .progress = Progress};
  last_ = PackFile(InputFile, OutputFile, options);
  return last_ == ZlResult::Ok;
}

bool ZlibTool::Decompress() {
  ZlOptions options{.level = CompressionLevel, .threads = 2, .sync = false, .progress = Progress};
  last_ = ExpandFile(InputFile, OutputFile, options);
  return last_ == ZlResult::Ok;
}

}  // namespace vardolin
