// The Linux platform's processes, and the desktop they meet: documents handed to the opener, the
// Wine prefix's registry, the X windows of the session. Keys, joystick and beep, and drives, are
// the platform's two other parts.
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <map>
#include <mutex>
#include <thread>

#include "foundation/platform/linux_platform.h"
#include "foundation/platform/linux_platform_impl.h"
#include "foundation/platform/spawn_child.h"
#include "foundation/platform/wine_registry.h"
#include "foundation/platform/x11_windows.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

namespace {

int StatusToCode(int status) {
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
  return -1;
}

}  // namespace

bool IsWindowsProgram(const fs::path& program) {
  if (!EndsWithNoCase(program.string(), ".exe")) return false;
  std::ifstream in(ResolveCase(program), std::ios::binary);
  char head[2] = {};
  return in.read(head, 2) && head[0] == 'M' && head[1] == 'Z';
}

fs::path FindExecutable(const std::string& word) {
  if (word.empty()) return {};
  if (word.find('/') != std::string::npos) {
    fs::path p = ResolveCase(word);
    return ::access(p.c_str(), X_OK) == 0 && !FolderExists(p) ? p : fs::path();
  }
  const char* path = std::getenv("PATH");
  std::string dirs = path ? path : "/usr/local/bin:/usr/bin:/bin";
  std::size_t start = 0;
  while (start <= dirs.size()) {
    std::size_t end = dirs.find(':', start);
    if (end == std::string::npos) end = dirs.size();
    fs::path candidate =
        fs::path(dirs.substr(start, end - start).empty() ? "." : dirs.substr(start, end - start)) /
        word;
    if (::access(candidate.c_str(), X_OK) == 0 && !FolderExists(candidate)) return candidate;
    start = end + 1;
  }
  return {};
}

std::vector<std::string> SplitCommandWords(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  bool in_word = false, quoted = false;
  for (char c : text) {
    if (c == '"') {
      quoted = !quoted;
      in_word = true;
    } else if ((c == ' ' || c == '\t') && !quoted) {
      if (in_word) words.push_back(word);
      word.clear();
      in_word = false;
    } else {
      word += c;
      in_word = true;
    }
  }
  if (in_word) words.push_back(word);
  return words;
}

Display* LinuxPlatform::Impl::OpenDisplay() {
  if (!display_tried) {
    display_tried = true;
    const char* name = std::getenv("DISPLAY");
    if (name && *name) display = XOpenDisplay(nullptr);
  }
  return display;
}

bool LinuxPlatform::Impl::Reap(int pid, bool block) {
  {
    std::lock_guard<std::mutex> lock(mutex);
    if (exit_codes.count(pid)) return true;
  }
  int status = 0;
  int r;
  do {
    r = ::waitpid(pid, &status, block ? 0 : WNOHANG);
  } while (r < 0 && errno == EINTR);
  if (r == pid) {
    std::lock_guard<std::mutex> lock(mutex);
    exit_codes[pid] = StatusToCode(status);
    return true;
  }
  return false;
}

LinuxPlatform::LinuxPlatform() : LinuxPlatform(Options{}) {}
LinuxPlatform::LinuxPlatform(Options options)
    : options_(std::move(options)), impl_(std::make_unique<Impl>()) {}
LinuxPlatform::~LinuxPlatform() = default;

std::vector<std::string> LinuxPlatform::CommandLine(const StartRequest& request) const {
  std::vector<std::string> words;
  if (IsWindowsProgram(request.program)) {
    const char* wine = std::getenv("VARDOLIN_WINE");
    words = SplitCommandWords(wine && *wine ? wine : "wine");
    words.push_back(ResolveCase(request.program).string());
  } else {
    words.push_back(request.program.string());
  }
  words.insert(words.end(), request.arguments.begin(), request.arguments.end());
  return words;
}

