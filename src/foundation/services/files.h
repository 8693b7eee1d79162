#pragma once
// File and folder services with the manners of the Windows file system the program was made
// for: names compare without regard to case (a path whose parts stand on disk in another case is
// that file), patterns ignore case, and "read-only" means the owner may not write. None of them
// throws; each reports by its result.

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;
class Ui;

// The path as it is spelled on disk: each component that stands in another case takes the
// on-disk spelling. From the first component that doesn't exist on, the given spelling stays.
std::filesystem::path ResolveCase(const std::filesystem::path& path);

// True when a file (read-only ones included) stands at the path, in any case of its name.
bool FileExists(const std::filesystem::path& path);
bool FolderExists(const std::filesystem::path& path);
// Creates one level; true when the folder stands afterwards.
bool MakeFolder(const std::filesystem::path& path);
// A work folder as an operation wants it at its start: whatever stood there (a run that was
// broken off) removed, and the folder made anew with its parents. True when it stands empty.
bool MakeEmptyFolder(const std::filesystem::path& path);
// True when the file is gone; a missing file counts as deleted. A read-only file (or a
// read-only folder holding it) is made writable first.
bool DeleteFileForced(const std::filesystem::path& path);
// Deletes the files of `folder` that match; sub-folders stay. Stops at the first failure.
bool DeleteMatchingFiles(const std::filesystem::path& folder, std::string_view pattern);
// Deletes the folder's files and then the folder. False when the folder can't go, which
// includes a folder that still holds sub-folders (those are left as they are) and a missing one.
bool DeleteFolderTree(const std::filesystem::path& folder);
// Copies `source` to a `target` that doesn't stand yet, with the source's permissions and
// times. False (errno tells why) when it didn't complete; no part of the copy stays then.
bool CopyNewFile(const std::filesystem::path& source, const std::filesystem::path& target);
// Copies one file, replacing the target. A target that stands in another case is replaced and
// keeps its on-disk name. The copy keeps the source's modification time (dates are data here).
// False when the copy didn't complete; no part of a copy stays behind then. `fault_point`
// names the test hook of the caller's step (see FaultPoint), reached as the copy begins.
bool CopyFileOver(const std::filesystem::path& source, const std::filesystem::path& target,
                  const char* fault_point = nullptr);
// CopyFileOver onto a target that the caller has spelled as it stands on disk, or that stands
// in no spelling: for loops over many files into one folder, which is then not read again for
// each name.
bool CopyFileOverAsSpelled(const std::filesystem::path& source,
                           const std::filesystem::path& target);
// Moves one file onto `target` as CopyFileOver would copy it, for a source that is not wanted
// afterwards: a rename when both lie on one file system (the target is then the old file or the
// new one, never a part), else a copy and a delete. False leaves the source in place.
bool MoveFileOver(const std::filesystem::path& source, const std::filesystem::path& target,
                  const char* fault_point = nullptr);
// Gives `target` the source's contents as CopyFileOver does, for a source that goes once the
// target stands: on one file system the target is a second name of the same file (no byte is
// copied and the source stays whole until it is deleted), elsewhere a copy.
bool LinkFileOver(const std::filesystem::path& source, const std::filesystem::path& target,
                  const char* fault_point = nullptr);
// Copies the matching files of a folder (sub-folders skipped). With `overwrite` clear, a target
// that stands is replaced only when AskReplaceFile says so. Stops at the first failed copy;
// given `failed`, copies the rest and adds the files that failed to it instead.
bool CopyMatchingFiles(Program& program, const std::filesystem::path& source_folder,
                       const std::filesystem::path& target_folder, bool overwrite,
                       std::string_view pattern,
                       std::vector<std::filesystem::path>* failed = nullptr);
// Asks whether `old_file` is to be replaced by `new_file`; true unless the user says No.
bool AskReplaceFile(Program& program, const std::filesystem::path& new_file,
                    const std::filesystem::path& old_file);
// The text AskReplaceFile shows.
std::string ReplaceFileQuestion(const std::filesystem::path& new_file,
                                const std::filesystem::path& old_file);

// Full paths of the files of a folder whose names match, in the order Windows lists a folder:
// by name without regard to case. The other listings here keep that order too.
std::vector<std::filesystem::path> ListFiles(const std::filesystem::path& folder,
                                             std::string_view pattern);
// Full paths of the sub-folders; a missing folder gives an empty list.
std::vector<std::filesystem::path> ListSubfolders(const std::filesystem::path& folder);

// Walks a folder tree and keeps what it found until the next walk. Folders linked in by
// symbolic links are not entered, so a loop of links can't make the walk endless.
class FolderTreeWalker {
 public:
  // With a Ui, the interface runs once per folder visited.
  explicit FolderTreeWalker(Ui* ui = nullptr) : ui_(ui) {}
  // Collects every file and every folder below `folder` (depth first, the folder's own files
  // before its sub-folders). Unreadable entries are skipped; false when `folder` can't be read.
  bool WalkFolderTree(const std::filesystem::path& folder);
  const std::vector<std::filesystem::path>& Files() const { return files_; }
  const std::vector<std::filesystem::path>& Folders() const { return folders_; }

 private:
  bool Walk(const std::filesystem::path& folder);
  Ui* ui_;
  std::vector<std::filesystem::path> files_;
  std::vector<std::filesystem::path> folders_;
};

// Total bytes of the files below the folder whose names match (`*` for all).
double FolderSizeBytes(const std::filesystem::path& folder, std::string_view pattern,
                       Ui* ui = nullptr);

// The whole file as bytes; empty on any error.
std::string ReadWholeFile(const std::filesystem::path& path);
// Reads the file into `bytes` when it stands (in any case of its name); false when it doesn't
// or can't be read. For loops over many small files: a file that stands as spelled costs one
// open and one read, with no look at its name first.
bool ReadFileIfThere(const std::filesystem::path& path, std::string& bytes);
// Creates or replaces the file with the text.
bool WriteTextFile(const std::filesystem::path& path, std::string_view text);
// Sets the access and modification times (Linux keeps no settable creation time). False when
// the file is missing or can't be opened for reading and writing.
bool SetFileDateTime(const std::filesystem::path& path, std::chrono::system_clock::time_point when);

}  // namespace vardolin
