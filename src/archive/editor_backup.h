#pragma once
// The saved copy of the editor folder's own files, which level activation gives back from when
// a level leaves; and the folder-tree copy that the archive and the editor install share.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;
class ProgressBar;

// The room a backup asks for on the drive of the program's folder.
inline constexpr double kFullBackupRoom = 251658240;    // 240 MB: the whole editor folder
inline constexpr double kPartialBackupRoom = 94371840;  // 90 MB: the editor's own files

// Where the backup lives: the program's BackupFolder, set at start-up; before that, the
// program's folder + "backup_trle".
std::filesystem::path EditorBackupFolder(const Program& program);

// The folder beside the backup where a new copy is made (`fresh`), or where the old copy waits
// to go while the new one takes its place.
std::filesystem::path BackupSwapFolder(const Program& program, bool fresh);
// The fresh copy takes the backup's place and the old copy goes. False leaves the old in place.
bool SwapInNewBackup(Program& program);
// Settles a swap that a kill broke off: the backup stands (the new copy when it had been put in
// place, else the old one) and what is left beside it goes.
void SettleBackupSwap(Program& program);

// Makes sure a usable backup stands. Not forced, a complete backup is kept as it is; otherwise
// the user confirms the editor folder and (not forced) chooses a full or a partial copy. False
// when the user refused the folder, stopped for want of room, or the folder couldn't be made.
// Sets Preferences::FullBackupDone to whether the copy is a whole one.
bool MakeEditorBackup(Program& program, bool forced);
// True when the backup folder holds the three files that every backup copies.
bool BackupComplete(Program& program);
// The editor folder once the user said it is the right one; empty (and the user told why
// nothing can go on) when refused.
std::string ConfirmEditorFolder(Program& program);

// Copies a folder tree, creating what is missing. With `ask`, a file that stands in the target
// is replaced only when the user says so; with `skip`, files below a level's marked folder are
// left out. Reports a failure to the user and stops with false.
// This form moves the given bar (may be null) by bytes: the editor install's copy.
bool CopyFolderTree(Program& program, const std::filesystem::path& source,
                    const std::filesystem::path& target, ProgressBar* bar, bool ask, bool skip);
// This form shows Dialog_Progress for the time of the copy when `show_progress` is set.
bool CopyFolderTree(Program& program, const std::filesystem::path& source,
                    const std::filesystem::path& target, bool show_progress, bool ask, bool skip);
// The copy for a source that is deleted once the copy stands: on one file system each file is
// given its second name instead of a copy of its bytes, so the copy is whole at once.
bool CopyFolderTreeToMove(Program& program, const std::filesystem::path& source,
                          const std::filesystem::path& target, bool ask);

}  // namespace vardolin
