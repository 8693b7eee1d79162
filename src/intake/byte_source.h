#pragma once
// Random access to the bytes of a package, from memory or from a file, so that one reader
// serves both the program and its fuzz targets, and a big file is never read whole.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace vardolin {

class ByteSource {
 public:
  virtual ~ByteSource() = default;
  virtual std::uint64_t Size() const = 0;
  // Gives exactly `count` bytes from `position`, or false when they aren't all there.
  virtual bool Read(std::uint64_t position, std::size_t count, std::string& out) = 0;
};

class MemorySource : public ByteSource {
 public:
  explicit MemorySource(std::string_view bytes) : bytes_(bytes) {}
  std::uint64_t Size() const override { return bytes_.size(); }
  bool Read(std::uint64_t position, std::size_t count, std::string& out) override;

 private:
  std::string_view bytes_;
};

class FileSource : public ByteSource {
 public:
  explicit FileSource(const std::filesystem::path& path);
  bool IsOpen() const { return open_; }
  std::uint64_t Size() const override { return size_; }
  bool Read(std::uint64_t position, std::size_t count, std::string& out) override;

 private:
  std::ifstream in_;
  std::uint64_t size_ = 0;
  bool open_ = false;
};

// Little-endian reads from a source at a moving position. A read that runs short leaves the
// cursor failed; every later read fails too, so a caller may test once after several reads.
class SourceCursor {
 public:
  SourceCursor(ByteSource& source, std::uint64_t position) : source_(source), pos_(position) {}
  std::int16_t I16();
  std::int32_t I32();
  std::uint32_t U32();
  double F64();
  // `count` bytes; refused, without reserving anything, when fewer remain.
  bool Bytes(std::size_t count, std::string& out);
  // The bytes up to the next NUL, which is passed; at most `limit` of them.
  bool UpToNul(std::size_t limit, std::string& out);
  void Skip(std::uint64_t count) { pos_ += count; }
  std::uint64_t Position() const { return pos_; }
  std::uint64_t Remaining() const { return pos_ < source_.Size() ? source_.Size() - pos_ : 0; }
  bool Ok() const { return ok_; }

 private:
  std::uint64_t Unsigned(std::size_t width);
  ByteSource& source_;
  std::uint64_t pos_;
  bool ok_ = true;
};

// Copies `count` bytes of the source from `position` to the end of `out`, in pieces.
bool CopySourceBytes(ByteSource& source, std::uint64_t position, std::uint64_t count,
                     std::ostream& out);

}  // namespace vardolin
