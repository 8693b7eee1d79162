#pragma once
// Self-installing level programs of our own make: a Windows program with the level's files
// behind its code, found through the offset in the program's last four bytes.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class ByteSource;
class Label;
class Program;

struct InstallerEntry {
  std::string name;
  std::uint64_t offset = 0;  // of the content, from the file's start
  std::uint32_t size = 0;
};

enum class InstallerTrailer {
  NotInstaller,  // no trailer: a plain program
  Ok,
  Damaged,  // the trailer is there but its entries run past the end
};

// Reads the trailer whose magic is `magic` and a NUL. The entries are taken as the bytes give
// them, never sized from the stored count.
InstallerTrailer ReadInstallerTrailer(ByteSource& source, std::string_view magic,
                                      std::vector<InstallerEntry>& entries);

// Writes the files of the program `exe` into `target` (made when missing, its files deleted
// first with `emptyTarget`). True when the file was an installer and its files were written. A
// damaged installer, or one with a name that isn't a plain file name, is told and leaves
// `target` as it was.
bool UnpackSelfInstaller(Program& program, const std::filesystem::path& exe,
                         const std::filesystem::path& target, bool emptyTarget);

// Unpacks every self-installer of `folder` (zips inside included) into a temporary folder of the
// program home and brings the level's files from there into `folder`; each installer unpacked is
// deleted, any other program stays.
void UnpackSelfInstallers(Program& program, const std::filesystem::path& folder, Label* info);

}  // namespace vardolin
