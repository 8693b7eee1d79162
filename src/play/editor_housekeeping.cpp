#include "play/editor_housekeeping.h"

#include <filesystem>
#include <optional>
#include <string>

#include "archive/editor_backup.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "play/active_level.h"
#include "play/active_level_file.h"
#include "play/set_aside.h"
#include "play/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

const std::vector<std::string>& EditorStandardNames() {
  static const std::vector<std::string> names = {
      "EDGEPTR.PCX",       "load.bmp",      "OBJECTS.H",       "script.DAT",      "Setup tomb4.lnk",
      "tom2pc.exe",        "tomb4.exe",     "Uninst.isu",      "winroomedit.exe", "kvle.exe",
      "Tomb_Kelverin.dll", "KV_Tom2Pc.exe", "kv_constants.txt"};
  return names;
}

void CleanEditorFolder(Program& program, SetAside* aside) {
  const fs::path editor = EditorFolderPath(program);
  if (editor.empty()) return;
  // Without a backup nothing deleted here could come back.
  if (BackupComplete(program)) {
    const std::string kept = ToLower(program.GetText(text::KeptRootExtension));
    const std::string marker = ToLower(ActiveLevelFilePath(program).filename().string());
    const std::string savegames = WithoutLeadingSeparators(program.GetText(text::SavegamePattern));
    for (const fs::path& file : ListFiles(editor, "*")) {
      const std::string name = file.filename().string();
      if (ToLower(name) == marker) continue;
      if (!kept.empty() && ToLower(ExtractExtension(name)) == kept) continue;
      bool standard = false;
      for (const std::string& s : EditorStandardNames())
        standard = standard || EqualsNoCase(s, name);
      if (standard) continue;
      if (aside) {
        if (!WildcardMatch(name, savegames)) aside->Remove(file);
        continue;
      }
      FaultPoint("activation-remove");
      DeleteFileForced(file);
    }
  }
  for (std::int32_t id :
       {text::CleanedFolder1, text::CleanedFolder2, text::CleanedFolder3, text::CleanedFolder4}) {
    const fs::path folder = JoinFragment(editor, program.GetText(id));
    if (!FolderExists(folder)) continue;
    if (aside)
      aside->RemoveTree(folder);
    else
      DeleteFolderTree(folder);
  }
  RestoreEditorBasics(program);
}

void RestoreEditorBasics(Program& program) {
  const fs::path editor = EditorFolderPath(program);
  const fs::path backup = EditorBackupFolder(program);
  if (editor.empty()) return;
  const std::int32_t pairs[2][2] = {{text::BasicFileFrom1, text::BasicFileTo1},
                                    {text::BasicFileFrom2, text::BasicFileTo2}};
  for (const auto& p : pairs) {
    const fs::path from = JoinFragment(backup, program.GetText(p[0]));
    if (!FileExists(from)) continue;
    CopyFileOver(from, JoinFragment(editor, program.GetText(p[1])), "activation-copy");
  }
  for (const fs::path& file :
       ListFiles(backup, WithoutLeadingSeparators(program.GetText(text::BasicFilesPattern)))) {
    CopyFileOver(file, editor / file.filename(), "activation-copy");
  }
  PruneSavegames(program);
}

void PruneSavegames(Program& program) {
  for (const fs::path& file :
       ListFiles(EditorFolderPath(program),
                 WithoutLeadingSeparators(program.GetText(text::SavegamePattern)))) {
    const std::string ext = ExtractExtension(file.filename().string());
    const std::optional<std::int32_t> slot =
        ext.size() > 1 ? ParseMarkerCode(std::string_view(ext).substr(1)) : std::nullopt;
    if (slot && *slot >= 0 && *slot <= 14) continue;
    FaultPoint("activation-remove");
    DeleteFileForced(file);
  }
}

void FixScriptFiles(Program& program) {
  const fs::path editor = EditorFolderPath(program);
  const fs::path backup = EditorBackupFolder(program);
  if (editor.empty()) return;
  const std::string script = program.GetText(text::ScriptName);
  bool has_script = false;
  bool has_language = false;
  for (const fs::path& file :
       ListFiles(editor, WithoutLeadingSeparators(program.GetText(text::ScriptPattern)))) {
    if (EqualsNoCase(file.filename().string(), script))
      has_script = true;
    else
      has_language = true;
  }
  if (!has_script) {
    const fs::path from = JoinFragment(backup, program.GetText(text::ScriptFromBackup));
    if (FileExists(from)) {
      CopyFileOver(from, JoinFragment(editor, program.GetText(text::ScriptToEditor)),
                   "activation-copy");
    }
  }
  if (has_language) return;
  const std::string backup_script = program.GetText(text::BackupScriptName);
  for (const fs::path& file :
       ListFiles(backup, WithoutLeadingSeparators(program.GetText(text::BackupLanguagePattern)))) {
    if (EqualsNoCase(file.filename().string(), backup_script)) continue;
    CopyFileOver(file, editor / file.filename(), "activation-copy");
    return;
  }
}

}  // namespace vardolin
