#include "setup_commands.h"

#include <filesystem>
#include <ostream>

#include "archive/catalogue_file.h"
#include "archive/catalogue_sizes.h"
#include "archive/editor_backup.h"
#include "catalogue_commands.h"
#include "editor/find_editor.h"
#include "foundation/data_lists.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "savegames/savegame_sets.h"
#include "startup/base_level.h"
#include "terminal_ui.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

// The folder given, else the settings' one while it still is an editor folder, else the
// registry's. Empty, with the reason told, when none is one.
std::string FindEditor(Program& program, const std::string& given, std::ostream& err) {
  if (!given.empty()) {
    const std::string folder = fs::absolute(given).string();
    if (FolderExists(folder) && CheckEditorFolder(program, folder, false)) return folder;
    err << "vardolin-cli: " << folder
        << " is no level editor folder (it needs tom2pc.exe and winroomedit.exe)\n";
    return {};
  }
  const std::string set = Trim(program.prefs.EditorFolder);
  if (!set.empty() && CheckEditorFolder(program, set, false)) return set;
  const std::string found = FindEditorInRegistry(program);
  if (!found.empty() && CheckEditorFolder(program, found, false)) return found;
  err << "vardolin-cli: no level editor folder was found: the settings "
      << SettingsFilePath(program)
      << " and the Wine registry name none that stands; give it as EDITOR_FOLDER\n";
  return {};
}

}  // namespace

int CmdSetup(Program& program, TerminalUi& ui, const std::string& editor,
             const std::string& archive, std::ostream& out, std::ostream& err) {
  program.lists = BuildDataLists();
  program.BackupFolder =
      JoinFragment(program.Home(), program.GetText(text::BackupFolderName)).string();
  const std::string folder = FindEditor(program, editor, err);
  if (folder.empty()) return 1;
  program.prefs.EditorFolder = folder;
  if (!MakeEditorBackup(program, false)) {
    err << "vardolin-cli: the safe copy of " << folder << " was not made in "
        << program.BackupFolder << " (answer its questions with --yes or --answer)\n";
    return 1;
  }
  if (!EnsureBaseLevel(program)) {
    err << "vardolin-cli: the base level could not be built in " << program.Home().string() << "\n";
    return 1;
  }
  const std::string last = Trim(program.prefs.LastArchive);
  if (!last.empty() && FileExists(last)) {
    // The home has its catalogue: a damaged one is told, never replaced by a new one.
    if (!OpenLastCatalogue(program, err)) return 1;
    if (program.BaseLevelBuilt) UpdateLevelSizes(program, 0);
  } else {
    if (!archive.empty()) ui.AnswerNext(fs::absolute(archive).string());
    if (!NewCatalogue(program)) {
      err << "vardolin-cli: no catalogue was made in " << program.Home().string()
          << " (give its archive folder with --archive FOLDER, or --yes for the one proposed)\n";
      return 1;
    }
  }
  RecoverSavegameWork(program);
  out << "editor: " << folder << "\nbackup: " << program.BackupFolder
      << "\ncatalogue: " << program.prefs.LastArchive << "\n";
  return 0;
}

}  // namespace vardolin
