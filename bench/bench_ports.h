#pragma once
// The ports every benchmark hands its Program: nobody is asked anything and no hardware answers,
// so what is timed is the program's own work. A question that does come up is printed, since it
// means the bench has gone off its good road.

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"

namespace vardolin::bench {

class SilentUi : public Ui {
 public:
  int AskUser(const std::string& text, int, const std::string&) override {
    std::fprintf(stderr, "bench: asked \"%s\"\n", text.c_str());
    return msg::kOk;
  }
  std::string AskInput(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
  std::string AskFolder(const std::string&, const std::string&) override { return {}; }
  std::string AskOpenFile(const FileRequest&) override { return {}; }
  std::string AskSaveFile(const FileRequest&) override { return {}; }
  void ShowModal(Form&) override {}
  void ShowModeless(Form&) override {}
  void DoEvents() override {}
  void SetClipboardText(const std::string&) override {}
  std::string ClipboardText() override { return {}; }
  bool ClipboardHasImage() override { return false; }
  bool ClipboardImage(Bitmap&) override { return false; }
  bool SetClipboardImage(const Bitmap&) override { return false; }
  void ClearClipboard() override {}
  const Form* ActiveForm() override { return nullptr; }
};

class NoPlatform : public Platform {
 public:
  std::optional<Process> Start(const StartRequest&) override { return std::nullopt; }
  WaitResult Wait(Process&, std::chrono::milliseconds) override { return WaitResult::Failed; }
  bool IsRunning(const Process&) override { return false; }
  void End(Process&) override {}
  int ExitCode(const Process&) override { return -1; }
  int RunCapturing(const StartRequest&, const std::function<bool(const std::string&)>&) override {
    return -1;
  }
  bool IsKeyDown(int) override { return false; }
  bool ReadJoystick(int, JoystickState&) override { return false; }
  void Beep(int, int) override {}
  std::vector<DriveInfo> ListDrives() override { return {}; }
  // Plenty of room, so that no free-space check stops a copy.
  double FreeBytes(const std::filesystem::path&) override { return 1e12; }
  bool ShellOpen(const std::string&, const std::string&, const std::filesystem::path&) override {
    return false;
  }
  bool SendMail(const MailMessage&) override { return false; }
  std::string ReadRegistry(const std::string&, const std::string&) override { return {}; }
  std::vector<TopWindow> ListTopWindows() override { return {}; }
  WindowHandle FindProcessWindow(const Process&) override { return 0; }
  bool ActivateWindow(WindowHandle) override { return false; }
  bool GrabWindow(WindowHandle, Bitmap&) override { return false; }
};

}  // namespace vardolin::bench
