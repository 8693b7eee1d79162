#include "foundation/platform/linux_platform.h"

#include <SDL.h>
#include <X11/Xlib.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <mutex>
#include <set>
#include <thread>

#include "foundation/platform/mounts.h"
#include "foundation/platform/virtual_keys.h"
#include "foundation/platform/wine_registry.h"
#include "foundation/platform/x11_windows.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"

extern char** environ;

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

bool IsWindowsProgram(const fs::path& program) {
  if (!EndsWithNoCase(program.string(), ".exe")) return false;
  std::ifstream in(ResolveCase(program), std::ios::binary);
  char head[2] = {};
  return in.read(head, 2) && head[0] == 'M' && head[1] == 'Z';
}

// The file a command word names: a word with a '/' as it stands, else the first executable of
// that name on PATH. Empty when there is none.
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

std::map<std::string, std::string> DiskLabels() {
  std::map<std::string, std::string> labels;  // real device path -> label
  std::error_code ec;
  for (fs::directory_iterator it("/dev/disk/by-label", ec), end; !ec && it != end;
       it.increment(ec)) {
    std::string raw = it->path().filename().string(), label;
    for (std::size_t i = 0; i < raw.size(); ++i) {
      if (raw.compare(i, 2, "\\x") == 0 && i + 3 < raw.size()) {
        label += static_cast<char>(std::stoi(raw.substr(i + 2, 2), nullptr, 16));
        i += 3;
      } else {
        label += raw[i];
      }
    }
    std::error_code link_ec;
    fs::path device = fs::canonical(it->path(), link_ec);
    if (!link_ec) labels[device.string()] = label;
  }
  return labels;
}

}  // namespace

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

struct LinuxPlatform::Impl {
  std::mutex mutex;
  std::map<int, int> exit_codes;  // children we have reaped

  bool display_tried = false;
  Display* display = nullptr;

  // The X display of the session, opened at first need; null without one.
  Display* OpenDisplay() {
    if (!display_tried) {
      display_tried = true;
      const char* name = std::getenv("DISPLAY");
      if (name && *name) display = XOpenDisplay(nullptr);
    }
    return display;
  }

  bool joystick_tried = false, joystick_ok = false;
  std::map<int, SDL_Joystick*> joysticks;

  bool audio_tried = false;
  SDL_AudioDeviceID audio = 0;
  int audio_rate = 44100;

  // Reaps `pid` if it has ended; true when its exit code is known.
  bool Reap(int pid, bool block) {
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

  ~Impl() {
    if (display) XCloseDisplay(display);
    for (auto& [n, js] : joysticks)
      if (js) SDL_JoystickClose(js);
    if (joystick_ok) SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    if (audio) SDL_CloseAudioDevice(audio);
    if (audio_tried) SDL_QuitSubSystem(SDL_INIT_AUDIO);
  }
};

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

