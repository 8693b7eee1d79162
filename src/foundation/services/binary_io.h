#pragma once
// Reading and writing the program's binary records field by field, little-endian, never by
// casting structs. A reader past the end yields zeros and remembers that it ran short, so a
// truncated file gives defaults instead of garbage.

#include <cstdint>
#include <string>
#include <string_view>

namespace vardolin {

class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes, size_t offset = 0) : bytes_(bytes), pos_(offset) {}

  std::int16_t I16();
  std::uint16_t U16();
  std::int32_t I32();
  std::uint32_t U32();
  std::int64_t I64();
  double F64();
  std::uint8_t U8();
  // A 16-bit flag: any non-zero word reads as true (the files hold -1 for true).
  bool Flag() { return I16() != 0; }
  // A fixed field of `width` bytes in the given code page, trimmed of blanks and NULs, as UTF-8.
  std::string FixedString(size_t width, int codepage = 1252);
  std::string_view Raw(size_t width);
  void Skip(size_t width);
  void Seek(size_t offset) { pos_ = offset; }

  size_t Position() const { return pos_; }
  size_t Remaining() const { return pos_ < bytes_.size() ? bytes_.size() - pos_ : 0; }
  // True when every read so far found its bytes.
  bool Ok() const { return ok_; }

 private:
  bool Take(size_t width, const char** out);
  std::string_view bytes_;
  size_t pos_;
  bool ok_ = true;
};

class ByteWriter {
 public:
  void I16(std::int16_t v);
  void U16(std::uint16_t v);
  void I32(std::int32_t v);
  void U32(std::uint32_t v);
  void I64(std::int64_t v);
  void F64(double v);
  void U8(std::uint8_t v);
  void Flag(bool v) { I16(v ? -1 : 0); }
  // Converts from UTF-8 to the code page, cuts to `width` bytes and pads with blanks.
  void FixedString(std::string_view text, size_t width, int codepage = 1252);
  void Raw(std::string_view bytes) { out_.append(bytes); }
  void Zeros(size_t width) { out_.append(width, '\0'); }
  void Reserve(size_t bytes) { out_.reserve(bytes); }

  const std::string& Bytes() const { return out_; }
  std::string Take() { return std::move(out_); }
  size_t Size() const { return out_.size(); }

 private:
  std::string out_;
};

}  // namespace vardolin