std::optional<Process> LinuxPlatform::Spawn(const StartRequest& request, int stdout_fd) {
  if (request.program.empty()) return std::nullopt;
  std::vector<std::string> words = CommandLine(request);
  fs::path executable = FindExecutable(words[0]);
  if (executable.empty()) return std::nullopt;
  fs::path folder = request.working_folder;
  if (folder.empty()) {
    fs::path own = request.program.string().find('/') != std::string::npos
                       ? ResolveCase(request.program)
                       : executable;
    folder = own.parent_path();
  }
  if (!folder.empty()) folder = ResolveCase(folder);

  SpawnRequest spawn;
  spawn.executable = executable;
  spawn.words = std::move(words);
  spawn.folder = folder;
  spawn.out = stdout_fd;
  if (request.capture_errors) spawn.err = stdout_fd;
  // errno tells callers, who log it, why a start failed.
  const pid_t pid = SpawnChild(std::move(spawn));
  if (pid < 0) return std::nullopt;
  return Process{pid};
}

std::optional<Process> LinuxPlatform::Start(const StartRequest& request) {
  return Spawn(request, -1);
}

WaitResult LinuxPlatform::Wait(Process& process, milliseconds timeout) {
  if (!process.Valid()) return WaitResult::Failed;
  if (timeout.count() < 0)
    return impl_->Reap(process.pid, true) ? WaitResult::Ended : WaitResult::Failed;
  auto deadline = Clock::now() + timeout;
  milliseconds step{1};
  while (true) {
    if (impl_->Reap(process.pid, false)) return WaitResult::Ended;
    if (::kill(process.pid, 0) != 0 && errno == ESRCH) return WaitResult::Failed;
    auto now = Clock::now();
    if (now >= deadline) return WaitResult::TimedOut;
    std::this_thread::sleep_for(std::min<Clock::duration>(step, deadline - now));
    step = std::min(step * 2, milliseconds{20});
  }
}

bool LinuxPlatform::IsRunning(const Process& process) {
  return process.Valid() && !impl_->Reap(process.pid, false) && ::kill(process.pid, 0) == 0;
}

void LinuxPlatform::End(Process& process) {
  if (!IsRunning(process)) return;
  ::kill(process.pid, SIGTERM);
  if (Wait(process, options_.end_grace) == WaitResult::TimedOut) {
    ::kill(process.pid, SIGKILL);
    impl_->Reap(process.pid, true);
  }
}

void LinuxPlatform::EndWithoutWaiting(Process& process) {
  if (!IsRunning(process)) return;
  // A pidfd names this very process, so the late SIGKILL can never reach another one that got
  // its number after the watcher reaped it. The watcher sees the end as it sees any end.
  const int pidfd = static_cast<int>(::syscall(SYS_pidfd_open, process.pid, 0));
  ::kill(process.pid, SIGTERM);
  if (pidfd < 0) return;
  std::thread([pidfd, grace = options_.end_grace] {
    pollfd ended{pidfd, POLLIN, 0};
    int r;
    do {
      r = ::poll(&ended, 1, static_cast<int>(grace.count()));
    } while (r < 0 && errno == EINTR);
    if (r == 0) ::syscall(SYS_pidfd_send_signal, pidfd, SIGKILL, nullptr, 0);
    ::close(pidfd);
  }).detach();
}

int LinuxPlatform::ExitCode(const Process& process) {
  if (!process.Valid() || !impl_->Reap(process.pid, false)) return -1;
  std::lock_guard<std::mutex> lock(impl_->mutex);
  return impl_->exit_codes[process.pid];
}

