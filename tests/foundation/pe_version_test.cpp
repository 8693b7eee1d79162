#include "foundation/services/pe_version.h"

#include <gtest/gtest.h>

#include "foundation/services/binary_io.h"

namespace vardolin {
namespace {

// Builds the blocks of a version resource: length, value length, type, UTF-16 key, value,
// children, each part aligned to four bytes.
std::string Utf16(const std::u16string& s) {
  std::string out;
  for (char16_t c : s) {
    out += static_cast<char>(c & 0xFF);
    out += static_cast<char>(c >> 8);
  }
  return out + std::string(2, '\0');
}

void Pad4(std::string& s) {
  s.append((4 - s.size() % 4) % 4, '\0');
}

std::string Block(const std::u16string& key, const std::string& value, int type,
                  std::uint16_t value_length, const std::vector<std::string>& children = {}) {
  std::string out = std::string(6, '\0') + Utf16(key);
  Pad4(out);
  out += value;
  for (const auto& child : children) {
    Pad4(out);
    out += child;
  }
  ByteWriter head;
  for (auto v : {static_cast<std::uint16_t>(out.size()), value_length, std::uint16_t(type)})
    head.U16(v);
  out.replace(0, 6, head.Bytes());
  return out;
}

std::string Text(const std::u16string& key, const std::u16string& value) {
  return Block(key, Utf16(value), 1, static_cast<std::uint16_t>(value.size() + 1));
}

std::string VersionInfo(const std::vector<std::string>& strings, bool var_first = false) {
  std::string fixed(52, '\0');
  fixed[0] = '\xBD', fixed[1] = '\x04', fixed[2] = '\xEF', fixed[3] = '\xFE';
  std::string table = Block(u"040904B0", "", 1, 0, strings);
  std::string sfi = Block(u"StringFileInfo", "", 1, 0, {table});
  std::string var = Block(u"VarFileInfo", "", 1, 0,
                          {Block(u"Translation", std::string("\x09\x04\xB0\x04", 4), 0, 4)});
  std::vector<std::string> kids = var_first ? std::vector{var, sfi} : std::vector{sfi, var};
  return Block(u"VS_VERSION_INFO", fixed, 0, 52, kids);
}

// A PE image with one .rsrc section that holds the tree type 16 > id 1 > language 0x409.
std::string PeImage(const std::string& version, bool pe32_plus = false, int resource_type = 16) {
  const std::uint32_t kRva = 0x1000, kRaw = 0x200;
  ByteWriter rsrc;
  auto dir = [&](std::uint32_t name, std::uint32_t offset) {
    rsrc.Zeros(12);
    rsrc.U16(0);
    rsrc.U16(1);
    rsrc.U32(name);
    rsrc.U32(offset);
  };
  dir(static_cast<std::uint32_t>(resource_type), 0x80000018u);
  dir(1, 0x80000030u);
  dir(0x409, 0x48);
  rsrc.U32(kRva + 0x58);
  rsrc.U32(static_cast<std::uint32_t>(version.size()));
  rsrc.Zeros(8);
  rsrc.Raw(version);

  const auto rsrc_size = static_cast<std::uint32_t>(rsrc.Size());
  std::uint16_t optional_size = pe32_plus ? 240 : 224;
  ByteWriter w;
  w.Raw("MZ");
  w.Zeros(0x3A);
  w.U32(0x40);
  w.Raw(std::string("PE\0\0", 4));
  for (std::uint16_t v : {0x14C, 1}) w.U16(v);  // machine, one section
  w.Zeros(12);
  for (std::uint16_t v : {optional_size, std::uint16_t(0x102)}) w.U16(v);
  std::size_t optional = w.Size();
  w.U16(pe32_plus ? 0x20B : 0x10B);
  w.Zeros((pe32_plus ? 112 : 96) - 6);
  w.U32(16);  // data directories: two empty, then the resources'
  w.Zeros(16);
  for (std::uint32_t v : {kRva, rsrc_size}) w.U32(v);
  w.Zeros(optional + optional_size - w.Size());
  w.Raw(std::string(".rsrc\0\0\0", 8));
  for (std::uint32_t v : {rsrc_size, kRva, rsrc_size, kRaw}) w.U32(v);
  w.Zeros(16);
  w.Zeros(kRaw - w.Size());
  w.Raw(rsrc.Bytes());
  return w.Take();
}

TEST(PeVersionTest, ReadsTheFileVersionString) {
  const std::vector<std::string> strings = {Text(u"CompanyName", u"Core Design"),
                                            Text(u"FileVersion", u"1, 0, 4, 2 \u00e9"),
                                            Text(u"ProductVersion", u"9.9")};
  struct {
    const char* what;
    std::string image;
    std::string version;
  } cases[] = {
      {"pe32", PeImage(VersionInfo(strings)), "1, 0, 4, 2 \xC3\xA9"},
      {"pe32+", PeImage(VersionInfo(strings), true), "1, 0, 4, 2 \xC3\xA9"},
      {"var info first", PeImage(VersionInfo(strings, true)), "1, 0, 4, 2 \xC3\xA9"},
      {"no FileVersion", PeImage(VersionInfo({Text(u"ProductVersion", u"9.9")})), ""},
      {"no version resource", PeImage(VersionInfo(strings), false, 3), ""},
      {"not a PE", "MZ but nothing more", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(ParsePeFileVersion(c.image), c.version) << c.what;
}

}  // namespace
}  // namespace vardolin
