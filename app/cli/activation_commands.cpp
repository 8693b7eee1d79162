#include "activation_commands.h"

#include <ostream>
#include <string>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive/editor_backup.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "play/activation.h"
#include "play/active_level.h"

namespace vardolin {

namespace {

// What start-up sees to before a level may move: an editor folder, the safe copy of its files
// (nothing the folder loses could come back without it) and the catalogue that names the levels.
bool ReadyForActivation(Program& program, std::ostream& err) {
  const std::string editor = Trim(program.prefs.EditorFolder);
  if (editor.empty() || !FolderExists(editor)) {
    err << "vardolin-cli: no editor folder in the settings; start vardolin once first\n";
    return false;
  }
  program.BackupFolder =
      JoinFragment(program.Home(), program.GetText(text::BackupFolderName)).string();
  if (!BackupComplete(program)) {
    err << "vardolin-cli: the backup of the editor folder is missing in "
        << EditorBackupFolder(program).string() << "; start vardolin once first\n";
    return false;
  }
  const std::string last = Trim(program.prefs.LastArchive);
  if (last.empty() || !LoadCatalogueFile(program, last)) {
    err << "vardolin-cli: cannot open the catalogue " << last << "\n";
    return false;
  }
  return true;
}

}  // namespace

int CmdActivate(Program& program, std::int32_t code, std::ostream& out, std::ostream& err) {
  if (!ReadyForActivation(program, err)) return 1;
  if (FindLevelIndex(program.catalogue, code) < 0) {
    err << "vardolin-cli: no level with code " << code << "\n";
    return 1;
  }
  if (!SetLevelInTrle(program, code)) {
    err << "vardolin-cli: level " << code << " was not put in the editor folder\n";
    return 1;
  }
  out << "active: " << GetActiveLevelCode(program) << "\n";
  return 0;
}

int CmdReset(Program& program, std::ostream& out, std::ostream& err) {
  if (!ReadyForActivation(program, err)) return 1;
  if (!ResetToBaseLevel(program)) {
    err << "vardolin-cli: the base level was not put back\n";
    return 1;
  }
  out << "active: " << GetActiveLevelCode(program) << "\n";
  return 0;
}

int CmdActive(Program& program, std::ostream& out, std::ostream& err) {
  if (Trim(program.prefs.EditorFolder).empty()) {
    err << "vardolin-cli: no editor folder in the settings\n";
    return 1;
  }
  out << GetActiveLevelCode(program) << "\n";
  return 0;
}

}  // namespace vardolin