int LinuxPlatform::RunCapturing(const StartRequest& request,
                                const std::function<bool(const std::string&)>& on_line) {
  int fds[2];
  if (::pipe2(fds, O_CLOEXEC) != 0) return -1;
  std::optional<Process> process = Spawn(request, fds[1]);
  ::close(fds[1]);
  if (!process) {
    ::close(fds[0]);
    return -1;
  }
  const auto deadline =
      std::chrono::steady_clock::now() + std::chrono::seconds{request.time_limit_seconds};
  std::string line;
  bool after_cr = false, broken = false;
  char buf[4096];
  while (!broken) {
    if (request.time_limit_seconds > 0) {
      const auto left =
          std::chrono::duration_cast<milliseconds>(deadline - std::chrono::steady_clock::now());
      pollfd readable{fds[0], POLLIN, 0};
      const int r = left.count() > 0 ? ::poll(&readable, 1, static_cast<int>(left.count())) : 0;
      if (r < 0 && errno == EINTR) continue;
      if (r == 0) {
        End(*process);
        ::close(fds[0]);
        return kRunTimedOut;
      }
    }
    ssize_t n = ::read(fds[0], buf, sizeof buf);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;
    for (ssize_t i = 0; i < n && !broken; ++i) {
      char c = buf[i];
      if (c == '\n' && after_cr) {
        after_cr = false;
        continue;
      }
      after_cr = c == '\r';
      if (c == '\n' || c == '\r') {
        broken = !on_line(line);
        line.clear();
      } else {
        line += c;
      }
    }
  }
  if (!broken && !line.empty()) broken = !on_line(line);
  // Ended before the pipe closes, so that a break reads as the end we asked for and not as a
  // broken pipe in the child.
  if (broken)
    End(*process);
  else
    Wait(*process, milliseconds{-1});
  ::close(fds[0]);
  return ExitCode(*process);
}

bool LinuxPlatform::ShellOpen(const std::string& document, const std::string& parameters,
                              const fs::path& working_folder) {
  if (document.empty()) return false;
  fs::path folder = working_folder;
  bool is_file = FileExists(document);
  if (folder.empty() && is_file) folder = ResolveCase(document).parent_path();
  if (is_file && !parameters.empty() &&
      (IsWindowsProgram(document) || ::access(ResolveCase(document).c_str(), X_OK) == 0)) {
    StartRequest program{document, SplitCommandWords(parameters), folder, false};
    return Start(program).has_value();
  }
  StartRequest open{options_.opener, {document}, folder, false};
  return HandOver(open, milliseconds{3000});
}

bool LinuxPlatform::HandOver(const StartRequest& request, milliseconds patience) {
  std::optional<Process> child = Start(request);
  if (!child) return false;
  // A desktop helper normally hands over and ends soon; one that stays (it became the program
  // it started) counts as handed over and is reaped in the background, leaving no zombie.
  if (Wait(*child, patience) == WaitResult::Ended) return ExitCode(*child) == 0;
  int pid = child->pid;
  std::thread([pid] {
    int status;
    ::waitpid(pid, &status, 0);
  }).detach();
  return true;
}

namespace {

// The arguments of xdg-email for the message.
std::vector<std::string> MailCommandArguments(const MailMessage& message) {
  std::vector<std::string> words = {"--utf8", "--subject", message.subject, "--body", message.body};
  for (const fs::path& file : message.attachments) {
    words.push_back("--attach");
    words.push_back(fs::absolute(file).string());
  }
  if (!message.address.empty()) words.push_back(message.address);
  return words;
}

}  // namespace

bool LinuxPlatform::SendMail(const MailMessage& message) {
  // xdg-email ends once the mail program has the message; the user finishes it there.
  return HandOver({options_.mailer, MailCommandArguments(message), {}, false}, milliseconds{10000});
}

std::string LinuxPlatform::ReadRegistry(const std::string& key, const std::string& value) {
  return ReadWineRegistry(DefaultWinePrefix(), key, value);
}

std::vector<TopWindow> LinuxPlatform::ListTopWindows() {
  return ListX11TopWindows(impl_->OpenDisplay());
}

WindowHandle LinuxPlatform::FindProcessWindow(const Process& process) {
  Display* display = impl_->OpenDisplay();
  if (!display || !process.Valid()) return 0;
  return FindX11WindowOfProcesses(display, ProcessFamily(process.pid));
}

bool LinuxPlatform::ActivateWindow(WindowHandle window) {
  return ActivateX11Window(impl_->OpenDisplay(), window);
}

bool LinuxPlatform::GrabWindow(WindowHandle window, Bitmap& out) {
  return GrabX11Window(impl_->OpenDisplay(), window, out);
}

}  // namespace vardolin
