#pragma once
// The platform port: processes, keys, joystick, sound, drives and the desktop shell. The Linux
// implementation lives in foundation/platform; tests use it wherever the machine has the thing
// and small recording fakes for the hardware it lacks.

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vardolin {

struct Bitmap;

struct StartRequest {
  std::filesystem::path program;
  std::vector<std::string> arguments;
  // Empty: the program's own folder, as the game and the editor's tools expect.
  std::filesystem::path working_folder;
  bool hidden = false;
  // RunCapturing reads standard error on the same pipe: console tools report progress there.
  bool capture_errors = false;
  // RunCapturing ends a program that runs longer than this; 0 lets it run as long as it likes.
  int time_limit_seconds = 0;
};

// RunCapturing's answer for a program it ended at its time limit.
inline constexpr int kRunTimedOut = -2;

// A started child. `pid` is the process that is watched; for a Windows program that is the
// Wine loader we started, whatever else Wine leaves behind.
struct Process {
  int pid = -1;
  bool Valid() const { return pid > 0; }
};

enum class WaitResult { Ended, TimedOut, Failed };

// Drive types as the program counts them.
inline constexpr int kDriveUnknown = 0;
inline constexpr int kDriveRemovable = 1;
inline constexpr int kDriveFixed = 2;
inline constexpr int kDriveRemote = 3;
inline constexpr int kDriveCdRom = 4;

// A drive is a mount point on Linux: `letter` holds the mount point's path.
struct DriveInfo {
  std::string letter;
  int type = kDriveUnknown;
  bool ready = false;
  std::uint32_t serial = 0;
  std::string volume_name;
  double total_bytes = 0;
  double free_bytes = 0;
  std::string share_name;
};

// An optical drive as the kernel names it: "sr0", its device "/dev/sr0" and the device number
// "11:0" by which the mount table names what is mounted from it.
struct OpticalDevice {
  std::string name;
  std::string device;
  std::string number;
};

// What an optical drive says of its disc (the kernel's CDS_ values); kCdStatusUnknown when the
// drive can't be asked.
inline constexpr int kCdStatusUnknown = -1;
inline constexpr int kCdStatusNoInfo = 0;
inline constexpr int kCdStatusNoDisc = 1;
inline constexpr int kCdStatusTrayOpen = 2;
inline constexpr int kCdStatusNotReady = 3;
inline constexpr int kCdStatusDiscOk = 4;

struct JoystickState {
  std::uint32_t x = 32767;
  std::uint32_t y = 32767;
  std::uint32_t z = 32767;
  std::uint32_t buttons = 0;
};

// A top-level window of the desktop session. The handle 0 stands for none, and for the whole
// screen where a picture is taken.
using WindowHandle = std::uint64_t;
struct TopWindow {
  WindowHandle handle = 0;
  std::string title;
  int pid = 0;  // the process that owns it, 0 when the window doesn't tell
  bool visible = false;
};

// A message handed to the desktop's mail program, which shows it for the user to finish (the
// recipient, when none is given) and send.
struct MailMessage {
  std::string subject;
  std::string body;
  std::string address;  // may be empty
  std::vector<std::filesystem::path> attachments;
};

class Platform {
 public:
  virtual ~Platform() = default;

  // Processes. A `.exe` beginning with "MZ" goes through Wine; a native program runs directly.
  virtual std::optional<Process> Start(const StartRequest& request) = 0;
  virtual WaitResult Wait(Process& process, std::chrono::milliseconds timeout) = 0;
  virtual bool IsRunning(const Process& process) = 0;
  virtual void End(Process& process) = 0;
  // Asks the process to end and returns at once, for a window that must not freeze meanwhile;
  // the end is seen later by Wait and IsRunning. Where a platform can't, it ends it as End does.
  virtual void EndWithoutWaiting(Process& process) { End(process); }
  // Exit code of an ended process, -1 when unknown.
  virtual int ExitCode(const Process& process) = 0;
  // Runs a program with its standard output on a pipe and hands each line to `on_line`; a false
  // answer from the handler ends the program. Gives the exit code, -1 when it couldn't start, or
  // kRunTimedOut.
  virtual int RunCapturing(const StartRequest& request,
                           const std::function<bool(const std::string& line)>& on_line) = 0;

  // Keys and joystick. Virtual-key codes as the program knows them (VK_F9 = 0x78 ...). A key
  // reads down while it is held, and once after a press that was over before it was asked.
  virtual bool IsKeyDown(int virtual_key) = 0;
  virtual bool ReadJoystick(int number, JoystickState& state) = 0;
  virtual void Beep(int frequency_hz, int milliseconds) = 0;

  // Drives: the mount points of the machine.
  virtual std::vector<DriveInfo> ListDrives() = 0;
  virtual double FreeBytes(const std::filesystem::path& any_path) = 0;

  // Optical drives, raw: the drives the kernel knows, its mount table (mountinfo form), a drive's
  // state and its door. The CD subsystem makes drives and mount points of them. A platform
  // without optical drives keeps these answers.
  virtual std::vector<OpticalDevice> ListOpticalDevices() { return {}; }
  virtual std::string ReadMountInfo() { return {}; }
  virtual int OpticalDriveStatus(const std::string& /*device*/) { return kCdStatusUnknown; }
  // Opens the door (ejecting the disc) or closes it; false when the drive refused.
  virtual bool OpticalDoor(const std::string& /*device*/, bool /*open*/) { return false; }

  // Desktop.
  virtual bool ShellOpen(const std::string& document, const std::string& parameters,
                         const std::filesystem::path& working_folder) = 0;
  // False when there is no mail program or it refused the message.
  virtual bool SendMail(const MailMessage& message) = 0;
  // Windows registry reads answer empty on Linux, but for the Wine prefix's own registry.
  virtual std::string ReadRegistry(const std::string& key, const std::string& value) = 0;

  // Windows of the desktop session. Without one they answer empty, 0 or false.
  // Top-level windows from the topmost down.
  virtual std::vector<TopWindow> ListTopWindows() = 0;
  // The topmost visible window of the process or of a process it started (else its topmost
  // hidden one); 0 when it has none.
  virtual WindowHandle FindProcessWindow(const Process& process) = 0;
  // Brings the window to the front, maximised, with the keyboard focus.
  virtual bool ActivateWindow(WindowHandle window) = 0;
  // What the screen shows of the window (of the whole screen for 0).
  virtual bool GrabWindow(WindowHandle window, Bitmap& out) = 0;
};

}  // namespace vardolin
