#pragma once
// Bringing what the user chose into a level's work folder: a file, a package of any archive
// kind, or a folder. Everything lands flat in the target, as a level's files folder keeps them;
// where each file goes in the editor folder is decided by its extension when the level is played.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// Whether the file's extension names an archive that is unpacked when added (texts 2972 and
// 2973, each a list separated by ';'), and whether that archive is a zip (text 2971).
bool IsArchiveToUnpack(Program& program, std::string_view file);
bool IsZipPackage(Program& program, std::string_view file);

// Asks for a file (any package, or with `oneType` only files of `extension`) and adds it to
// `target` with AddFileToFolder. True unless the user cancelled or the add failed (told).
bool AddFromFile(Program& program, const std::filesystem::path& target, ProgressBar* bar,
                 Label* label, bool oneType, const std::string& extension);

// Adds the files of a folder (asked for when `source` is empty), with those of its sub-folders
// when the user agrees. With a `mask` other than ".*" only files whose names end with it.
// True when it ran; single failures are told and the next file goes on.
bool AddFromFolder(Program& program, const std::filesystem::path& target, ProgressBar* bar,
                   Label* label, bool keep, const std::string& mask,
                   const std::filesystem::path& source = {});

// Copies a plain file into `target`, or unpacks an archive: straight into `target` with
// `direct`, else into a fresh folder of the program's from which the files are copied, so that
// a file already in the level is replaced only when the user agrees. On failure `why`, when
// given, gets the reason for the caller's one message; entries of an archive that were left
// out while the rest came in are told here (text 9105).
bool AddFileToFolder(Program& program, const std::filesystem::path& file,
                     const std::filesystem::path& target, bool direct, Label* label,
                     ProgressBar* bar, std::string* why = nullptr);

// A failure message with its reason, when there is one, on a line of its own.
std::string WithReason(const std::string& message, const std::string& why);

// Copies the files of `source` that match `pattern` into `target`; the bar follows the bytes.
// With `overwrite` clear a file that stands already is replaced only when the user agrees.
// Stops at the first failed copy; given `failed`, copies the rest and adds the files that failed.
bool CopyFilesWithProgress(Program& program, const std::filesystem::path& source,
                           const std::filesystem::path& target, ProgressBar* bar, bool overwrite,
                           std::string_view pattern,
                           std::vector<std::filesystem::path>* failed = nullptr);

}  // namespace vardolin
