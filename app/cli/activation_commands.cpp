#include "activation_commands.h"

#include <ostream>
#include <string>

#include "archive/editor_backup.h"
#include "catalogue_commands.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "json_text.h"
#include "play/activation.h"
#include "play/active_level.h"

namespace vardolin {

namespace {

// What start-up sees to before a level may move: an editor folder, the safe copy of its files
// (nothing the folder loses could come back without it) and the catalogue that names the levels.
bool ReadyForActivation(Program& program, std::ostream& err) {
  const std::string editor = Trim(program.prefs.EditorFolder);
  if (editor.empty() || !FolderExists(editor)) {
    err << "vardolin-cli: the settings " << SettingsFilePath(program)
        << " name no editor folder that stands; run vardolin-cli setup (or start vardolin) first\n";
    return false;
  }
  program.BackupFolder =
      JoinFragment(program.Home(), program.GetText(text::BackupFolderName)).string();
  if (!BackupComplete(program)) {
    err << "vardolin-cli: the backup of the editor folder is missing in "
        << EditorBackupFolder(program).string()
        << "; run vardolin-cli setup (or start vardolin) first\n";
    return false;
  }
  return OpenLastCatalogue(program, err);
}

}  // namespace

int CmdActivate(Program& program, std::int32_t code, std::ostream& out, std::ostream& err) {
  if (!ReadyForActivation(program, err) || !LevelKnown(program, code, err)) return 1;
  if (!SetLevelInTrle(program, code)) {
    err << "vardolin-cli: level " << code << " was not put in the editor folder "
        << Trim(program.prefs.EditorFolder) << "; " << LogPath(program).string()
        << " tells the steps\n";
    return 1;
  }
  out << "active: " << GetActiveLevelCode(program) << "\n";
  return 0;
}

int CmdReset(Program& program, std::ostream& out, std::ostream& err) {
  if (!ReadyForActivation(program, err)) return 1;
  if (!ResetToBaseLevel(program)) {
    err << "vardolin-cli: the base level was not put back into the editor folder "
        << Trim(program.prefs.EditorFolder) << "; " << LogPath(program).string()
        << " tells the steps\n";
    return 1;
  }
  out << "active: " << GetActiveLevelCode(program) << "\n";
  return 0;
}

int CmdActive(Program& program, bool json, std::ostream& out, std::ostream& err) {
  const std::string editor = Trim(program.prefs.EditorFolder);
  if (editor.empty()) {
    err << "vardolin-cli: the settings " << SettingsFilePath(program) << " name no editor folder\n";
    return 1;
  }
  if (json)
    out << "{\"code\": " << GetActiveLevelCode(program)
        << ", \"editor_folder\": " << JsonString(editor) << "}\n";
  else
    out << GetActiveLevelCode(program) << "\n";
  return 0;
}

}  // namespace vardolin
