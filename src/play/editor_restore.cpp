#include "play/editor_restore.h"

#include <system_error>

#include "archive/editor_backup.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/safe_join.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "play/activation.h"
#include "play/active_level.h"
#include "play/editor_housekeeping.h"
#include "play/set_aside.h"
#include "play/text_ids.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

std::string Below(const fs::path& file, const fs::path& folder) {
  return file.lexically_relative(folder).generic_string();
}

// The game's savegame slots in the root and the level marker belong to levels, not to the
// editor: a restore leaves them to activation.
bool KeptByRestore(Program& p, const fs::path& editor, const fs::path& file) {
  if (file.parent_path() != editor) return false;
  const std::string name = file.filename().string();
  return WildcardMatch(name, WithoutLeadingSeparators(p.GetText(text::SavegamePattern))) ||
         EqualsNoCase(name, ActiveLevelFilePath(p).filename().string());
}

// The editor's files below `relative` (its files alone, or the whole tree) end as the backup
// holds them. False when a file of the backup couldn't be put back.
bool RestoreFolder(Program& p, SetAside& aside, const std::string& relative, bool tree,
                   ProgressBar* bar) {
  const fs::path editor = EditorFolderPath(p);
  const fs::path backup = EditorBackupFolder(p);
  const fs::path here = ResolveCase(JoinFragment(editor, relative));
  FolderTreeWalker walker(&p.ui());
  std::vector<fs::path> standing =
      tree ? (walker.WalkFolderTree(here), walker.Files()) : ListFiles(here, "*");
  for (const fs::path& file : standing)
    if (!KeptByRestore(p, editor, file) && !aside.SameAsBackup(file)) aside.Remove(file);
  const fs::path saved = ResolveCase(JoinFragment(backup, relative));
  std::vector<fs::path> files =
      tree ? (walker.WalkFolderTree(saved), walker.Files()) : ListFiles(saved, "*");
  bool all = true;
  for (std::size_t i = 0; i < files.size(); ++i) {
    all = aside.PutBack(Below(files[i], backup)) && all;
    if (bar)
      SetProgressPercent(*bar, static_cast<double>(files.size()), static_cast<double>(i + 1));
    p.ui().DoEvents();
  }
  return all;
}

fs::path JournalPath(Program& p) {
  return JoinFragment(p.Home(), p.GetText(text::RestoreJournal));
}

}  // namespace

const std::vector<std::string>& FullRestoreFolders() {
  static const std::vector<std::string> folders = {"\\audio", "\\graphics\\wads",
                                                   "\\sound\\samples", "\\script"};
  return folders;
}

void RestoreEditorConfiguration(Program& p, Label* label, ProgressBar* bar, bool dialog) {
  const fs::path editor = EditorFolderPath(p);
  const fs::path backup = EditorBackupFolder(p);
  if (RefusedWhileGameRuns(p)) return;
  // Without a whole backup nothing taken out could come back.
  if (editor.empty() || !BackupComplete(p)) {
    AskUser(p, p.GetText(text::RestoreFolderFailed, {backup.string()}), msg::kError);
    return;
  }
  WriteTextFile(JournalPath(p), editor.string());
  ShowStatus(label, p.GetText(text::RestoreStarting));
  if (dialog) ShowProgressDialog(p, p.GetText(text::RestoreStarting));
  // The level in the folder leaves first, through its marker: its savegames go to its play
  // folder and its files aren't taken for the user's.
  ResetToBaseLevel(p);
  SetAside aside(p);
  ShowStatus(label, p.GetText(text::RestoreCleaning));
  CleanEditorFolder(p, &aside);
  for (auto [folder, pattern] : {std::pair{text::RestoreLevelFolder1, text::RestoreLevelPattern1},
                                 std::pair{text::RestoreLevelFolder2, text::RestoreLevelPattern2}})
    for (const fs::path& file :
         ListFiles(ResolveCase(JoinFragment(editor, p.GetText(folder))), p.GetText(pattern)))
      aside.Remove(file);
  const std::string root = p.GetText(text::RestoreRootTarget);
  for (const fs::path& file : ListFiles(backup, "*"))
    aside.PutBack(Below(JoinFragment(editor, root) / file.filename(), editor));
  const std::string data = p.GetText(text::RestoreDataSource);
  const std::vector<fs::path> data_files = ListFiles(ResolveCase(JoinFragment(backup, data)), "*");
  for (std::size_t i = 0; i < data_files.size(); ++i) {
    aside.PutBack(
        Below(JoinFragment(editor, p.GetText(text::RestoreDataTarget)) / data_files[i].filename(),
              editor));
    if (bar)
      SetProgressPercent(*bar, static_cast<double>(data_files.size()), static_cast<double>(i + 1));
  }
  if (p.prefs.FullBackupDone) {
    for (const std::string& folder : FullRestoreFolders()) {
      ShowStatus(label, p.GetText(text::RestoreFolderBusy, {folder}));
      if (!RestoreFolder(p, aside, folder, false, bar))
        AskUser(p, p.GetText(text::RestoreFolderFailed, {folder}), msg::kError);
    }
    // A setup program writes where it likes (maps, textures ...): the rest of the tree ends as
    // the backup holds it too.
    ShowStatus(label, p.GetText(text::RestoreFolderBusy, {editor.string()}));
    if (!RestoreFolder(p, aside, {}, true, bar))
      AskUser(p, p.GetText(text::RestoreFolderFailed, {editor.string()}), msg::kError);
  }
  RestoreBasicFiles(p, label, bar);
  ShowStatus(label, p.GetText(text::RestoreRefreshing));
  p.notify.LevelListChanged();
  ShowStatus(label, {});
  if (dialog) HideProgressDialog(p);
  DeleteFileForced(JournalPath(p));
  AskUser(p, p.GetText(text::RestoreDone, {SetAsideNotice(p, aside)}), msg::kInformation);
}

