#include "intake/byte_source.h"

#include <algorithm>
#include <cstring>
#include <system_error>

namespace vardolin {

bool MemorySource::Read(std::uint64_t position, std::size_t count, std::string& out) {
  if (position > bytes_.size() || count > bytes_.size() - position) return false;
  out.assign(bytes_.substr(position, count));
  return true;
}

FileSource::FileSource(const std::filesystem::path& path) {
  std::error_code ec;
  size_ = std::filesystem::file_size(path, ec);
  if (ec) return;
  in_.open(path, std::ios::binary);
  open_ = in_.is_open();
}

bool FileSource::Read(std::uint64_t position, std::size_t count, std::string& out) {
  if (!open_ || position > size_ || count > size_ - position) return false;
  out.resize(count);
  in_.clear();
  in_.seekg(static_cast<std::streamoff>(position));
  in_.read(out.data(), static_cast<std::streamsize>(count));
  return in_.gcount() == static_cast<std::streamsize>(count);
}

std::uint64_t SourceCursor::Unsigned(std::size_t width) {
  std::string bytes;
  if (!Bytes(width, bytes)) return 0;
  std::uint64_t v = 0;
  for (std::size_t i = 0; i < width; ++i)
    v |= std::uint64_t(static_cast<unsigned char>(bytes[i])) << (8 * i);
  return v;
}

std::int16_t SourceCursor::I16() {
  return static_cast<std::int16_t>(Unsigned(2));
}
std::int32_t SourceCursor::I32() {
  return static_cast<std::int32_t>(Unsigned(4));
}
std::uint32_t SourceCursor::U32() {
  return static_cast<std::uint32_t>(Unsigned(4));
}
double SourceCursor::F64() {
  const std::uint64_t bits = Unsigned(8);
  double v;
  std::memcpy(&v, &bits, sizeof v);
  return v;
}

bool SourceCursor::Bytes(std::size_t count, std::string& out) {
  if (!ok_ || count > Remaining() || !source_.Read(pos_, count, out)) return ok_ = false;
  pos_ += count;
  return true;
}

bool SourceCursor::UpToNul(std::size_t limit, std::string& out) {
  out.clear();
  std::string piece;
  while (ok_) {
    const std::size_t want = static_cast<std::size_t>(std::min<std::uint64_t>(64, Remaining()));
    if (want == 0 || !source_.Read(pos_, want, piece)) break;
    const std::size_t nul = piece.find('\0');
    const std::size_t take = nul == std::string::npos ? want : nul;
    if (out.size() + take > limit) break;
    out.append(piece, 0, take);
    pos_ += take;
    if (nul != std::string::npos) {
      ++pos_;
      return true;
    }
  }
  return ok_ = false;
}

bool CopySourceBytes(ByteSource& source, std::uint64_t position, std::uint64_t count,
                     std::ostream& out) {
  std::string piece;
  while (count > 0) {
    const std::size_t step = static_cast<std::size_t>(std::min<std::uint64_t>(count, 1 << 20));
    if (!source.Read(position, step, piece)) return false;
    out.write(piece.data(), static_cast<std::streamsize>(step));
    if (!out) return false;
    position += step;
    count -= step;
  }
  return true;
}

}  // namespace vardolin
