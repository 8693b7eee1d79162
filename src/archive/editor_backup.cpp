#include "archive/editor_backup.h"

#include <cstdint>
#include <system_error>
#include <vector>

#include "archive/standard_files.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kBackupFolderName = "backup_trle";

// The texts one form of the tree copy reports with and marks skipped files by.
struct TreeCopyTexts {
  std::int32_t target_not_made;
  std::int32_t skip_counted;
  std::int32_t folder_not_made;
  std::int32_t skip_copied;
  std::int32_t file_not_copied;
};

constexpr TreeCopyTexts kBarTexts{text::TreeTargetNotMade, text::TreeSkipCounted,
                                  text::TreeFolderNotMade, text::TreeSkipCopied,
                                  text::TreeFileNotCopied};
constexpr TreeCopyTexts kDialogTexts{text::CopyTargetNotMade, text::CopySkipCounted,
                                     text::CopyFolderNotMade, text::CopySkipCopied,
                                     text::CopyFileNotCopied};

void ShowError(Program& program, const std::string& message) {
  AskUser(program, message, msg::kError);
}

// Marks are written as Windows path fragments ("\files\"); the file's path below the source is
// matched in the same spelling, so that a source which itself lies in such a folder still counts.
bool HasMark(const std::string& below_source, const std::string& mark) {
  return !mark.empty() && ContainsNoCase(below_source, ReplaceAll(mark, "\\", "/"));
}

std::string BelowSource(const fs::path& file, const fs::path& source) {
  return "/" + file.lexically_relative(source).generic_string();
}

bool CopyTree(Program& program, const fs::path& source, const fs::path& target, ProgressBar* bar,
              bool ask, bool skip, const TreeCopyTexts& texts, bool link = false) {
  std::error_code ec;
  if (!FolderExists(target)) {
    fs::create_directories(target, ec);
    if (ec || !FolderExists(target)) {
      ShowError(program, program.GetText(texts.target_not_made) + target.string());
      return false;
    }
  }
  fs::path from = ResolveCase(source);
  FolderTreeWalker walker(&program.ui());
  if (!walker.WalkFolderTree(from)) {
    ShowError(program, program.GetText(texts.file_not_copied) + "'" + from.string() + "'");
    return false;
  }
  std::string skip_counted = skip ? program.GetText(texts.skip_counted) : std::string();
  std::string skip_copied = skip ? program.GetText(texts.skip_copied) : std::string();

  double total = 0;
  for (const fs::path& file : walker.Files()) {
    if (HasMark(BelowSource(file, from), skip_counted)) continue;
    total += static_cast<double>(fs::file_size(file, ec));
  }
  double done = 0;
  if (bar) bar->SetValue(0);
  for (const fs::path& file : walker.Files()) {
    std::string below = BelowSource(file, from);
    fs::path destination = target / file.lexically_relative(from);
    fs::path folder = destination.parent_path();
    if (!FolderExists(folder)) {
      fs::create_directories(ResolveCase(folder), ec);
      if (!FolderExists(folder)) {
        ShowError(program, program.GetText(texts.folder_not_made) + folder.string());
        return false;
      }
    }
    if (HasMark(below, skip_copied)) continue;
    double size = static_cast<double>(fs::file_size(file, ec));
    bool copy = !(ask && FileExists(destination)) || AskReplaceFile(program, file, destination);
    if (copy && !(link ? LinkFileOver(file, destination, "tree-copy")
                       : CopyFileOver(file, destination, "tree-copy"))) {
      ShowError(program,
                program.GetText(texts.file_not_copied) + "'" + file.filename().string() + "'");
      return false;
    }
    done += size;
    if (bar) SetProgressPercent(*bar, total, done);
    program.ui().DoEvents();
  }
  return true;
}

}  // namespace

fs::path EditorBackupFolder(const Program& program) {
  if (!Trim(program.BackupFolder).empty()) return program.BackupFolder;
  return program.Home() / kBackupFolderName;
}

bool CopyFolderTree(Program& program, const fs::path& source, const fs::path& target,
                    ProgressBar* bar, bool ask, bool skip) {
  return CopyTree(program, source, target, bar, ask, skip, kBarTexts);
}

bool CopyFolderTree(Program& program, const fs::path& source, const fs::path& target,
                    bool show_progress, bool ask, bool skip) {
  if (!show_progress) return CopyTree(program, source, target, nullptr, ask, skip, kDialogTexts);
  ShowProgressDialog(program);
  Dialog_Progress* dialog = ProgressDialog(program);
  bool ok = CopyTree(program, source, target, dialog ? &dialog->ProgressBar1 : nullptr, ask, skip,
                     kDialogTexts);
  HideProgressDialog(program);
  return ok;
}

bool CopyFolderTreeToMove(Program& program, const fs::path& source, const fs::path& target,
                          bool ask) {
  return CopyTree(program, source, target, nullptr, ask, false, kDialogTexts, true);
}

bool BackupComplete(Program& program) {
  fs::path backup = EditorBackupFolder(program);
  if (!FolderExists(backup)) return false;
  for (std::int32_t id :
       {text::BackupCompleteFile1, text::BackupCompleteFile2, text::BackupCompleteFile3})
    if (!FileExists(JoinFragment(backup, program.GetText(id)))) return false;
  return true;
}