void AskRestoreConfiguration(Program& p, Label* label, ProgressBar* bar,
                             const EditorSnapshot* since) {
  if (AskUser(p, p.GetText(text::RestoreAsk), msg::kYesNo) == msg::kNo) return;
  if (!since) {
    RestoreEditorConfiguration(p, label, bar, false);
    return;
  }
  ShowStatus(label, p.GetText(text::RestoreStarting));
  UndoEditorChanges(p, *since);
  ShowStatus(label, {});
  p.notify.LevelListChanged();
}

bool UndoEditorFile(Program& p, const std::string& name) {
  const fs::path editor = EditorFolderPath(p);
  if (!DeleteFileForced(editor / name)) return false;
  // A file of that name in another case that the program didn't touch is the user's.
  if (FileExists(ResolveCase(editor / name))) return true;
  SetAside aside(p);
  aside.PutBack(name);
  return true;
}

std::vector<std::string> UndoEditorChanges(Program& p, const EditorSnapshot& since) {
  const EditorChanges changes = ChangesSince(since, EditorFolderPath(p));
  std::vector<std::string> undone;
  for (const std::string& name : changes.written)
    if (UndoEditorFile(p, name)) undone.push_back(name);
  SetAside aside(p);
  for (const std::string& name : changes.deleted)
    if (!FileExists(ResolveCase(EditorFolderPath(p) / name)) && aside.PutBack(name))
      undone.push_back(name);
  return undone;
}

std::string InstalledLanguageFile(Program& p) {
  const std::string script = p.GetText(text::RestoreLanguageScript);
  for (const fs::path& file :
       ListFiles(EditorBackupFolder(p),
                 WithoutLeadingSeparators(p.GetText(text::RestoreLanguagePattern)))) {
    const std::string name = file.filename().string();
    if (!EqualsNoCase(name, script)) return name;
  }
  return {};
}

void RestoreBasicFiles(Program& p, Label* label, ProgressBar* bar) {
  const fs::path package = JoinFragment(p.Home(), p.GetText(text::StandardFilesPackage));
  if (!FileExists(package)) {
    AskUser(p,
            p.GetText(text::StandardFilesMissing1) + "\r\n" +
                p.GetText(text::StandardFilesMissing2) + package.string(),
            msg::kError);
    return;
  }
  const fs::path folder = JoinFragment(p.Home(), p.GetText(text::StandardFilesFolder));
  MakeFolder(folder);
  SetLevelInTrle(p, 0);
  if (!ExtractZip(p, package, folder, bar, false, true)) return;
  const std::vector<fs::path> files = ListFiles(folder, "*");
  const std::string language = InstalledLanguageFile(p);
  ShowStatus(label, p.GetText(text::StandardFilesBusy));
  const fs::path backup = EditorBackupFolder(p);
  SetAside aside(p);
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::string name = files[i].filename().string();
    if (EqualsNoCase(name, "english.dat") && !language.empty() &&
        !EqualsNoCase(language, "english.dat"))
      continue;
    const std::string relative = ReplaceAll(LevelFileTarget(name), "\\", "/").substr(1) + name;
    // The backup takes the package's file first, then the editor takes the backup's.
    const SafeJoinResult saved = SafeJoin(backup, relative);
    std::error_code ec;
    if (saved && (fs::create_directories(saved.path.parent_path(), ec), true) &&
        CopyFileOver(files[i], saved.path, "restore-copy"))
      aside.PutBack(relative);
    if (bar)
      SetProgressPercent(*bar, static_cast<double>(files.size()), static_cast<double>(i + 1));
    p.ui().DoEvents();
  }
  ShowStatus(label, {});
}

bool FinishBrokenRestore(Program& p) {
  if (!FileExists(JournalPath(p))) return false;
  // The run writes the mark again; one that can't run (no backup) isn't offered at every start.
  DeleteFileForced(JournalPath(p));
  RestoreEditorConfiguration(p, nullptr, nullptr, true);
  return true;
}

}  // namespace vardolin
