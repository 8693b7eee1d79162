#pragma once
// The Platform of a Linux desktop: child processes (Windows programs through Wine), X key state
// and XInput2 key presses, SDL2 joystick and sound, mount points as drives, xdg-open, the Wine
// prefix's registry, and the X windows of the session. Its three parts: linux_processes.cpp,
// linux_keys_joystick_beep.cpp and linux_drives.cpp.

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/ports/platform.h"

namespace vardolin {

// Cuts a command text into words at blanks; double quotes group blanks into a word.
std::vector<std::string> SplitCommandWords(std::string_view text);
// A file ending in .exe whose first bytes are "MZ": the platform starts it through Wine.
bool IsWindowsProgram(const std::filesystem::path& program);
// The file a command word names: a word with a '/' as it stands, else the first executable of
// that name on PATH. Empty when there is none.
std::filesystem::path FindExecutable(const std::string& word);
// Opens (true) or closes (false) the tray of the optical drive at the device path, opened
// without waiting for a disc; false when the device can't be opened or refuses.
bool MoveOpticalDoor(const std::string& device, bool open);

class LinuxPlatform : public Platform {
 public:
  struct Options {
    // The command ShellOpen hands documents and addresses to.
    std::string opener = "xdg-open";
    // The command SendMail hands messages to, as the words of its arguments.
    std::string mailer = "xdg-email";
    // Where the mount table and the kernel's device attributes are read.
    std::filesystem::path mounts_file = "/proc/self/mounts";
    std::filesystem::path mountinfo_file = "/proc/self/mountinfo";
    std::filesystem::path sys_root = "/sys";
    // How long End waits after SIGTERM before SIGKILL.
    std::chrono::milliseconds end_grace{500};
  };

  LinuxPlatform();
  explicit LinuxPlatform(Options options);
  ~LinuxPlatform() override;
  LinuxPlatform(const LinuxPlatform&) = delete;
  LinuxPlatform& operator=(const LinuxPlatform&) = delete;

  // A program file ending in .exe whose first bytes are "MZ" is started as the words of
  // $VARDOLIN_WINE (else "wine") followed by its path and the arguments. The working folder
  // defaults to the program's own folder; `hidden` has no meaning here.
  std::optional<Process> Start(const StartRequest& request) override;
  // A negative timeout waits as long as it takes.
  WaitResult Wait(Process& process, std::chrono::milliseconds timeout) override;
  bool IsRunning(const Process& process) override;
  // SIGTERM, then SIGKILL when the process is still there after the grace time.
  void End(Process& process) override;
  // SIGTERM now, SIGKILL from a thread of its own when the grace time passes first.
  void EndWithoutWaiting(Process& process) override;
  // The exit status, or 128 + the signal for a process a signal ended; -1 while it runs.
  int ExitCode(const Process& process) override;
  // Lines end at LF, CR LF or a lone CR (progress lines of console tools). A last line without
  // an end is handed over too. When the handler answers false the program is ended and its
  // exit code (128 + the signal) is given.
  int RunCapturing(const StartRequest& request,
                   const std::function<bool(const std::string& line)>& on_line) override;

  // Held, or pressed since the key was last asked for (XInput2 raw events, whichever window has
  // the focus; a press is kept two seconds at most). Without an X display every key reads up.
  bool IsKeyDown(int virtual_key) override;
  // Axes scaled to 0..65535, button i in bit i; false without that joystick.
  bool ReadJoystick(int number, JoystickState& state) override;
  // A sine tone; silent when the machine has no sound device.
  void Beep(int frequency_hz, int milliseconds) override;

  // Mounted drives, then optical drives without a mounted disc (their device path as letter,
  // not ready).
  std::vector<DriveInfo> ListDrives() override;
  // Bytes available to the user on the file system of the path (or of its nearest existing
  // folder); -1 when that can't be told.
  double FreeBytes(const std::filesystem::path& any_path) override;
  // /sys/block/sr*, /proc/self/mountinfo, and the CDROM_DRIVE_STATUS, CDROMEJECT and
  // CDROMCLOSETRAY requests on the device opened without waiting for a disc.
  std::vector<OpticalDevice> ListOpticalDevices() override;
  std::string ReadMountInfo() override;
  int OpticalDriveStatus(const std::string& device) override;
  bool OpticalDoor(const std::string& device, bool open) override;

  // A program file with parameters is started directly; anything else (a document, an
  // address, a folder) goes to the opener. True when it could be handed over.
  // Runs the mailer with --utf8, --subject, --body, an --attach per file and the address, and
  // waits for it to hand the message over: true when it ended with 0.
  bool SendMail(const MailMessage& message) override;
  bool ShellOpen(const std::string& document, const std::string& parameters,
                 const std::filesystem::path& working_folder) override;
  // From the registry of $WINEPREFIX (else ~/.wine); empty without one.
  std::string ReadRegistry(const std::string& key, const std::string& value) override;

  // Windows of the X display named by $DISPLAY. A Windows program's window belongs to the Wine
  // process we started or to one that process started.
  std::vector<TopWindow> ListTopWindows() override;
  WindowHandle FindProcessWindow(const Process& process) override;
  bool ActivateWindow(WindowHandle window) override;
  bool GrabWindow(WindowHandle window, Bitmap& out) override;

  // The words that Start runs for the request: Wine's in front for a Windows program.
  std::vector<std::string> CommandLine(const StartRequest& request) const;

 private:
  // Starts a desktop helper and gives it `patience` to end: true when it ended with 0 or is
  // still at work then.
  bool HandOver(const StartRequest& request, std::chrono::milliseconds patience);
  struct Impl;
  std::optional<Process> Spawn(const StartRequest& request, int stdout_fd);
  Options options_;
  std::unique_ptr<Impl> impl_;
};

}  // namespace vardolin
