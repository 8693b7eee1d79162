#pragma once
// All zip work of the program: packing a folder, unpacking a zip, listing a zip's names, and
// unpacking any other kind of archive a level comes in. Callers see true or false, a list of
// names and a progress bar that moves by files; they show their own message on a failure.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vardolin {
class Program;
class ProgressBar;
}  // namespace vardolin

namespace vardolin {

// Zips the files of `folder` (with `recurse`, the whole tree with its folder entries) into
// `zipFile`, names relative to `folder`; an existing zip of that name is replaced. True when
// `zipFile` stands afterwards: a missing folder, or one without files, writes nothing.
bool ZipFolderToFile(Program& program, const std::filesystem::path& folder,
                     const std::filesystem::path& zipFile, ProgressBar* progressBar, bool recurse);

// Unpacks `zipFile` into `destFolder`. With `eraseFirst` the files directly in `destFolder` are
// deleted before the zip is even opened. False when the zip can't be read or holds no file (a
// zip of folder entries only) or no entry that can be read, when it is protected by a password
// that isn't given, too big for the disk, or expands so far that the user refused it: then
// `destFolder` is left as it was before the zip was opened, and `why`, when given, names the zip
// and the entry. Entries whose bytes are damaged, and names that would land outside
// `destFolder`, are left out (each told in `why`, one a line) and the rest comes in. With
// `honorDirectories` false every file lands directly in `destFolder`.
bool ExtractZip(Program& program, const std::filesystem::path& zipFile,
                const std::filesystem::path& destFolder, ProgressBar* progressBar,
                bool honorDirectories, bool eraseFirst, std::string* why = nullptr);

// The names of the files in `zipFile` (folder entries left out), each '/' turned into '\',
// cut to the file name unless `keepPaths`. `count` is their number; 0 for a zip that can't be
// read.
std::vector<std::string> ListZipEntries(const std::filesystem::path& zipFile, std::int32_t& count,
                                        bool keepPaths);

// Unpacks an archive of any kind libarchive reads (7z, rar, tar, tar.gz, cab ...) into
// `target`, made when missing and emptied first with `emptyTarget`; the bar follows the bytes
// read. With `honorDirectories` false every file lands directly in `target`. An archive that
// can't be unpacked leaves `target` as it was; false then. Without `why` that is told by name as
// an error (text 2255); with it nothing is shown and `why` gets the reason, or on success the
// entries left out, one a line.
bool ExtractWithTool(Program& program, const std::filesystem::path& archive,
                     const std::filesystem::path& target, bool emptyTarget,
                     ProgressBar* progressBar = nullptr, bool honorDirectories = true,
                     std::string* why = nullptr);

}  // namespace vardolin
