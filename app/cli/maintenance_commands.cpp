#include "maintenance_commands.h"

#include <ostream>

#include "archive/archive_maintenance.h"
#include "archive/catalogue_file.h"
#include "archive/catalogue_sizes.h"
#include "archive/editor_backup.h"
#include "catalogue_commands.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/text_ids.h"
#include "play/activation.h"
#include "play/editor_restore.h"

namespace vardolin {

namespace {

bool EditorReady(Program& program, std::ostream& err, bool backup_needed) {
  const std::string editor = Trim(program.prefs.EditorFolder);
  if (editor.empty() || !FolderExists(editor)) {
    err << "vardolin-cli: the settings " << SettingsFilePath(program)
        << " name no editor folder that stands; start vardolin once first\n";
    return false;
  }
  program.BackupFolder =
      JoinFragment(program.Home(), program.GetText(text::BackupFolderName)).string();
  if (backup_needed && !BackupComplete(program)) {
    err << "vardolin-cli: the backup of the editor folder is missing in "
        << EditorBackupFolder(program).string() << "; start vardolin once first\n";
    return false;
  }
  return true;
}

bool SaveCatalogue(Program& program, std::ostream& err) {
  if (!program.CatalogueDirty) return true;
  if (SaveCatalogueFile(program, program.prefs.LastArchive)) return true;
  err << "vardolin-cli: the catalogue " << program.prefs.LastArchive << " was not written\n";
  return false;
}

}  // namespace

int CmdRestoreEditor(Program& program, bool full, std::ostream& out, std::ostream& err) {
  if (!EditorReady(program, err, true) || !OpenLastCatalogue(program, err)) return 1;
  if (!full) {
    if (!ResetToBaseLevel(program)) {
      err << "vardolin-cli: the level was not taken out of " << Trim(program.prefs.EditorFolder)
          << "\n";
      return 1;
    }
    out << "restored: fast\n";
    return 0;
  }
  RestoreEditorConfiguration(program, nullptr, nullptr, false);
  out << "restored: full\n";
  return 0;
}

int CmdBackupEditor(Program& program, std::ostream& out, std::ostream& err) {
  if (!EditorReady(program, err, false)) return 1;
  // The backup is of the editor's own files: a level standing there leaves first.
  if (BackupComplete(program) && OpenLastCatalogue(program, err) && !ResetToBaseLevel(program)) {
    err << "vardolin-cli: the level was not taken out of " << Trim(program.prefs.EditorFolder)
        << "\n";
    return 1;
  }
  if (!MakeFullBackup(program, true, nullptr, nullptr)) {
    err << "vardolin-cli: no full backup of " << Trim(program.prefs.EditorFolder) << " was made in "
        << EditorBackupFolder(program).string() << " (the old one stays)\n";
    return 1;
  }
  out << "backup: " << EditorBackupFolder(program).string() << "\n";
  return 0;
}

int CmdRecoverArchive(Program& program, const std::string& folder, const std::string& first_cd,
                      std::ostream& out, std::ostream& err) {
  for (const std::string& f : {folder, first_cd})
    if (!f.empty() && !FolderExists(f)) {
      err << "vardolin-cli: there is no folder " << f << "\n";
      return 1;
    }
  const std::string cd_name = std::filesystem::path(first_cd).filename().string();
  if (!first_cd.empty() && !cd_name.ends_with('1')) {
    err << "vardolin-cli: --cd names the folder of the first CD's levels, whose name ends in 1; "
        << first_cd << " doesn't\n";
    return 1;
  }
  // The open catalogue gives its base level; a lost one is what this command is for.
  if (FileExists(program.prefs.LastArchive)) LoadCatalogueFile(program, program.prefs.LastArchive);
  const RecoverResult result = RecoverArchive(program, folder, std::filesystem::path(first_cd));
  if (!result.done) {
    err << "vardolin-cli: no level folders in " << folder << "\n";
    return 1;
  }
  if (!SaveCatalogue(program, err)) return 1;
  out << "catalogue: " << program.prefs.LastArchive << "\n"
      << "levels: " << program.catalogue.levels.size() - 1 << "\n";
  if (!first_cd.empty()) out << "cds: " << program.catalogue.header.CdCount << "\n";
  for (const std::string& name : result.skipped) out << "skipped: " << name << "\n";
  return 0;
}

int CmdMoveArchive(Program& program, const std::string& folder, std::ostream& out,
                   std::ostream& err) {
  if (!OpenLastCatalogue(program, err)) return 1;
  if (!MoveArchive(program, std::filesystem::absolute(folder))) {
    err << "vardolin-cli: the archive was not moved to " << folder << "; it stays in "
        << Trim(program.catalogue.header.SecondaryDir) << "\n";
    return 1;
  }
  if (!SaveCatalogue(program, err)) return 1;
  out << "archive: " << Trim(program.catalogue.header.SecondaryDir) << "\n";
  return 0;
}

int CmdSizes(Program& program, bool json, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err)) return 1;
  RecomputeAllSizes(program, true);
  if (!SaveCatalogue(program, err)) return 1;
  const double files = program.catalogue.header.TotalFilesSize;
  const double user = program.catalogue.header.TotalUserSize;
  if (json)
    out << "{\"files\": " << static_cast<long long>(files)
        << ", \"user\": " << static_cast<long long>(user) << "}\n";
  else
    out << "files: " << FormatFileSize(files) << "\nuser: " << FormatFileSize(user)
        << "\ntotal: " << FormatFileSize(files + user) << "\n";
  return 0;
}

}  // namespace vardolin
