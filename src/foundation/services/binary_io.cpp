#include "foundation/services/binary_io.h"

#include <bit>
#include <cstring>

#include "foundation/services/codepage.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace {

template <class T>
T LoadLe(const char* p) {
  using U = std::make_unsigned_t<T>;
  U v = 0;
  for (size_t i = 0; i < sizeof(T); ++i)
    v |= static_cast<U>(static_cast<unsigned char>(p[i])) << (8 * i);
  return static_cast<T>(v);
}

template <class T>
void StoreLe(std::string& out, T value) {
  using U = std::make_unsigned_t<T>;
  U v = static_cast<U>(value);
  for (size_t i = 0; i < sizeof(T); ++i) out.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
}

}  // namespace

bool ByteReader::Take(size_t width, const char** out) {
  if (pos_ > bytes_.size() || bytes_.size() - pos_ < width) {
    ok_ = false;
    pos_ += width;
    return false;
  }
  *out = bytes_.data() + pos_;
  pos_ += width;
  return true;
}

std::int16_t ByteReader::I16() {
  const char* p;
  return Take(2, &p) ? LoadLe<std::int16_t>(p) : 0;
}
std::uint16_t ByteReader::U16() {
  const char* p;
  return Take(2, &p) ? LoadLe<std::uint16_t>(p) : 0;
}
std::int32_t ByteReader::I32() {
  const char* p;
  return Take(4, &p) ? LoadLe<std::int32_t>(p) : 0;
}
std::uint32_t ByteReader::U32() {
  const char* p;
  return Take(4, &p) ? LoadLe<std::uint32_t>(p) : 0;
}
std::int64_t ByteReader::I64() {
  const char* p;
  return Take(8, &p) ? LoadLe<std::int64_t>(p) : 0;
}
std::uint8_t ByteReader::U8() {
  const char* p;
  return Take(1, &p) ? static_cast<std::uint8_t>(*p) : 0;
}
double ByteReader::F64() {
  return std::bit_cast<double>(static_cast<std::uint64_t>(I64()));
}

std::string_view ByteReader::Raw(size_t width) {
  const char* p;
  if (Take(width, &p)) return std::string_view(p, width);
  // A short field keeps what is there.
  size_t start = pos_ - width;
  if (start < bytes_.size()) return bytes_.substr(start);
  return {};
}

void ByteReader::Skip(size_t width) {
  const char* p;
  Take(width, &p);
}

std::string ByteReader::FixedString(size_t width, int codepage) {
  std::string_view raw = Raw(width);
  return Trim(ToUtf8Lossy(raw, codepage));
}

void ByteWriter::I16(std::int16_t v) {
  StoreLe(out_, v);
}
void ByteWriter::U16(std::uint16_t v) {
  StoreLe(out_, v);
}
void ByteWriter::I32(std::int32_t v) {
  StoreLe(out_, v);
}
void ByteWriter::U32(std::uint32_t v) {
  StoreLe(out_, v);
}
void ByteWriter::I64(std::int64_t v) {
  StoreLe(out_, v);
}
void ByteWriter::U8(std::uint8_t v) {
  out_.push_back(static_cast<char>(v));
}
void ByteWriter::F64(double v) {
  I64(static_cast<std::int64_t>(std::bit_cast<std::uint64_t>(v)));
}

void ByteWriter::FixedString(std::string_view text, size_t width, int codepage) {
  std::string bytes = FromUtf8Lossy(text, codepage);
  if (bytes.size() > width) bytes.resize(width);
  bytes.append(width - bytes.size(), ' ');
  out_ += bytes;
}

}  // namespace vardolin