std::string ConfirmEditorFolder(Program& program) {
  std::string folder = Trim(program.prefs.EditorFolder);
  std::string question = program.GetText(text::ConfirmEditorLine1) + kLineEnd +
                         program.GetText(text::ConfirmEditorLine2) + folder + kLineEnd +
                         program.GetText(text::ConfirmEditorLine3);
  if (AskUser(program, question, msg::kYesNo) == msg::kYes) return folder;
  ShowError(program, program.GetText(text::EditorRefused1) + kLineEnd + kLineEnd +
                         program.GetText(text::EditorRefused2));
  return {};
}

fs::path BackupSwapFolder(const Program& program, bool fresh) {
  fs::path folder = EditorBackupFolder(program);
  folder += fresh ? "_new" : "_old";
  return folder;
}

bool SwapInNewBackup(Program& program) {
  const fs::path backup = EditorBackupFolder(program);
  const fs::path fresh = BackupSwapFolder(program, true);
  const fs::path old = BackupSwapFolder(program, false);
  std::error_code ec;
  fs::remove_all(old, ec);
  if (FolderExists(backup)) {
    fs::rename(backup, old, ec);
    if (ec) return false;
  }
  FaultPoint("backup-swap");
  fs::rename(fresh, backup, ec);
  if (ec) {
    fs::rename(old, backup, ec);
    return false;
  }
  fs::remove_all(old, ec);
  return true;
}

void SettleBackupSwap(Program& program) {
  const fs::path backup = EditorBackupFolder(program);
  const fs::path fresh = BackupSwapFolder(program, true);
  const fs::path old = BackupSwapFolder(program, false);
  std::error_code ec;
  // Between the two renames of a swap only the old copy is sure to be whole.
  if (!FolderExists(backup) && FolderExists(old)) fs::rename(old, backup, ec);
  fs::remove_all(fresh, ec);
  if (FolderExists(backup)) fs::remove_all(old, ec);
}

bool MakeEditorBackup(Program& program, bool forced) {
  SettleBackupSwap(program);
  if (!forced && BackupComplete(program)) {
    EnsureStandardFilesPackage(program);
    return true;
  }
  std::string editor = ConfirmEditorFolder(program);
  if (editor.empty()) return false;

  bool full = true;
  double need = 0;
  if (!forced) {
    full = AskUser(program,
                   program.GetText(text::AskFullBackup1) + kLineEnd + kLineEnd +
                       program.GetText(text::AskFullBackup2),
                   msg::kYesNo) == msg::kYes;
    need = full ? kFullBackupRoom : kPartialBackupRoom;
  }

  double free_bytes = DiskFreeBytes(program.platform(), program.Home());
  if (free_bytes < need) {
    std::string drive = DriveOfPath(program.platform(), program.Home());
    if (drive.empty()) drive = program.Home().root_path().string();
    std::string question = program.GetText(text::BackupLittleRoom) + drive + ": " +
                           FormatFileSize(free_bytes) + program.GetText(text::BackupRoomFree) +
                           ")" + kLineEnd;
    if (AskUser(program, question, msg::kYesNo) != msg::kYes) return false;
  }

  fs::path backup = EditorBackupFolder(program);
  if (full) {
    CopyFolderTree(program, editor, backup, true, false, false);
    // A copy that lacks the game or its title level isn't a whole editor: what it does hold
    // is topped up below as the editor's own files.
    for (std::int32_t id : {text::FullBackupMarker1, text::FullBackupMarker2})
      if (!FileExists(JoinFragment(backup, program.GetText(id)))) full = false;
  }
  if (!full) {
    if (!MakeFolder(backup)) {
      ShowError(program, program.GetText(text::BackupFolderNotMade) + backup.string());
      return false;
    }
    ShowProgressDialog(program, program.GetText(text::BackupProgressCaption));
    Dialog_Progress* dialog = ProgressDialog(program);
    auto show = [&](std::int32_t id) {
      if (!dialog) return;
      dialog->Label_Info.SetCaption(program.GetText(id));
      dialog->Refresh();
    };
    show(text::BackupMakingFolders);
    for (std::int32_t id = text::BackupSubfolderFirst; id <= text::BackupSubfolderLast; ++id)
      MakeFolder(JoinFragment(backup, program.GetText(id)));
    show(text::BackupCopyingFiles);
    std::vector<std::int32_t> sets;
    for (std::int32_t id = text::BackupFileSetFirst; id <= text::BackupFileSetLast; ++id)
      sets.push_back(id);
    sets.push_back(text::BackupFileSetSixth);
    for (std::int32_t id : sets) {
      std::string pattern = program.GetText(id);
      while (!pattern.empty() && (pattern.front() == '\\' || pattern.front() == '/'))
        pattern.erase(0, 1);
      CopyMatchingFiles(program, ResolveCase(editor), backup, true, pattern);
    }
    ProgressBar* bar = dialog ? &dialog->ProgressBar1 : nullptr;
    for (auto [label, tree] : {std::pair{text::BackupCopyingTree1, text::BackupTree1},
                               std::pair{text::BackupCopyingTree2, text::BackupTree2}}) {
      show(label);
      std::string fragment = program.GetText(tree);
      CopyFolderTree(program, JoinFragment(editor, fragment), JoinFragment(backup, fragment), bar,
                     false, false);
    }
    HideProgressDialog(program);
  }
  program.prefs.FullBackupDone = full;
  EnsureStandardFilesPackage(program);
  return true;
}

}  // namespace vardolin
