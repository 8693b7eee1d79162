#pragma once
// Reading archives in-process with libarchive: listing their names and unpacking them into a
// folder without ever writing outside it.
//
// Names come as authors make them: '/' or '\' separators, folder entries, zip names in the OEM
// code page or in UTF-8 when the zip says so; every name reaches the caller as UTF-8. Each one
// is joined onto the destination through SafeJoin, and a name that passes through a link stored
// in the same archive is refused too (links themselves are never made). A refused name is
// skipped and told in the result; the other files still come in.
//
// An unpacking either completes or leaves the destination as it found it: a file that stands is
// replaced only once the whole archive has been read (the new bytes wait under a temporary name
// beside it), and the files it writes under new names go again when it fails, so a wrong
// password or a full disk takes back all it wrote. A kill leaves the list of those new names to
// the next run's clean-up (UnfinishedList). Damage costs only the entries it touches.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vardolin {
class Program;
}

namespace vardolin {

enum class ArchiveKinds {
  Zip,  // zip files only, self-extracting ones included
  Any,  // every format and compression libarchive reads: 7z, rar, tar, tar.gz, cab, iso ...
};

enum class UnpackFailure { None, Unreadable, Damaged, Password, NoSpace, CannotWrite, Declined };

struct ListedEntry {
  std::string name;  // UTF-8, separators as stored
  bool folder = false;
  std::uint64_t size = 0;  // the size the archive declares, where the listing knows it
};

// Calls `each` for every entry in archive order. False, with `error` naming the archive, when
// it can't be read to its end; the entries met before that have been given.
bool ListArchive(const std::filesystem::path& archive, ArchiveKinds kinds,
                 const std::function<void(const ListedEntry&)>& each, std::string& error);

struct UnpackOptions {
  ArchiveKinds kinds = ArchiveKinds::Zip;
  bool honor_directories = true;     // false: every file lands directly in the destination
  bool space_to_underscore = false;  // blanks in names become '_'
  // After each file written: the count so far, and how far through the archive's bytes the
  // reading has come (0 to 1).
  std::function<void(std::int64_t files_done, double fraction)> progress;
};

struct UnpackResult {
  bool ok = false;
  UnpackFailure failure = UnpackFailure::None;
  std::int64_t files_done = 0;
  std::string message;               // why it failed, naming the archive and the entry
  std::vector<std::string> refused;  // one line per name that was skipped, with the reason
  std::vector<std::string> damaged;  // one line per entry that couldn't be read, with the reason
};

// Unpacks `archive` into `destination` (made when missing). A password is asked through the
// program's Ui ("Please Enter The Password!") at most once per archive; an empty answer gives
// up. The total a zip declares is checked against the free space of the disk before anything
// is written (for other kinds each file's size as it comes), with room for each file's blocks;
// a package that expands past 100 times its own size or past 4 GB is asked about first
// (text 9104). An entry whose bytes can't be read is left out and named in `damaged`; the
// entries that could be read come in, unless none could.
UnpackResult UnpackArchive(Program& program, const std::filesystem::path& archive,
                           const std::filesystem::path& destination, const UnpackOptions& options);

}  // namespace vardolin
