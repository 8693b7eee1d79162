#include "foundation/services/home_lock.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstring>
#include <thread>
#include <utility>

namespace vardolin {
namespace fs = std::filesystem;

namespace {

std::string ReadAll(int fd) {
  std::string text;
  char buf[256];
  off_t at = 0;
  for (;;) {
    const ssize_t n = pread(fd, buf, sizeof buf, at);
    if (n <= 0) break;
    text.append(buf, static_cast<std::size_t>(n));
    at += n;
    if (text.size() > 4096) break;  // a lock file is one short line; more is not ours
  }
  return text;
}

bool Alive(pid_t pid) {
  return pid > 0 && (kill(pid, 0) == 0 || errno == EPERM);
}

}  // namespace

HomeLockOwner ParseHomeLockText(std::string_view text) {
  HomeLockOwner owner;
  const std::size_t end = text.find('\n');
  if (end == std::string_view::npos) return owner;  // not written to its end yet
  const std::string_view line = text.substr(0, end);
  const std::size_t space = line.find(' ');
  if (space == std::string_view::npos || space == 0) return owner;
  long pid = 0;
  const auto [ptr, ec] = std::from_chars(line.data(), line.data() + space, pid);
  if (ec != std::errc() || ptr != line.data() + space || pid <= 0 || pid > 0x3fffffff) return owner;
  owner.pid = static_cast<pid_t>(pid);
  owner.program = std::string(line.substr(space + 1));
  return owner;
}

fs::path HomeLockFile(const fs::path& home) {
  return home / "vardolin.lock";
}

HomeLock::~HomeLock() {
  if (fd_ >= 0) close(fd_);
}

HomeLock::HomeLock(HomeLock&& other) noexcept
    : fd_(std::exchange(other.fd_, -1)),
      owner_(std::move(other.owner_)),
      error_(std::move(other.error_)) {}

HomeLock& HomeLock::operator=(HomeLock&& other) noexcept {
  if (this != &other) {
    if (fd_ >= 0) close(fd_);
    fd_ = std::exchange(other.fd_, -1);
    owner_ = std::move(other.owner_);
    error_ = std::move(other.error_);
  }
  return *this;
}

bool HomeLock::Acquire(const fs::path& home, std::string_view program) {
  if (fd_ >= 0) return true;
  owner_ = {};
  error_.clear();
  const fs::path file = HomeLockFile(home);
  const std::string name = file.filename().string();
  // Close-on-exec: the game this process starts must not keep the home locked after we end.
  const int fd = open(home.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) {
    error_ = "cannot open the program home " + home.string() + ": " + std::strerror(errno);
    return false;
  }
  if (flock(fd, LOCK_EX | LOCK_NB) == 0) {
    // Whatever stands under the name (a file of an earlier holder, a link) goes; the new file
    // is made afresh, so nothing is written through a link.
    unlinkat(fd, name.c_str(), 0);
    const int text =
        openat(fd, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644);
    if (text >= 0) {
      const std::string line = std::to_string(getpid()) + " " + std::string(program) + "\n";
      if (pwrite(text, line.data(), line.size(), 0) != static_cast<ssize_t>(line.size())) {
        // The lock holds all the same; only the name of the holder is missing for others.
      }
      close(text);
    }
    fd_ = fd;
    return true;
  }
  const int lock_errno = errno;
  if (lock_errno != EWOULDBLOCK) {
    error_ = "cannot lock the program home " + home.string() + ": " + std::strerror(lock_errno);
    close(fd);
    return false;
  }
  // The holder writes its line just after it took the lock; until then the file may still hold
  // the line of a process that died holding it, or be missing.
  for (int tries = 0; tries < 50; ++tries) {
    const int text = openat(fd, name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    if (text >= 0) {
      owner_ = ParseHomeLockText(ReadAll(text));
      close(text);
    }
    if (Alive(owner_.pid)) break;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  close(fd);
  if (!Alive(owner_.pid)) owner_ = {};
  const std::string who = owner_.pid > 0
                              ? (owner_.program.empty() ? "another program" : owner_.program) +
                                    " (process " + std::to_string(owner_.pid) + ")"
                              : "another process";
  error_ = "the program home " + home.string() + " is in use by " + who + "; see " + file.string();
  return false;
}

}  // namespace vardolin
