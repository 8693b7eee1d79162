#include "savegames/savegame_header.h"

#include <fstream>

#include "foundation/program.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/codepage.h"
#include "foundation/services/strings.h"
#include "savegames/text_ids.h"

namespace vardolin {

namespace {
constexpr std::size_t kHeaderSize = kSavegameNumberOffset + 2;

// The game writes the title as a text field: it ends at a comma or a line end. NUL ends it as
// well, since no title holds one and a padded field would otherwise carry it along. npos when
// nothing ends it within its width.
std::size_t TitleEnd(std::string_view bytes) {
  return bytes.substr(0, kSavegameTitleWidth).find_first_of(std::string_view(",\r\n\0", 4));
}
}  // namespace

SavegameHeader ParseSavegameHeader(std::string_view bytes) {
  SavegameHeader header;
  // A file too short to hold the save number is a slot the game never finished writing.
  if (bytes.size() < kHeaderSize) return header;
  const std::string_view field = bytes.substr(0, kSavegameTitleWidth);
  header.title = Trim(ToUtf8Lossy(field.substr(0, TitleEnd(bytes)), 1252));
  ByteReader reader(bytes.substr(kSavegameNumberOffset, 2));
  header.save_number = reader.I16();
  header.readable = true;
  return header;
}

bool IsGameSavegame(std::string_view bytes) {
  const SavegameHeader header = ParseSavegameHeader(bytes);
  if (!header.readable || header.title.empty() || header.save_number < 0) return false;
  const std::size_t end = TitleEnd(bytes);
  if (end == std::string_view::npos) return false;
  for (char c : bytes.substr(0, end))
    if (static_cast<unsigned char>(c) < 0x20) return false;
  return true;
}

std::int32_t ReadSavegameHeader(const Program& program, const std::filesystem::path& path,
                                std::string& title) {
  title = program.GetText(text::UnreadableSavegameTitle);
  std::ifstream in(path, std::ios::binary);
  if (!in) return 0;
  std::string bytes(kHeaderSize, '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  const SavegameHeader header = ParseSavegameHeader(bytes);
  if (!header.readable) return 0;
  title = header.title;
  return header.save_number;
}

}  // namespace vardolin
