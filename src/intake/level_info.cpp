#include "intake/level_info.h"

#include <algorithm>
#include <limits>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/codepage.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace {

namespace L = level_info_layout;

constexpr bool kList = true;

// Each fixed field with its width, in file order, and whether it is a list of NUL-separated
// strings.
template <typename Info, typename F>
void ForEachFixedField(Info& info, F&& f) {
  f(info.LevelName, L::kNote - L::kLevelName, !kList);
  f(info.Note, L::kAuthorName - L::kNote, !kList);
  f(info.AuthorName, L::kAuthorNote - L::kAuthorName, !kList);
  f(info.AuthorNote, L::kAuthorEmails - L::kAuthorNote, !kList);
  f(info.AuthorEmails, L::kAuthorSites - L::kAuthorEmails, kList);
  f(info.AuthorSites, L::kMediaFiles - L::kAuthorSites, kList);
  f(info.MediaFiles, L::kWadFiles - L::kMediaFiles, kList);
  f(info.WadFiles, L::kWadsDescription - L::kWadFiles, kList);
  f(info.WadsDescription, L::kFileCopies - L::kWadsDescription, !kList);
  f(info.FileCopies, L::kMoreInfoFile - L::kFileCopies, kList);
  f(info.MoreInfoFile, L::kSetupDestination - L::kMoreInfoFile, !kList);
  f(info.SetupDestination, L::kListedFileCount - L::kSetupDestination, !kList);
}

// A list's padding is blanks; a NUL at its start is an empty first string (a media group
// without a CD label), which trimming it away would shift every group behind it.
std::string TrimListField(std::string_view raw, int codepage) {
  const std::size_t first = raw.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  raw = raw.substr(first, raw.find_last_not_of(' ') - first + 1);
  return ToUtf8Lossy(raw, codepage);
}

// A one-line text ends at its first NUL: what stands behind is what the writer's buffer held.
std::string TrimTextField(std::string_view raw, int codepage) {
  return Trim(ToUtf8Lossy(raw.substr(0, raw.find('\0')), codepage));
}

// A 16-bit length and that many bytes; false on a negative length or one past the end.
bool ReadCounted(ByteReader& in, int codepage, std::string& out) {
  const std::int16_t length = in.I16();
  if (!in.Ok() || length < 0 || static_cast<size_t>(length) > in.Remaining()) return false;
  out = ToUtf8Lossy(in.Raw(static_cast<size_t>(length)), codepage);
  return true;
}

bool WriteCounted(ByteWriter& out, std::string_view text, int codepage) {
  const std::string bytes = FromUtf8Lossy(text, codepage);
  if (bytes.size() > static_cast<size_t>(std::numeric_limits<std::int16_t>::max())) return false;
  out.I16(static_cast<std::int16_t>(bytes.size()));
  out.Raw(bytes);
  return true;
}

void ShowError(Program& program, std::int32_t id, const std::filesystem::path& path) {
  AskUser(program, program.GetText(id) + path.string(), msg::kError);
}

}  // namespace

LevelInfoParse ParseLevelInfo(std::string_view bytes, LevelInfo& info, int codepage) {
  if (bytes.size() < L::kFirstEntry) return LevelInfoParse::ShortFixedPart;
  LevelInfo read;
  ByteReader in(bytes);
  ForEachFixedField(read, [&](std::string& field, size_t width, bool list) {
    const std::string_view raw = in.Raw(width);
    field = list ? TrimListField(raw, codepage) : TrimTextField(raw, codepage);
  });
  const std::int32_t count = in.I32();
  // Each entry takes at least six bytes, so a count the bytes can't hold is refused before
  // anything is read or sized for it.
  if (count < 0 || static_cast<std::uint64_t>(count) * 6 > in.Remaining())
    return LevelInfoParse::BadEntry;
  for (std::int32_t i = 0; i < count; ++i) {
    std::string name;
    if (!ReadCounted(in, codepage, name)) return LevelInfoParse::BadEntry;
    const std::int32_t size = in.I32();
    if (!in.Ok()) return LevelInfoParse::BadEntry;
    read.ListedNames.push_back(std::move(name));
    read.ListedSizes.push_back(size);
  }
  read.ListedFileCount = count;
  if (in.Remaining() > 0 && !ReadCounted(in, codepage, read.TomLinks))
    return LevelInfoParse::BadEntry;
  info = std::move(read);
  return LevelInfoParse::Ok;
}

std::string LevelInfoImage(const LevelInfo& info, int codepage) {
  ByteWriter out;
  ForEachFixedField(info, [&](const std::string& field, size_t width, bool) {
    out.FixedString(field, width, codepage);
  });
  const size_t count = std::min(info.ListedNames.size(), info.ListedSizes.size());
  out.I32(static_cast<std::int32_t>(count));
  for (size_t i = 0; i < count; ++i) {
    if (!WriteCounted(out, ExtractFileName(info.ListedNames[i]), codepage)) return {};
    out.I32(info.ListedSizes[i]);
  }
  if (!WriteCounted(out, info.TomLinks, codepage)) return {};
  return out.Take();
}

bool ReadLevelInfoFile(Program& program, const std::filesystem::path& path, LevelInfo& info) {
  if (!FileExists(path)) {
    AskUser(program, program.GetText(text::InfoFileMissing, {path.string()}), msg::kError);
    return false;
  }
  std::string bytes;
  if (!ReadFileIfThere(path, bytes)) {
    ShowError(program, text::InfoFileOpenFailed, path);
    return false;
  }
  switch (ParseLevelInfo(bytes, info, program.texts.CodePage)) {
    case LevelInfoParse::Ok:
      return true;
    case LevelInfoParse::ShortFixedPart:
      ShowError(program, text::InfoFileFixedFailed, path);
      return false;
    case LevelInfoParse::BadEntry:
      break;
  }
  ShowError(program, text::InfoFileEntryFailed, path);
  return false;
}

bool WriteLevelInfoFile(Program& program, const std::filesystem::path& path,
                        const LevelInfo& info) {
  const std::string image = LevelInfoImage(info, program.texts.CodePage);
  if (image.empty()) {
    ShowError(program, text::InfoFileWriteEntry, path);
    return false;
  }
  if (!AtomicWriteFile(path, image, false)) {
    ShowError(program, text::InfoFileCreateFailed, path);
    return false;
  }
  return true;
}

}  // namespace vardolin
