#include "foundation/services/atomic_file.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

namespace vardolin {

bool FaultPoint(const char* name) {
  const char* spec = std::getenv("VARDOLIN_FAULT_POINT");
  if (!spec || !*spec) return false;
  static std::string counted_for;
  static std::map<std::string, long> hits;
  std::string s(spec);
  if (s != counted_for) {
    counted_for = s;
    hits.clear();
  }
  bool full_disk = false;
  if (s.size() > 7 && s.compare(s.size() - 7, 7, ":enospc") == 0) {
    full_disk = true;
    s.resize(s.size() - 7);
  }
  auto colon = s.rfind(':');
  std::string point = colon == std::string::npos ? s : s.substr(0, colon);
  char* end = nullptr;
  long target = colon == std::string::npos ? 1 : std::strtol(s.c_str() + colon + 1, &end, 10);
  const bool from_on = end && *end == '+';
  if (point != name) return false;
  const long hit = ++hits[point];
  if (from_on ? hit < target : hit != target) return false;
  if (!full_disk) ::kill(::getpid(), SIGKILL);
  errno = ENOSPC;
  return true;
}

namespace {

constexpr size_t kWriteChunk = 64 * 1024;

bool WriteAll(int fd, std::string_view bytes) {
  const char* p = bytes.data();
  size_t left = bytes.size();
  while (left > 0) {
    // Bounded writes, so that a crash can strike between any two parts of a large file.
    ssize_t n = ::write(fd, p, left < kWriteChunk ? left : kWriteChunk);
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    FaultPoint("atomic-write");
    p += n;
    left -= static_cast<size_t>(n);
  }
  return true;
}

}  // namespace

bool AtomicWriteFile(const std::filesystem::path& path, std::string_view bytes, bool flush) {
  std::filesystem::path temp = path;
  temp += ".new~";
  int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) return false;
  bool ok = WriteAll(fd, bytes) && (!flush || ::fsync(fd) == 0);
  ok = (::close(fd) == 0) && ok;
  FaultPoint("atomic-before-rename");
  if (ok) ok = ::rename(temp.c_str(), path.c_str()) == 0;
  if (!ok) {
    ::unlink(temp.c_str());
    return false;
  }
  if (!flush) return true;
  // Make the rename itself durable.
  int dir =
      ::open(path.has_parent_path() ? path.parent_path().c_str() : ".", O_RDONLY | O_DIRECTORY);
  if (dir >= 0) {
    ::fsync(dir);
    ::close(dir);
  }
  return true;
}

}  // namespace vardolin
