// The install's entry points and the checks around it.

#include <system_error>

#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "editor/dialog_installa_trle.h"
#include "editor/editor_languages.h"
#include "editor/find_editor.h"
#include "editor/install_editor.h"
#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/platform/wine_registry.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "play/activation.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr int kMostMissingTold = 10;
// The room the compressed setup asks for on the drive of the program files.
constexpr double kCompressedSetupRoom = 262144000;

}  // namespace

bool VerifyFileList(Program& program, const fs::path& list, const fs::path& base, int& errors,
                    const InstallErrorQuestion& ask) {
  std::string text = ReadWholeFile(ResolveCase(list));
  if (text.empty()) {
    if (ask(program.GetText(text::InstallListMissing) + "'" + list.parent_path().string() + "'"))
      return false;
    ++errors;
    return true;
  }
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
    lines.push_back(text.substr(start, end - start));
  // What follows the last line end is not a line of the list (an empty remainder, as a list
  // written line by line ends).
  std::string report;
  for (std::string line : lines) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    line = Trim(line);
    if (line.empty()) continue;
    // A name that would lead out of the base names no file of the editor: it counts as missing.
    SafeJoinResult file = SafeJoin(base, line);
    if (file && FileExists(file.path)) continue;
    report += "\"" + line + "\"" + kLineEnd;
    if (++errors >= kMostMissingTold) {
      report += program.GetText(text::InstallListMore);
      break;
    }
  }
  if (report.empty()) return true;
  return !ask(program.GetText(text::InstallFilesMissing) + kLineEnd + report);
}

fs::path EditorInSetupFolder(Program& program, const fs::path& folder) {
  auto holds_editor = [&program](const fs::path& f) {
    return FileExists(ResolveCase(JoinFragment(f, program.GetText(text::EditorMarkerFile1)))) &&
           FileExists(ResolveCase(JoinFragment(f, program.GetText(text::EditorMarkerFile2))));
  };
  if (holds_editor(folder)) return folder;
  fs::path found;
  for (const fs::path& sub : ListSubfolders(folder)) {
    if (!holds_editor(sub)) continue;
    if (!found.empty()) return {};  // which of them is meant can't be told
    found = sub;
  }
  return found;
}

bool InstallEditorFromFolder(Program& program, const std::string& folder, Label& label,
                             ProgressBar& bar) {
  int language = 0;
  const auto& rows = EditorLanguages();
  const fs::path editor = EditorInSetupFolder(program, folder);
  for (std::size_t i = 0; i < rows.size() && !editor.empty(); ++i) {
    if (FileExists(ResolveCase(editor / rows[i].language_data))) {
      language = static_cast<int>(i);
      break;
    }
  }
  return InstallEditor(program, false, language, folder, label, bar, {}, nullptr);
}

bool InstallCompressedEditor(Program& program) {
  fs::path files = ProgramFilesFolder();
  std::error_code ec;
  fs::create_directories(files, ec);
  double free_bytes = DiskFreeBytes(program.platform(), files);
  if (free_bytes < kCompressedSetupRoom) {
    std::string drive = DriveOfPath(program.platform(), files);
    if (drive.empty()) drive = files.root_path().string();
    std::string question =
        program.GetText(text::InstallLittleRoom) + kLineEnd +
        program.GetText(text::InstallRoomDetail,
                        {FormatFileSize(kCompressedSetupRoom), drive, FormatFileSize(free_bytes)});
    if (AskUser(program, question, msg::kYesNo) != msg::kYes) return false;
  }
  Dialog_InstallaTrle dialog(program);
  dialog.ImpostaValori();
  program.ui().ShowModal(dialog);
  return dialog.ExitValue;
}

bool RemoveInstalledEditor(Program& program) {
  std::string editor = Trim(program.prefs.EditorFolder);
  if (editor.empty() || !CheckEditorFolder(program, editor, false)) return true;
  if (AskUser(program, program.GetText(text::InstallReplaceAsk), msg::kYesNo) != msg::kYes)
    return false;
  SetLevelInTrle(program, 0);
  ShowProgressDialog(program);
  Dialog_Progress* dialog = ProgressDialog(program);
  // A tree copied from a CD is read-only; the level store's removal handles that.
  DeleteLevelTree(program, editor, dialog ? &dialog->Label_Info : nullptr,
                  dialog ? &dialog->ProgressBar1 : nullptr, text::RemovingFolders);
  HideProgressDialog(program);
  return true;
}

}  // namespace vardolin
