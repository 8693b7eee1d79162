#pragma once
// The header file beside a packed level, and the names by which the files of a packed level are
// judged: audio tracks, savegames and the level's own pictures that stay inside.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class ByteSource;
class Program;

struct PackageHeader {
  std::string Signature;
  std::int32_t Reserved = 0;
  std::string Block;  // 16 bytes
  std::int32_t Values[4] = {0, 0, 0, 0};
  std::string Text;
  std::int32_t NameCount = 0;
  std::vector<std::string> Names;  // the level's own names, kept inside the archive
  std::int32_t Value = 0;
  std::filesystem::path Folder;  // where the header was read from
};

enum class HeaderParse { Ok, NotHeader, BadText, BadName, Short };

// Reads a header whose signature begins with `signature` (three characters, any case).
HeaderParse ParsePackageHeader(ByteSource& source, std::string_view signature,
                               PackageHeader& header);
// True when `path` was read into `header`. A file of another signature gives false silently;
// a damaged one is logged (and shown with `show`), and `header` stays as it was.
bool ReadPackageHeader(Program& program, const std::filesystem::path& path, PackageHeader& header,
                       bool show);

// "003.wav": seven characters, three digits, an audio extension.
bool IsAudioTrackName(const Program& program, std::string_view name);
// "savegame.0" to "savegame.14", in the editor folder unless `anyFolder`.
bool IsSavegameName(const Program& program, std::string_view path, bool anyFolder);
// One of the header's names, or a picture of the numbered kind the level keeps inside.
bool IsKeptName(const Program& program, const PackageHeader& header, std::string_view name);

}  // namespace vardolin
