#include "web/dialog_download.h"

#include <chrono>
#include <cstdio>

#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "web/http_transfer.h"
#include "web/text_ids.h"

namespace vardolin {

Dialog_Download::Dialog_Download(Program& program) : Form(program, "Dialog_Download", " Download") {
  Timer1.SetEnabled(false);
}

void Dialog_Download::Set_Caption_Texts() {
  CaptionFromText(text::DownloadCaption);
  CaptionFromText(Pul_Stop, text::DownloadStop);
}

void Dialog_Download::ImpostaValori(const std::string& url, const std::filesystem::path& file) {
  NomeUrl = url;
  NomeFile = file;
  StopRequested = false;
  DownloadDone = false;
  Label_Info.SetCaption(program().GetText(text::DownloadPreparing) + ExtractUrlFileName(url));
  Timer1.SetEnabled(true);
}

void Dialog_Download::Timer1_Timer() {
  Timer1.SetEnabled(false);
  transferring_ = true;
  DownloadDone = Transfer();
  transferring_ = false;
  Unload();
}

std::string FormatTransferTime(std::int64_t seconds) {
  char out[48];
  std::snprintf(out, sizeof out, "%02lld' %02lld\"", static_cast<long long>(seconds / 60),
                static_cast<long long>(seconds % 60));
  return out;
}

bool Dialog_Download::ShowProgress(std::int64_t received, std::int64_t total,
                                   std::int64_t elapsed_ms) {
  Program& p = program();
  p.ui().DoEvents();
  if (StopRequested) return false;
  const std::string name = ExtractUrlFileName(NomeUrl);
  if (total > 0) {
    SetProgressPercent(ProgressBar1, static_cast<double>(total), static_cast<double>(received));
    const std::int64_t gone = elapsed_ms / 1000;
    // Nothing received yet tells nothing of the time left.
    const std::int64_t left =
        received > 0
            ? static_cast<std::int64_t>(static_cast<double>(total) / static_cast<double>(received) *
                                        static_cast<double>(gone)) -
                  gone
            : 0;
    Label_Info.SetCaption(p.GetText(text::DownloadProgress) + name + " (" +
                          FormatFileSize(static_cast<double>(received)) + " / " +
                          FormatFileSize(static_cast<double>(total)) + ") " +
                          FormatTransferTime(left) + p.GetText(text::DownloadTimeGone) +
                          FormatTransferTime(gone));
  } else {
    Label_Info.SetCaption(p.GetText(text::DownloadReceived) +
                          FormatFileSize(static_cast<double>(received)));
  }
  Refresh();
  return true;
}

bool Dialog_Download::Transfer() {
  Program& p = program();
  StopRequested = false;
  Label_Info.SetCaption(p.GetText(text::DownloadConnecting) + ExtractUrlFileName(NomeUrl));
  Refresh();
  p.ui().DoEvents();
  const auto start = std::chrono::steady_clock::now();
  const TransferResult r = HttpTransfer(NomeUrl, NomeFile, p.GetText(text::DownloadAgent),
                                        [&](std::int64_t received, std::int64_t total) {
                                          const auto elapsed =
                                              std::chrono::duration_cast<std::chrono::milliseconds>(
                                                  std::chrono::steady_clock::now() - start);
                                          return ShowProgress(received, total, elapsed.count());
                                        });
  // A server that can't be reached or refuses the file is the caller's to tell (the URL list
  // tries its next address); a transfer that broke off on the way is told here.
  if (r.outcome == TransferOutcome::Failed)
    AskUser(p, p.GetText(text::DownloadError) + r.error, msg::kError);
  return r.ok();
}

std::filesystem::path DownloadTarget(Program& program, const std::string& url) {
  std::string name = ExtractUrlFileName(url.substr(0, url.find_first_of("?#")));
  name = Trim(CleanFileName(RemoveNulls(name)));
  if (name.empty() || name == "." || name == "..") name = "download";
  const std::filesystem::path folder =
      JoinFragment(program.Home(), program.GetText(text::DownloadFolder));
  std::error_code ec;
  std::filesystem::create_directories(folder, ec);
  const SafeJoinResult target = SafeJoin(folder, name);
  return target && FolderExists(folder) ? target.path : std::filesystem::path();
}

bool DownloadToFile(Program& program, const std::string& url, const std::filesystem::path& target) {
  DeleteFileForced(target);
  Dialog_Download dialog(program);
  dialog.ImpostaValori(url, target);
  program.ui().ShowModal(dialog);
  return dialog.DownloadDone && FileExists(target);
}

}  // namespace vardolin
