#include "foundation/services/pe_version.h"

#include <cstdint>
#include <vector>

#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace {

constexpr std::uint32_t kResourceVersion = 16;
// VS_VERSIONINFO (0) > StringFileInfo (1) > string table of one language (2) > String (3).
constexpr int kStringDepth = 3;

struct Section {
  std::uint32_t virtual_address, virtual_size, raw_size, raw_offset;
};

// Maps a relative virtual address to a file offset through the section table.
bool RvaToOffset(const std::vector<Section>& sections, std::uint32_t rva, std::size_t& offset) {
  for (const Section& s : sections) {
    std::uint32_t span = std::max(s.virtual_size, s.raw_size);
    if (rva >= s.virtual_address && rva - s.virtual_address < span) {
      std::uint32_t delta = rva - s.virtual_address;
      if (delta >= s.raw_size) return false;
      offset = static_cast<std::size_t>(s.raw_offset) + delta;
      return true;
    }
  }
  return false;
}

// Follows one level of the resource tree: the entry with id `id`, or the first entry when `id`
// is 0. Gives the entry's offset field (relative to the resource section).
bool ResourceEntry(std::string_view rsrc, std::uint32_t dir_offset, std::uint32_t id,
                   std::uint32_t& target) {
  ByteReader r(rsrc, dir_offset);
  r.Skip(12);
  std::uint32_t count = static_cast<std::uint32_t>(r.U16()) + r.U16();
  for (std::uint32_t i = 0; i < count && r.Ok(); ++i) {
    std::uint32_t name = r.U32();
    std::uint32_t offset = r.U32();
    if (!r.Ok()) return false;
    if (id == 0 || (!(name & 0x80000000u) && name == id)) {
      target = offset;
      return true;
    }
  }
  return false;
}

// A UTF-16LE string of at most `limit` bytes starting at `pos`, up to its NUL.
std::string Utf16At(std::string_view data, std::size_t pos, std::size_t limit,
                    std::size_t* end = nullptr) {
  std::string out;
  std::size_t stop = std::min(data.size(), pos + limit);
  while (pos + 1 < stop) {
    char32_t unit =
        static_cast<unsigned char>(data[pos]) | (static_cast<unsigned char>(data[pos + 1]) << 8);
    pos += 2;
    if (unit == 0) break;
    if (unit >= 0xD800 && unit <= 0xDBFF && pos + 1 < stop) {
      char32_t low =
          static_cast<unsigned char>(data[pos]) | (static_cast<unsigned char>(data[pos + 1]) << 8);
      if (low >= 0xDC00 && low <= 0xDFFF) {
        unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
        pos += 2;
      }
    }
    AppendUtf8(out, unit);
  }
  if (end) *end = pos;
  return out;
}

std::size_t Align4(std::size_t v) {
  return (v + 3) & ~std::size_t{3};
}

// Searches the version blocks (wLength, wValueLength, wType, key, value, children) for the
// String block named FileVersion.
bool FindFileVersion(std::string_view data, std::size_t pos, std::size_t limit, int depth,
                     std::string& found) {
  while (pos + 6 <= limit) {
    ByteReader r(data, pos);
    std::size_t length = r.U16();
    std::size_t value_length = r.U16();
    std::uint16_t type = r.U16();
    if (length < 6 || pos + length > limit) return false;
    std::size_t block_end = pos + length;
    std::size_t key_end = 0;
    std::string key = Utf16At(data, pos + 6, length - 6, &key_end);
    std::size_t value = Align4(key_end);
    if (key == "FileVersion" && depth == kStringDepth) {
      std::size_t bytes = type == 1 ? value_length * 2 : value_length;
      if (value < block_end) {
        found =
            Utf16At(data, value, std::min(bytes ? bytes : block_end - value, block_end - value));
        return true;
      }
    }
    std::size_t children = Align4(value + (type == 1 ? value_length * 2 : value_length));
    if (depth < kStringDepth && children < block_end && key != "VarFileInfo" &&
        FindFileVersion(data, children, block_end, depth + 1, found))
      return true;
    pos = Align4(block_end);
  }
  return false;
}

}  // namespace

std::string ParsePeFileVersion(std::string_view image) {
  ByteReader dos(image);
  if (dos.U16() != 0x5A4D) return {};  // "MZ"
  dos.Seek(0x3C);
  std::uint32_t pe = dos.U32();
  ByteReader r(image, pe);
  if (!dos.Ok() || r.U32() != 0x00004550) return {};  // "PE\0\0"
  r.Skip(2);
  std::uint16_t section_count = r.U16();
  r.Skip(12);
  std::uint16_t optional_size = r.U16();
  r.Skip(2);
  std::size_t optional = r.Position();
  std::uint16_t magic = r.U16();
  std::size_t dirs;
  if (magic == 0x10B)
    dirs = optional + 96;
  else if (magic == 0x20B)
    dirs = optional + 112;
  else
    return {};
  r.Seek(dirs - 4);
  std::uint32_t dir_count = r.U32();
  if (dir_count < 3 || dirs + 24 > optional + optional_size) return {};
  r.Seek(dirs + 16);  // the resource table is the third directory
  std::uint32_t rsrc_rva = r.U32();
  std::uint32_t rsrc_size = r.U32();
  if (!r.Ok() || rsrc_rva == 0 || rsrc_size == 0) return {};

  std::vector<Section> sections;
  r.Seek(optional + optional_size);
  for (int i = 0; i < section_count && r.Ok(); ++i) {
    r.Skip(8);
    Section s;
    s.virtual_size = r.U32();
    s.virtual_address = r.U32();
    s.raw_size = r.U32();
    s.raw_offset = r.U32();
    r.Skip(16);
    if (r.Ok()) sections.push_back(s);
  }
  std::size_t rsrc_offset = 0;
  if (!RvaToOffset(sections, rsrc_rva, rsrc_offset) || rsrc_offset >= image.size()) return {};
  std::string_view rsrc = image.substr(rsrc_offset);

  // Type (16 = version), then name, then language: take the first of each below the type.
  std::uint32_t entry = 0;
  if (!ResourceEntry(rsrc, 0, kResourceVersion, entry) || !(entry & 0x80000000u)) return {};
  if (!ResourceEntry(rsrc, entry & 0x7FFFFFFFu, 0, entry) || !(entry & 0x80000000u)) return {};
  if (!ResourceEntry(rsrc, entry & 0x7FFFFFFFu, 0, entry) || (entry & 0x80000000u)) return {};
  ByteReader leaf(rsrc, entry);
  std::uint32_t data_rva = leaf.U32();
  std::uint32_t data_size = leaf.U32();
  std::size_t data_offset = 0;
  if (!leaf.Ok() || !RvaToOffset(sections, data_rva, data_offset) || data_offset >= image.size())
    return {};
  std::string_view data = image.substr(data_offset, data_size);
  std::string found;
  FindFileVersion(data, 0, data.size(), 0, found);
  return found;
}

std::string GetFileVersionText(const std::filesystem::path& path) {
  return ParsePeFileVersion(ReadWholeFile(path));
}

}  // namespace vardolin
