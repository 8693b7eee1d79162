#include "editor/find_editor.h"

#include <cctype>

#include "archive/editor_backup.h"
#include "editor/dialog_trova_trle.h"
#include "editor/install_editor.h"
#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/platform/wine_registry.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

bool CheckEditorFolder(Program& program, const std::string& folder, bool show) {
  RestoreGameExe(program);
  if (Trim(folder).empty()) {
    if (show) AskUser(program, program.GetText(text::EditorFolderNotChosen), msg::kWarning);
    return false;
  }
  if (!FileExists(JoinFragment(folder, program.GetText(text::EditorMarkerFile1)))) {
    if (show) AskUser(program, program.GetText(text::EditorMarker1Missing) + folder, msg::kError);
    return false;
  }
  if (!FileExists(JoinFragment(folder, program.GetText(text::EditorMarkerFile2)))) {
    if (show) AskUser(program, program.GetText(text::EditorMarker2Missing, {folder}), msg::kError);
    return false;
  }
  return true;
}

void RestoreGameExe(Program& program) {
  std::string editor = Trim(program.prefs.EditorFolder);
  if (editor.empty() || !FolderExists(editor)) return;
  // Without a level in data this is a folder somebody is still setting up, not an installed
  // editor that lost its game.
  if (ListFiles(ResolveCase(JoinFragment(editor, "\\data")), "*.tr4").empty()) return;
  fs::path target = JoinFragment(editor, kGameProgram);
  if (FileExists(target)) return;
  fs::path source = ResolveCase(EditorBackupFolder(program) / kGameProgram);
  if (!FileExists(source)) source = ResolveCase(program.Home() / kGameProgram);
  CopyFileOver(source, target);
}

bool FindEditorFolder(Program& program) {
  Dialog_TrovaTrle dialog(program);
  if (dialog.ImpostaValori()) return true;
  program.ui().ShowModal(dialog);
  return dialog.ExitValue;
}

std::string EditorFolderOfAppPath(Program& program, const std::string& value) {
  if (ContainsNoCase(value, program.GetText(text::RoomEditorFileName))) return ExtractFolder(value);
  return value;
}

fs::path WinePathToNative(const fs::path& prefix, std::string_view windows_path) {
  std::string path = Trim(windows_path);
  // App Paths values are sometimes written in quotes, as a command line would hold them.
  if (path.size() >= 2 && path.front() == '"' && path.back() == '"')
    path = path.substr(1, path.size() - 2);
  if (path.size() < 2 || path[1] != ':' || !std::isalpha(static_cast<unsigned char>(path[0])))
    return {};
  char letter = static_cast<char>(std::tolower(static_cast<unsigned char>(path[0])));
  fs::path native =
      letter == 'c' ? prefix / "drive_c" : prefix / "dosdevices" / (std::string(1, letter) + ":");
  std::string part;
  for (std::size_t i = 2; i <= path.size(); ++i) {
    if (i == path.size() || path[i] == '\\' || path[i] == '/') {
      // The value only names a folder for the user to confirm, but it must not lead out of
      // the drive it names.
      if (part == "..") return {};
      if (!part.empty() && part != ".") native /= part;
      part.clear();
    } else {
      part += path[i];
    }
  }
  return ResolveCase(native);
}

std::string FindEditorInRegistry(Program& program) {
  std::string value = Trim(program.platform().ReadRegistry(kRoomEditorAppPathKey, ""));
  if (value.empty()) return {};
  return WinePathToNative(DefaultWinePrefix(), EditorFolderOfAppPath(program, value)).string();
}

bool AskInstallFolder(Program& program, Label& label, ProgressBar& bar) {
  std::string folder = program.ui().AskFolder(program.GetText(text::InstallFolderStart),
                                              program.GetText(text::InstallFolderTitle));
  if (folder.empty()) return false;
  // The install's own closing message tells the end and its errors.
  if (InstallEditorFromFolder(program, folder, label, bar)) return true;
  AskUser(program, program.GetText(text::InstallFolderFailed), msg::kError);
  return false;
}

}  // namespace vardolin
