#include "intake/setup_program.h"

#include <chrono>
#include <fstream>
#include <system_error>

#include "archive/editor_backup.h"
#include "editor/dialog_tipo_exe.h"
#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/add_files.h"
#include "intake/text_ids.h"
#include "play/activation.h"
#include "play/editor_restore.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t kScannedFromSize = 40000;
constexpr std::streamoff kMarkPlace = 30272;  // the 30273rd byte
constexpr std::size_t kMarkBytes = 208;
constexpr std::size_t kTrailerBytes = 8;
constexpr std::size_t kHeadBytes = 624;

std::string ReadAt(const fs::path& file, std::streamoff at, std::size_t count) {
  std::ifstream in(file, std::ios::binary);
  in.seekg(at);
  std::string bytes(count, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(in.gcount(), 0)));
  return bytes;
}

enum class RunEnd { NotStarted, Ended, Stopped };

RunEnd RunUntilEndOrStop(Program& program, const fs::path& setup, const SetupRun& run) {
  StartRequest request{setup, {}, {}, false};
  std::optional<Process> process = program.platform().Start(request);
  if (!process) return RunEnd::NotStarted;
  while (program.platform().Wait(*process, std::chrono::milliseconds(100)) ==
         WaitResult::TimedOut) {
    program.ui().DoEvents();
    if (run.stop && run.stop()) {
      program.platform().End(*process);
      return RunEnd::Stopped;
    }
  }
  return RunEnd::Ended;
}

}  // namespace

fs::path FindSetupProgram(Program& program, const fs::path& folder) {
  fs::path found;
  for (const fs::path& file : ListFiles(ResolveCase(folder), "*.exe")) {
    std::string name = file.filename().string();
    if (EqualsNoCase(name, "setup.exe")) return file;
    bool never = EqualsNoCase(name, "start_me.exe") || EqualsNoCase(name, "madplay.exe") ||
                 ContainsNoCase(name, "read");
    for (std::int32_t id : {text::SetupNever1, text::SetupNever2, text::SetupNever3})
      never = never || EqualsNoCase(name, program.GetText(id));
    if (!never) found = file;
  }
  return found;
}

std::string DetectSetupDestination(Program& program, const fs::path& setup, std::string& kind) {
  auto T = [&](std::int32_t id) { return program.GetText(id); };
  kind = T(text::SetupKindUnknown);
  std::error_code ec;
  std::uintmax_t size = fs::file_size(setup, ec);
  if (ec) return {};
  if (size > kScannedFromSize &&
      !EqualsNoCase(setup.filename().string(), T(text::SetupNotScanned))) {
    std::string mark = std::string(1, '\0') + T(text::SetupMark1) + '\0';
    if (ReadAt(setup, kMarkPlace, kMarkBytes).find(mark) != std::string::npos) {
      kind = T(text::SetupKind1);
      return T(text::SetupDestination1);
    }
  }
  if (size >= kTrailerBytes) {
    int high = 0;
    for (char c : ReadAt(setup, static_cast<std::streamoff>(size - kTrailerBytes), kTrailerBytes))
      if (static_cast<unsigned char>(c) >= 128) ++high;
    if (high >= 3) {
      kind = T(text::SetupKind2);
      return T(text::SetupDestination2);
    }
  }
  std::string head = ReadAt(setup, 0, kHeadBytes);
  if (head.find(T(text::SetupMark3)) != std::string::npos) {
    kind = T(text::SetupKind3);
    return T(text::SetupDestination3);
  }
  if (head.find(T(text::SetupMark4)) != std::string::npos) {
    kind = T(text::SetupKind4);
    return T(text::SetupDestination4);
  }
  return {};
}

void CleanSetupFiles(Program& program, const fs::path& folder) {
  for (std::int32_t id : {text::SetupJunk1, text::SetupJunk2, text::SetupJunk3})
    DeleteMatchingFiles(folder, program.GetText(id));
  for (const fs::path& link : ListFiles(folder, program.GetText(text::SetupLinkPattern))) {
    DeleteFileForced(link);
    DeleteFileForced(JoinFragment(
        folder, program.GetText(text::SetupLinkCompanion) + ExtractBaseName(link.string())));
  }
}

