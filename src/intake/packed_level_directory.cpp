#include "intake/packed_level_directory.h"

#include "foundation/services/binary_io.h"
#include "foundation/services/strings.h"
#include "intake/byte_source.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace {

// The smallest entry: an empty name and the three numbers.
constexpr std::uint64_t kMinEntryBytes = 4 + 4 + 8 + 8;
// No name or folder of a level comes near this; a longer count is a damaged archive.
constexpr std::int32_t kMaxStringBytes = 1 << 16;

std::u16string Utf16Of(std::string_view utf8) {
  std::u16string out;
  for (std::size_t i = 0; i < utf8.size();) {
    const unsigned char c = static_cast<unsigned char>(utf8[i]);
    const int extra = c < 0x80 ? 0 : c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : -1;
    char32_t code = extra == 0 ? c : extra == 1 ? c & 0x1F : extra == 2 ? c & 0x0F : c & 0x07;
    bool good = extra >= 0 && i + extra < utf8.size() + (extra == 0 ? 1 : 0);
    for (int k = 1; good && k <= extra; ++k) {
      const unsigned char more = static_cast<unsigned char>(utf8[i + k]);
      good = (more & 0xC0) == 0x80;
      code = (code << 6) | (more & 0x3F);
    }
    i += good ? extra + 1 : 1;
    if (!good || code > 0x10FFFF) code = 0xFFFD;
    if (code >= 0x10000) {
      code -= 0x10000;
      out += static_cast<char16_t>(0xD800 + (code >> 10));
      out += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    } else {
      out += static_cast<char16_t>(code);
    }
  }
  return out;
}

std::string Utf8Of(std::u16string_view utf16) {
  std::string out;
  for (std::size_t i = 0; i < utf16.size(); ++i) {
    char32_t code = utf16[i];
    if (code >= 0xD800 && code < 0xDC00 && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 &&
        utf16[i + 1] < 0xE000)
      code = 0x10000 + ((code - 0xD800) << 10) + (utf16[++i] - 0xDC00);
    AppendUtf8(out, code);
  }
  return out;
}

void Scramble(std::string& bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<char>(bytes[i] ^ kArchiveStringKey[i % kArchiveStringKey.size()]);
}

}  // namespace

std::string ScrambledString(std::string_view utf8) {
  std::string bytes;
  for (char16_t unit : Utf16Of(utf8)) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  Scramble(bytes);
  ByteWriter out;
  out.I32(static_cast<std::int32_t>(bytes.size()));
  out.Raw(bytes);
  return out.Take();
}

bool ReadScrambledString(SourceCursor& in, std::string& utf8) {
  const std::int32_t count = in.I32();
  std::string bytes;
  if (!in.Ok() || count < 0 || count > kMaxStringBytes || count % 2 != 0 ||
      !in.Bytes(static_cast<std::size_t>(count), bytes))
    return false;
  Scramble(bytes);
  std::u16string units(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < units.size(); ++i)
    units[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                     (static_cast<unsigned char>(bytes[2 * i + 1]) << 8));
  utf8 = Utf8Of(units);
  return true;
}

std::int32_t ReadDirectory(ByteSource& source, ArchiveDirectory& directory) {
  ArchiveDirectory read;
  SourceCursor in(source, 0);
  const std::int32_t count = in.I32();
  read.External = in.I16() != 0;
  if (!in.Ok() || count < 0 || static_cast<std::uint64_t>(count) * kMinEntryBytes > in.Remaining())
    return text::DirectoryStoreFolder;
  if (!ReadScrambledString(in, read.StoreFolder)) return text::DirectoryStoreFolder;
  for (std::int32_t i = 0; i < count; ++i) {
    std::string name;
    if (!ReadScrambledString(in, name)) return text::DirectoryName;
    const std::int32_t size = in.I32();
    if (!in.Ok() || size < 0) return text::DirectorySize;
    const double file_date = in.F64();
    if (!in.Ok()) return text::DirectoryFileDate;
    const double added_date = in.F64();
    if (!in.Ok()) return text::DirectoryAddedDate;
    read.Names.push_back(std::move(name));
    read.Sizes.push_back(size);
    read.FileDates.push_back(file_date);
    read.AddedDates.push_back(added_date);
  }
  read.FileCount = count;
  read.DataStart = static_cast<std::int64_t>(in.Position()) + 1;
  directory = std::move(read);
  return 0;
}

std::string DirectoryImage(const ArchiveDirectory& directory) {
  ByteWriter out;
  out.I32(static_cast<std::int32_t>(directory.Names.size()));
  out.Flag(directory.External);
  out.Raw(ScrambledString(directory.StoreFolder));
  for (std::size_t i = 0; i < directory.Names.size(); ++i) {
    out.Raw(ScrambledString(directory.Names[i]));
    out.I32(directory.Sizes[i]);
    out.F64(directory.FileDates[i]);
    out.F64(directory.AddedDates[i]);
  }
  return out.Take();
}

std::uint64_t EntryOffset(const ArchiveDirectory& directory, std::size_t index) {
  std::uint64_t offset = static_cast<std::uint64_t>(directory.DataStart - 1);
  for (std::size_t i = 0; i < index && i < directory.Sizes.size(); ++i)
    offset += static_cast<std::uint32_t>(directory.Sizes[i]);
  return offset;
}

int FindEntry(const ArchiveDirectory& directory, std::string_view name) {
  for (std::size_t i = 0; i < directory.Names.size(); ++i)
    if (EqualsNoCase(directory.Names[i], name)) return static_cast<int>(i);
  return -1;
}

}  // namespace vardolin
