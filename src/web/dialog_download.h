#pragma once
// The small modal window every download goes through: what is being fetched, how far it has
// got, and a Stop button. The work starts on the first tick of its timer, once the window is up.

#include <cstdint>
#include <filesystem>
#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_Download : public Form {
 public:
  explicit Dialog_Download(Program& program);

  // Stores the address and the target, and arms the timer that starts the transfer.
  void ImpostaValori(const std::string& url, const std::filesystem::path& file);
  // The close box during a transfer stops it; the window then closes by itself.
  bool QueryUnload() override {
    StopRequested = true;
    return !transferring_;
  }

  std::string NomeUrl;
  std::filesystem::path NomeFile;
  bool StopRequested = false;
  bool DownloadDone = false;

  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Button Pul_Stop{*this, "Pul_Stop", "Stop", [this] { StopRequested = true; }};
  Timer Timer1{*this, "Timer1", [this] { Timer1_Timer(); }, 10};

 protected:
  void Set_Caption_Texts() override;

 private:
  void Timer1_Timer();
  bool Transfer();
  bool ShowProgress(std::int64_t received, std::int64_t total, std::int64_t elapsed_ms);
  bool transferring_ = false;
};

// Fetches `url` into `target` through the window; true when the whole file is there. A stopped
// or failed transfer leaves no target behind.
bool DownloadToFile(Program& program, const std::string& url, const std::filesystem::path& target);

// Where a file fetched from `url` lands: the program's download folder (text 9102 behind its
// home, made when missing), under the URL's last name without its query, made fit for a file
// name. So no download ever replaces a file of the program's own. Empty when the folder can't
// be made.
std::filesystem::path DownloadTarget(Program& program, const std::string& url);

// "mm' ss\"", as the window tells times.
std::string FormatTransferTime(std::int64_t seconds);

}  // namespace vardolin