bool RunSetupProgram(Program& program, const fs::path& program_folder, const fs::path& target,
                     std::string& destination, const SetupRun& run, EditorSnapshot* before) {
  auto T = [&](std::int32_t id, const std::vector<std::string>& v = {}) {
    return program.GetText(id, v);
  };
  ShowStatus(run.label, T(text::SetupResetting));
  SetLevelInTrle(program, 0);
  ShowStatus(run.label, {});
  // What stands now is the user's: afterwards only what the setup wrote is taken or undone.
  const std::string editor = Trim(program.prefs.EditorFolder);
  EditorSnapshot snapshot = TakeEditorSnapshot(editor);
  if (before) *before = snapshot;
  fs::path setup = FindSetupProgram(program, program_folder);
  if (setup.empty()) {
    AskUser(program, T(text::SetupNotFound), msg::kError);
    return false;
  }
  if (destination.empty()) {
    std::string kind;
    destination = DetectSetupDestination(program, setup, kind);
    if (!destination.empty()) AskUser(program, T(text::SetupDetected, {kind}), msg::kInformation);
  }
  ShowStatus(run.label, T(text::SetupRunning) + setup.filename().string());
  RunEnd end = RunUntilEndOrStop(program, setup, run);
  if (end == RunEnd::NotStarted) {
    AskUser(program, setup.string() + T(text::SetupNotStarted), msg::kError);
    return false;
  }
  if (end == RunEnd::Stopped) {
    ShowStatus(run.label, {});
    AskUser(program, T(text::SetupStopped), msg::kInformation);
    return false;
  }
  if (!destination.empty()) AskUser(program, T(text::SetupFinishFirst), msg::kInformation);

  fs::path from;
  bool into_editor = EqualsNoCase(destination, T(text::SetupIntoEditor)) ||
                     EqualsNoCase(destination, T(text::SetupIntoEditor2));
  if (into_editor) {
    from = editor;
  } else {
    Dialog_TipoExe where(program);
    where.ImpostaValori();
    program.ui().ShowModal(where);
    if (!where.ExitValue) return false;
    destination = where.Mask;
    from = where.Folder;
    into_editor = EqualsNoCase(destination, T(text::SetupDestinationTrle));
  }
  if (!into_editor) return AddFromFolder(program, target, run.bar, run.label, false, ".*", from);

  ShowStatus(run.label, T(text::SetupComparing));
  const std::vector<std::string> written = ChangesSince(snapshot, editor).written;
  ShowStatus(run.label, T(text::SetupCollecting));
  const bool full = program.prefs.FullBackupDone;
  const std::string kept = T(text::SetupKeptExtension);
  for (std::size_t i = 0; i < written.size(); ++i) {
    const std::string& name = written[i];
    fs::path written_file = ResolveCase(JoinFragment(editor, name));
    CopyFileOver(written_file, target / written_file.filename());
    std::string last = name.size() >= 4 ? name.substr(name.size() - 4) : name;
    if (full || !EqualsNoCase(last, kept)) UndoEditorFile(program, name);
    if (run.bar) run.bar->SetValue(static_cast<int>((i + 1) * 100 / written.size()));
    program.ui().DoEvents();
  }
  if (run.bar) run.bar->SetValue(0);
  ShowStatus(run.label, {});
  if (!full) AskUser(program, T(text::SetupPartialBackup), msg::kInformation);
  CleanSetupFiles(program, target);
  bool level = false;
  for (std::int32_t id : {text::SetupLevelFile1, text::SetupLevelFile2}) {
    std::string fragment = T(id);
    level = level ||
            !ListFiles(JoinFragment(target, ExtractFolder(fragment)), ExtractFileName(fragment))
                 .empty();
  }
  if (!level) {
    AskUser(program, T(text::SetupNoLevel), msg::kError);
    return false;
  }
  AskUser(program, T(text::SetupCollected), msg::kInformation);
  return true;
}

SetupOutcome RunSetupIfAny(Program& program, const fs::path& work_folder, std::string& destination,
                           bool& installer_found, const SetupRun& run) {
  auto T = [&](std::int32_t id) { return program.GetText(id); };
  fs::path work = ResolveCase(work_folder);
  if (!ListFiles(work, T(text::SetupLevelPattern)).empty()) return SetupOutcome::NoSetup;
  for (const fs::path& exe : ListFiles(work, T(text::SetupProgramPattern)))
    if (EqualsNoCase(exe.filename().string(), T(text::SetupOwnGame))) return SetupOutcome::NoSetup;
  if (FindSetupProgram(program, work).empty()) return SetupOutcome::NoSetup;
  installer_found = true;
  if (AskUser(program, T(text::SetupAsk), msg::kYesNo) != msg::kYes) return SetupOutcome::Declined;
  AskUser(program, T(text::SetupStarting), msg::kInformation);

  fs::path collect = JoinFragment(program.Home(), T(text::SetupCollectFolder));
  MakeEmptyFolder(collect);
  EditorSnapshot before;
  if (!RunSetupProgram(program, work, collect, destination, run, &before)) {
    destination.clear();
    AskUser(program, T(text::SetupFailed), msg::kError);
    DeleteFolderTree(collect);
    DeleteMatchingFiles(work, T(text::SetupFailedClean));
    AskRestoreConfiguration(program, run.label, run.bar, &before);
    return SetupOutcome::Failed;
  }
  destination.clear();
  ShowStatus(run.label, T(text::SetupEmptying));
  DeleteMatchingFiles(work, "*");
  ShowStatus(run.label, T(text::SetupCopying));
  CopyFilesWithProgress(program, collect, work, run.bar, true, "*");
  DeleteFileForced(JoinFragment(work, T(text::SetupLeftover)));
  ShowStatus(run.label, T(text::SetupCleaning));
  DeleteFolderTree(collect);
  ShowStatus(run.label, {});
  return SetupOutcome::Collected;
}

}  // namespace vardolin
