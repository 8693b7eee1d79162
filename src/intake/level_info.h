#pragma once
// The level info file: a level's description as it travels from one archive to another inside
// an exported zip. The add-level flow reads it, applies it and deletes it.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;

// The list fields hold their strings separated by NUL bytes.
struct LevelInfo {
  std::string LevelName;
  std::string Note;
  std::string AuthorName;
  std::string AuthorNote;
  std::string AuthorEmails;
  std::string AuthorSites;
  std::string MediaFiles;  // groups of four: CD label, file on the CD, target, second name
  std::string WadFiles;    // pairs: path below the editor, address of a wad pack
  std::string WadsDescription;
  std::string FileCopies;  // pairs: file pattern, new name
  std::string MoreInfoFile;
  std::string SetupDestination;  // empty when the level has no setup program
  std::int32_t ListedFileCount = 0;
  std::vector<std::string> ListedNames;
  std::vector<std::int32_t> ListedSizes;
  std::string TomLinks;  // pairs: base name of a .tom file, wad pattern

  bool operator==(const LevelInfo&) const = default;
};

// Where each fixed field starts in the file; the listed files follow the last one.
namespace level_info_layout {
inline constexpr std::size_t kLevelName = 0, kNote = 256, kAuthorName = 512, kAuthorNote = 592,
                             kAuthorEmails = 848, kAuthorSites = 1104, kMediaFiles = 1360,
                             kWadFiles = 5456, kWadsDescription = 7504, kFileCopies = 8016,
                             kMoreInfoFile = 8616, kSetupDestination = 8696,
                             kListedFileCount = 8706, kFirstEntry = 8710;
}  // namespace level_info_layout

enum class LevelInfoParse { Ok, ShortFixedPart, BadEntry };

// Reads a whole file image. The listed files are taken as far as the bytes go: a count that
// promises more entries than the file holds, or a negative length, is a BadEntry. A file that
// ends behind its entries has no tom links.
LevelInfoParse ParseLevelInfo(std::string_view bytes, LevelInfo& info, int codepage = 1252);
// The file image. Of each listed name only its file name part is written. Empty when a name or
// the tom links don't fit their 16-bit length.
std::string LevelInfoImage(const LevelInfo& info, int codepage = 1252);

// True when the file was read into `info`; otherwise an error box names the file and `info` is
// left as it was.
bool ReadLevelInfoFile(Program& program, const std::filesystem::path& path, LevelInfo& info);
bool WriteLevelInfoFile(Program& program, const std::filesystem::path& path, const LevelInfo& info);

}  // namespace vardolin