  std::vector<char*> argv;
  for (std::string& w : words) argv.push_back(w.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (!folder.empty()) posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
  if (stdout_fd >= 0) posix_spawn_file_actions_adddup2(&actions, stdout_fd, STDOUT_FILENO);
  posix_spawnattr_t attr;
  posix_spawnattr_init(&attr);
  sigset_t none, all;
  sigemptyset(&none);
  sigfillset(&all);
  posix_spawnattr_setsigmask(&attr, &none);
  posix_spawnattr_setsigdefault(&attr, &all);
  posix_spawnattr_setflags(&attr, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  pid_t pid = -1;
  int rc = posix_spawn(&pid, executable.c_str(), &actions, &attr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attr);
  if (rc != 0 || pid <= 0) {
    // Callers log the system's error code of a failed start.
    errno = rc != 0 ? rc : ECHILD;
    return std::nullopt;
  }
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
  std::string line;
  bool after_cr = false, broken = false;
  char buf[4096];
  while (!broken) {
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

bool LinuxPlatform::IsKeyDown(int virtual_key) {
  if (!impl_->OpenDisplay()) return false;
  char keys[32] = {};
  XQueryKeymap(impl_->display, keys);
  for (unsigned long sym : KeySymsOfVirtualKey(virtual_key)) {
    KeyCode code = XKeysymToKeycode(impl_->display, sym);
    if (code != 0 && (keys[code / 8] & (1 << (code % 8)))) return true;
  }
  return false;
}

bool LinuxPlatform::ReadJoystick(int number, JoystickState& state) {
  Impl& d = *impl_;
  if (!d.joystick_tried) {
    d.joystick_tried = true;
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    d.joystick_ok = SDL_InitSubSystem(SDL_INIT_JOYSTICK) == 0;
  }
  if (!d.joystick_ok || number < 0) return false;
  SDL_PumpEvents();
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  SDL_JoystickUpdate();
  SDL_Joystick*& js = d.joysticks[number];
  if (js && !SDL_JoystickGetAttached(js)) {
    SDL_JoystickClose(js);
    js = nullptr;
  }
  if (!js && number < SDL_NumJoysticks()) js = SDL_JoystickOpen(number);
  if (!js) return false;
  auto axis = [&](int i) -> std::uint32_t {
    if (i >= SDL_JoystickNumAxes(js)) return 32767;
    return static_cast<std::uint32_t>(SDL_JoystickGetAxis(js, i) + 32768);
  };
  state.x = axis(0);
  state.y = axis(1);
  state.z = axis(2);
  state.buttons = 0;
  int buttons = std::min(SDL_JoystickNumButtons(js), 32);
  for (int i = 0; i < buttons; ++i)
    if (SDL_JoystickGetButton(js, i)) state.buttons |= 1u << i;
  return true;
}

void LinuxPlatform::Beep(int frequency_hz, int ms) {
  Impl& d = *impl_;
  if (!d.audio_tried) {
    d.audio_tried = true;
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) == 0) {
      SDL_AudioSpec want{}, have{};
      want.freq = 44100;
      want.format = AUDIO_S16SYS;
      want.channels = 1;
      want.samples = 1024;
      d.audio = SDL_OpenAudioDevice(nullptr, 0, &want, &have, SDL_AUDIO_ALLOW_FREQUENCY_CHANGE);
      if (d.audio) d.audio_rate = have.freq;
    }
  }
  if (!d.audio || frequency_hz <= 0 || ms <= 0) return;
  const int count = static_cast<int>(static_cast<long long>(d.audio_rate) * ms / 1000);
  const int fade = std::min(count / 2, d.audio_rate / 200);  // 5 ms ramps keep it from clicking
  std::vector<std::int16_t> samples(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    double gain = 1.0;
    if (fade > 0) gain = std::min({1.0, double(i) / fade, double(count - 1 - i) / fade});
    samples[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(
        9000 * gain * std::sin(2 * M_PI * frequency_hz * i / d.audio_rate));
  }
  SDL_QueueAudio(d.audio, samples.data(), static_cast<Uint32>(samples.size() * 2));
  SDL_PauseAudioDevice(d.audio, 0);
  auto deadline = Clock::now() + milliseconds(ms + 200);
  while (SDL_GetQueuedAudioSize(d.audio) > 0 && Clock::now() < deadline)
    std::this_thread::sleep_for(milliseconds(5));
  SDL_ClearQueuedAudio(d.audio);
}

std::vector<DriveInfo> LinuxPlatform::ListDrives() {
  std::vector<DriveInfo> drives;
  std::string table = ReadWholeFile(options_.mounts_file);
  std::map<std::string, std::string> labels = DiskLabels();
  std::set<std::string> mounted_devices;
  for (const MountEntry& m : ParseMounts(table)) {
    int type = ClassifyMount(m, options_.sys_root);
    if (type < 0) continue;
    std::error_code ec;
    if (!fs::is_directory(m.mount_point, ec)) continue;  // files bound into a container
    DriveInfo d;
    d.letter = m.mount_point;
    d.type = type;
    if (type == kDriveRemote) d.share_name = m.device;
    std::error_code dev_ec;
    fs::path device = m.device;
    if (m.device.rfind("/dev/", 0) == 0) {
      fs::path real = fs::canonical(m.device, dev_ec);
      if (!dev_ec) device = real;
      mounted_devices.insert(device.string());
    }
    struct statvfs st;
    if (::statvfs(m.mount_point.c_str(), &st) == 0) {
      d.ready = true;
      d.serial = static_cast<std::uint32_t>(st.f_fsid);
      d.total_bytes = static_cast<double>(st.f_blocks) * st.f_frsize;
      d.free_bytes = static_cast<double>(st.f_bavail) * st.f_frsize;
      auto label = labels.find(device.string());
      if (label != labels.end()) d.volume_name = label->second.substr(0, 64);
    }
    drives.push_back(std::move(d));
  }
  // Optical drives with no disc in them are there too, like an empty drive letter.
  std::error_code ec;
  for (fs::directory_iterator it(options_.sys_root / "block", ec), end; !ec && it != end;
       it.increment(ec)) {
    std::string name = it->path().filename().string();
    if (name.rfind("sr", 0) != 0) continue;
    std::string device = "/dev/" + name;
    std::error_code dev_ec;
    fs::path real = fs::canonical(device, dev_ec);
    if (mounted_devices.count(dev_ec ? device : real.string())) continue;
    DriveInfo d;
    d.letter = device;
    d.type = kDriveCdRom;
    drives.push_back(std::move(d));
  }
  return drives;
}

double LinuxPlatform::FreeBytes(const fs::path& any_path) {
  std::error_code ec;
  fs::path p = fs::absolute(any_path, ec);
  if (ec) return -1;
  while (!p.empty() && !fs::exists(p, ec)) {
    if (p == p.parent_path()) break;
    p = p.parent_path();
  }
  struct statvfs st;
  if (p.empty() || ::statvfs(p.c_str(), &st) != 0) return -1;
  return static_cast<double>(st.f_bavail) * st.f_frsize;
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
  std::optional<Process> opener = Start(open);
  if (!opener) return false;
  // The opener normally hands over and ends at once; one that stays is reaped in the
  // background so that it leaves no zombie.
  if (Wait(*opener, milliseconds{3000}) == WaitResult::Ended) return ExitCode(*opener) == 0;
  int pid = opener->pid;
  std::thread([pid] {
    int status;
    ::waitpid(pid, &status, 0);
  }).detach();
  return true;
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
