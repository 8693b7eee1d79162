#pragma once
// One process per program home. The window and every command that changes the home take an
// advisory lock (flock) on the home folder itself, which nobody can delete from under the
// holder while it holds files, and write their pid and name into a file beside, so that a
// second process can say who is in the way. The kernel drops the lock with the process, also
// when it is killed, so a stale file never blocks anybody: only its text stays behind. The file
// is never opened through a link: a link put in its place is replaced, not written through.

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

// Who holds a home, as the holder wrote it into the lock file. pid 0: nothing readable (the
// holder hasn't written yet, or the file was made by hand).
struct HomeLockOwner {
  pid_t pid = 0;
  std::string program;
};

// Pure: the lock file's text, "pid program" on one line, read back. Anything else gives pid 0.
HomeLockOwner ParseHomeLockText(std::string_view text);

class HomeLock {
 public:
  HomeLock() = default;
  ~HomeLock();
  HomeLock(HomeLock&& other) noexcept;
  HomeLock& operator=(HomeLock&& other) noexcept;
  HomeLock(const HomeLock&) = delete;
  HomeLock& operator=(const HomeLock&) = delete;

  // Takes the home for this process, without waiting. True when it is ours now; false when
  // another process holds it (see Owner) or the lock file can't be made (see Error). The home
  // must exist. The lock isn't passed on to programs this process starts.
  bool Acquire(const std::filesystem::path& home, std::string_view program);
  bool Held() const { return fd_ >= 0; }
  // After a refusal: the process holding the home.
  const HomeLockOwner& Owner() const { return owner_; }
  // One line that says why Acquire failed and names the home, for a message box or stderr.
  const std::string& Error() const { return error_; }

 private:
  int fd_ = -1;
  HomeLockOwner owner_;
  std::string error_;
};

// The lock file of a home.
std::filesystem::path HomeLockFile(const std::filesystem::path& home);

}  // namespace vardolin
