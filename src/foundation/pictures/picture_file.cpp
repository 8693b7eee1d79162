#include "foundation/pictures/picture_file.h"

#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

#include "foundation/pictures/bmp_codec.h"
#include "foundation/pictures/jpeg_codec.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace {

// No picture the program handles comes near this; it keeps a stray huge file out of memory.
constexpr std::uintmax_t kMaxPictureFileBytes = 256u << 20;

}  // namespace

PictureKind PictureKindOfName(const std::filesystem::path& path) {
  std::string ext = ToLower(path.extension().string());
  if (ext == ".bmp" || ext == ".dib") return PictureKind::Bmp;
  if (ext == ".jpg" || ext == ".jpeg" || ext == ".jpe" || ext == ".jfif") return PictureKind::Jpeg;
  return PictureKind::Unknown;
}

PictureResult ReadPictureFile(const std::filesystem::path& path, Bitmap& out) {
  out = Bitmap{};
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) return PictureResult::CannotRead;
  std::uintmax_t size = std::filesystem::file_size(path, ec);
  if (ec) return PictureResult::CannotRead;
  if (size > kMaxPictureFileBytes) return PictureResult::TooLarge;
  std::ifstream in(path, std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) return PictureResult::CannotRead;
  if (bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M') return ReadBmp(bytes, out);
  if (bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFF &&
      static_cast<unsigned char>(bytes[1]) == 0xD8)
    return ReadJpeg(bytes, out);
  return PictureResult::Malformed;
}

PictureResult WritePictureFile(const std::filesystem::path& path, const Bitmap& bitmap,
                               int quality) {
  std::string bytes;
  switch (PictureKindOfName(path)) {
    case PictureKind::Bmp:
      if (!WriteBmp(bitmap, bytes)) return PictureResult::Unsupported;
      break;
    case PictureKind::Jpeg:
      if (auto res = WriteJpeg(bitmap, quality, bytes); res != PictureResult::Ok) return res;
      break;
    case PictureKind::Unknown:
      return PictureResult::Unsupported;
  }
  return AtomicWriteFile(path, bytes) ? PictureResult::Ok : PictureResult::CannotWrite;
}

bool ConvertPictureFile(const std::filesystem::path& source, const std::filesystem::path& target,
                        int quality, PictureResult* why) {
  Bitmap bitmap;
  PictureResult res = ReadPictureFile(source, bitmap);
  if (res == PictureResult::Ok) res = WritePictureFile(target, bitmap, quality);
  if (why) *why = res;
  return res == PictureResult::Ok;
}

}  // namespace vardolin
