#pragma once
// A Platform for tests that touch no process, drive or shell: it records what was asked and
// answers as a machine without that hardware would. Keys and joystick can be held by the test.

#include "foundation/pictures/bitmap.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/ports/platform.h"

namespace vardolin::testing {

// A drive as ListDrives gives it: `mount` its mount point, `type` a kDrive... value.
inline DriveInfo MakeDrive(std::string mount, int type, bool ready = true, double free = 1e12) {
  DriveInfo d;
  d.letter = std::move(mount);
  d.type = type;
  d.ready = ready;
  d.free_bytes = free;
  return d;
}

class RecordingPlatform : public Platform {
 public:
  std::vector<std::string> calls;
  std::map<int, bool> keys_down;
  bool joystick_present = false;
  JoystickState joystick;
  std::vector<DriveInfo> drives;
  // What FreeBytes tells for any path.
  double free_bytes = 1e12;
  // Registry values by key and value name, as the Wine prefix would hold them.
  std::map<std::pair<std::string, std::string>, std::string> registry;
  // The desktop: its windows from the topmost down, and what the screen and each window show.
  // An empty screen picture means there is no display to grab.
  std::vector<TopWindow> windows;
  Bitmap screen;
  std::map<WindowHandle, Bitmap> window_pictures;

  std::optional<Process> Start(const StartRequest&) override { return std::nullopt; }
  WaitResult Wait(Process&, std::chrono::milliseconds) override { return WaitResult::Failed; }
  bool IsRunning(const Process&) override { return false; }
  void End(Process&) override { calls.push_back("end"); }
  int ExitCode(const Process&) override { return -1; }
  int RunCapturing(const StartRequest&, const std::function<bool(const std::string&)>&) override {
    return -1;
  }
  bool IsKeyDown(int vk) override { return keys_down.count(vk) && keys_down.at(vk); }
  bool ReadJoystick(int number, JoystickState& state) override {
    calls.push_back("joystick " + std::to_string(number));
    if (joystick_present) state = joystick;
    return joystick_present;
  }
  void Beep(int hz, int ms) override { calls.push_back("beep " + std::to_string(hz)); }
  std::vector<DriveInfo> ListDrives() override { return drives; }
  // Optical drives: the kernel's drives, the mount table in mountinfo form and each drive's
  // state by device (a drive not named there can't be asked). Asking the state is recorded as
  // "status DEVICE", the door as "open DEVICE" and "close DEVICE".
  std::vector<OpticalDevice> optical;
  std::string mountinfo;
  std::map<std::string, int> optical_status;
  std::vector<OpticalDevice> ListOpticalDevices() override { return optical; }
  std::string ReadMountInfo() override { return mountinfo; }
  int OpticalDriveStatus(const std::string& device) override {
    calls.push_back("status " + device);
    return optical_status.count(device) ? optical_status.at(device) : kCdStatusUnknown;
  }
  bool OpticalDoor(const std::string& device, bool open) override {
    calls.push_back((open ? "open " : "close ") + device);
    return optical_status.count(device) > 0;
  }
  double FreeBytes(const std::filesystem::path&) override { return free_bytes; }
  // False makes the desktop find no program for what is opened.
  bool opener_answers = true;
  bool ShellOpen(const std::string& doc, const std::string&,
                 const std::filesystem::path&) override {
    calls.push_back("open " + doc);
    return opener_answers;
  }
  // The mail hand-over is the real one: the tests put a recording stand-in of the desktop's
  // mailer first on PATH.
  bool SendMail(const MailMessage& message) override { return LinuxPlatform().SendMail(message); }
  std::string ReadRegistry(const std::string& key, const std::string& value) override {
    return registry.count({key, value}) ? registry.at({key, value}) : std::string();
  }
  std::vector<TopWindow> ListTopWindows() override { return windows; }
  WindowHandle FindProcessWindow(const Process& process) override {
    for (const TopWindow& w : windows)
      if (process.Valid() && w.pid == process.pid) return w.handle;
    return 0;
  }
  bool ActivateWindow(WindowHandle window) override {
    calls.push_back("activate " + std::to_string(window));
    for (const TopWindow& w : windows)
      if (window != 0 && w.handle == window) return true;
    return false;
  }
  bool GrabWindow(WindowHandle window, Bitmap& out) override {
    auto it = window_pictures.find(window);
    if (window != 0 && it == window_pictures.end()) return false;
    out = window == 0 ? screen : it->second;
    return !out.Empty();
  }
};

}  // namespace vardolin::testing
