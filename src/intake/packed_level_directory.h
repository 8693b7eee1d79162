#pragma once
// The directory at the head of a packed level archive, and the scrambled strings it is written
// with. Pure: bytes in, records out.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class ByteSource;
class SourceCursor;

struct ArchiveDirectory {
  std::int32_t FileCount = 0;
  bool External = false;  // the contents live as files in StoreFolder, not in the archive
  std::string StoreFolder;
  std::vector<std::int32_t> Sizes;
  std::vector<std::string> Names;
  std::vector<double> FileDates;   // OLE dates
  std::vector<double> AddedDates;  // OLE dates
  // File position, counting from 1, of the first content byte.
  std::int64_t DataStart = 1;
};

// Strings are stored as UTF-16 bytes XORed with this key, from its first byte for every string.
inline constexpr std::array<std::uint8_t, 9> kArchiveStringKey = {0x5A, 0x13, 0xC7, 0x2E, 0x91,
                                                                  0x4B, 0xE8, 0x36, 0x7D};

// A 32-bit byte count and the scrambled bytes.
std::string ScrambledString(std::string_view utf8);
// False on a negative or odd count, or one that runs past the end.
bool ReadScrambledString(SourceCursor& in, std::string& utf8);

// Reads the directory from the source's start; 0 on success, otherwise the number of the text
// that tells what couldn't be read. A count or a size that the source can't hold is refused
// before anything is sized for it. DataStart is set behind the directory.
std::int32_t ReadDirectory(ByteSource& source, ArchiveDirectory& directory);
// The directory's bytes as the archive begins with them.
std::string DirectoryImage(const ArchiveDirectory& directory);
// The byte offset (from 0) of an entry's contents in an archive with its contents inside.
std::uint64_t EntryOffset(const ArchiveDirectory& directory, std::size_t index);
// The index of the entry named `name`, without regard to case; -1 when none is.
int FindEntry(const ArchiveDirectory& directory, std::string_view name);

}  // namespace vardolin
