#include "foundation/pictures/bmp_codec.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <new>

#include "foundation/services/binary_io.h"

namespace vardolin {
namespace {

constexpr std::uint32_t kRgb = 0, kRle8 = 1, kRle4 = 2, kBitfields = 3, kAlphaBitfields = 6;
constexpr std::size_t kFileHead = 14;
// An RLE picture can describe far more pixels than it has bytes; one that claims more than
// this many per byte is not a picture anybody made.
constexpr std::uint64_t kRlePixelsPerByte = 256;

struct Channel {
  std::uint32_t mask = 0;
  int shift = 0;
  std::uint64_t max = 0;
  explicit Channel(std::uint32_t m = 0) : mask(m) {
    if (!m) return;
    shift = std::countr_zero(m);
    max = (std::uint64_t(m) >> shift);
  }
  std::uint8_t Get(std::uint32_t px, std::uint8_t absent) const {
    if (!mask) return absent;
    return static_cast<std::uint8_t>(((px & mask) >> shift) * 255 / max);
  }
};

struct Header {
  std::int64_t width = 0, height = 0;
  bool top_down = false;
  int bpp = 0;
  std::uint32_t compression = kRgb;
  std::uint32_t colors_used = 0;
  std::uint32_t masks[4] = {0, 0, 0, 0};  // R, G, B, A
  bool has_masks = false;
  std::size_t palette_at = 0;
  int palette_entry = 4;
};

PictureResult ReadHeader(ByteReader& r, std::size_t size, Header& h, std::uint32_t& pixels_at) {
  if (size < kFileHead + 12 || r.U8() != 'B' || r.U8() != 'M') return PictureResult::Malformed;
  r.Skip(8);  // file size and reserved words: writers get them wrong, nothing depends on them
  pixels_at = r.U32();
  std::uint32_t head_size = r.U32();
  if (head_size == 12) {
    h.width = r.U16();
    h.height = r.U16();
    r.Skip(2);
    h.bpp = r.U16();
    h.palette_entry = 3;
  } else if (head_size >= 40 && head_size <= 124) {
    h.width = r.I32();
    h.height = r.I32();
    r.Skip(2);
    h.bpp = r.U16();
    h.compression = r.U32();
    r.Skip(12);
    h.colors_used = r.U32();
    r.Skip(4);
    // Masks sit inside the larger headers, and right after the 40-byte one when it asks for
    // them. They count only for the masked compressions.
    bool masked = h.compression == kBitfields || h.compression == kAlphaBitfields;
    int inside = head_size >= 56 ? 4 : head_size >= 52 ? 3 : 0;
    int after = head_size == 40 && masked ? (h.compression == kAlphaBitfields ? 4 : 3) : 0;
    r.Seek(kFileHead + 40);
    for (int i = 0; i < std::max(inside, after); ++i) h.masks[i] = r.U32();
    h.has_masks = masked;
    if (!masked) std::fill(std::begin(h.masks), std::end(h.masks), 0u);
    h.palette_at = kFileHead + head_size + std::size_t(after) * 4;
    if (head_size == 64 && h.compression > kRle4) return PictureResult::Unsupported;  // OS/2 2.x
  } else {
    return PictureResult::Unsupported;
  }
  if (!r.Ok()) return PictureResult::Malformed;
  if (head_size == 12) h.palette_at = kFileHead + head_size;

  if (h.height < 0) {
    h.top_down = true;
    h.height = -h.height;
  }
  if (h.width <= 0 || h.height <= 0) return PictureResult::Malformed;
  if (std::uint64_t(h.width) * std::uint64_t(h.height) > kMaxPicturePixels)
    return PictureResult::TooLarge;
  switch (h.bpp) {
    case 1:
    case 4:
    case 8:
    case 16:
    case 24:
    case 32:
      break;
    default:
      return PictureResult::Unsupported;
  }
  switch (h.compression) {
    case kRgb:
      break;
    case kRle8:
      if (h.bpp != 8 || h.top_down) return PictureResult::Malformed;
      break;
    case kRle4:
      if (h.bpp != 4 || h.top_down) return PictureResult::Malformed;
      break;
    case kBitfields:
    case kAlphaBitfields:
      if (h.bpp != 16 && h.bpp != 32) return PictureResult::Malformed;
      break;
    default:
      return PictureResult::Unsupported;  // embedded JPEG or PNG, Huffman, ...
  }
  if (!h.has_masks && (h.bpp == 16 || h.bpp == 32)) {
    h.has_masks = true;
    bool five = h.bpp == 16;
    h.masks[0] = five ? 0x7C00 : 0xFF0000;
    h.masks[1] = five ? 0x03E0 : 0x00FF00;
    h.masks[2] = five ? 0x001F : 0x0000FF;
    h.masks[3] = 0;
  }
  if (pixels_at >= size) return PictureResult::Malformed;
  return PictureResult::Ok;
}

PictureResult ReadPalette(std::string_view bytes, const Header& h, std::uint32_t pixels_at,
                          std::array<std::array<std::uint8_t, 3>, 256>& palette) {
  palette = {};
  if (h.bpp > 8) return PictureResult::Ok;
  std::uint32_t count = h.colors_used ? h.colors_used : 1u << h.bpp;
  if (count > 256) count = 256;  // writers that count past the depth: the rest can't be used
  // Old headers can't say how many colours there are; the gap before the pixels can.
  if (pixels_at > h.palette_at)
    count = std::min<std::uint32_t>(count, (pixels_at - h.palette_at) / h.palette_entry);
  ByteReader r(bytes, h.palette_at);
  for (std::uint32_t i = 0; i < count; ++i) {
    std::uint8_t b = r.U8(), g = r.U8(), red = r.U8();
    if (h.palette_entry == 4) r.Skip(1);
    palette[i] = {red, g, b};
  }
  return r.Ok() ? PictureResult::Ok : PictureResult::Malformed;
}

// Palette indexes of an RLE picture, rows bottom-up as stored. Pixels a delta skips stay 0.
PictureResult DecodeRle(std::string_view data, const Header& h, std::vector<std::uint8_t>& index) {
  std::size_t w = std::size_t(h.width), rows = std::size_t(h.height);
  index.assign(w * rows, 0);
  ByteReader r(data);
  std::size_t x = 0, y = 0;
  bool four = h.compression == kRle4;
  auto put = [&](std::uint8_t v) {
    if (x < w && y < rows) index[y * w + x] = v;
    ++x;
  };
  while (y < rows && r.Remaining() >= 2) {
    std::uint8_t count = r.U8(), code = r.U8();
    if (count > 0) {
      for (int i = 0; i < count; ++i) put(four ? ((i & 1) ? code & 0x0F : code >> 4) : code);
    } else if (code == 0) {
      x = 0;
      ++y;
    } else if (code == 1) {
      break;
    } else if (code == 2) {
      x += r.U8();
      y += r.U8();
    } else {
      std::size_t bytes = four ? (code + 1) / 2 : code;
      std::string_view run = r.Raw(bytes);
      if (!r.Ok()) return PictureResult::Malformed;
      for (int i = 0; i < code; ++i) {
        auto b = static_cast<std::uint8_t>(run[four ? i / 2 : i]);
        put(four ? ((i & 1) ? b & 0x0F : b >> 4) : b);
      }
      if (bytes & 1) r.Skip(1);
    }
    if (!r.Ok()) return PictureResult::Malformed;
  }
  return PictureResult::Ok;
}

PictureResult ReadBmpUnguarded(std::string_view bytes, Bitmap& out) {
  out = Bitmap{};
  ByteReader r(bytes);
  Header h;
  std::uint32_t pixels_at = 0;
  if (auto res = ReadHeader(r, bytes.size(), h, pixels_at); res != PictureResult::Ok) return res;
  std::array<std::array<std::uint8_t, 3>, 256> palette;
  if (auto res = ReadPalette(bytes, h, pixels_at, palette); res != PictureResult::Ok) return res;

  std::string_view data = bytes.substr(pixels_at);
  std::uint64_t pixels = std::uint64_t(h.width) * std::uint64_t(h.height);
  bool rle = h.compression == kRle8 || h.compression == kRle4;
  std::uint64_t stride = (std::uint64_t(h.width) * h.bpp + 31) / 32 * 4;
  if (rle) {
    if (pixels > data.size() * kRlePixelsPerByte) return PictureResult::TooLarge;
  } else {
    // The last row may lack its padding; every other byte must be there.
    std::uint64_t need =
        stride * std::uint64_t(h.height - 1) + (std::uint64_t(h.width) * h.bpp + 7) / 8;
    if (need > data.size()) return PictureResult::Malformed;
  }

  Channel red(h.masks[0]), green(h.masks[1]), blue(h.masks[2]), alpha(h.masks[3]);
  bool keep_alpha = h.bpp == 32 && h.masks[3] != 0;
  Bitmap bmp = Bitmap::Make(int(h.width), int(h.height), keep_alpha ? 4 : 3);

  std::vector<std::uint8_t> index;
  if (rle) {
    if (auto res = DecodeRle(data, h, index); res != PictureResult::Ok) return res;
  }
  for (std::int64_t row = 0; row < h.height; ++row) {
    int y = h.top_down ? int(row) : int(h.height - 1 - row);
    const auto* src = reinterpret_cast<const std::uint8_t*>(data.data()) + (rle ? 0 : row * stride);
    for (std::int64_t x = 0; x < h.width; ++x) {
      std::uint8_t* px = bmp.Pixel(int(x), y);
      if (rle || h.bpp <= 8) {
        std::uint8_t i;
        if (rle) {
          i = index[std::size_t(row) * std::size_t(h.width) + std::size_t(x)];
        } else {
          int per_byte = 8 / h.bpp;
          std::uint8_t byte = src[x / per_byte];
          int shift = 8 - h.bpp * int(x % per_byte + 1);
          i = (byte >> shift) & ((1 << h.bpp) - 1);
        }
        px[0] = palette[i][0];
        px[1] = palette[i][1];
        px[2] = palette[i][2];
      } else if (h.bpp == 24) {
        px[0] = src[x * 3 + 2];
        px[1] = src[x * 3 + 1];
        px[2] = src[x * 3];
      } else {
        std::uint32_t v = 0;
        int n = h.bpp / 8;
        for (int b = 0; b < n; ++b) v |= std::uint32_t(src[x * n + b]) << (8 * b);
        px[0] = red.Get(v, 0);
        px[1] = green.Get(v, 0);
        px[2] = blue.Get(v, 0);
        if (keep_alpha) px[3] = alpha.Get(v, 255);
      }
    }
  }
  out = std::move(bmp);
  return PictureResult::Ok;
}

}  // namespace

PictureResult ReadBmp(std::string_view bytes, Bitmap& out) {
  try {
    return ReadBmpUnguarded(bytes, out);
  } catch (const std::bad_alloc&) {
    out = Bitmap{};
    return PictureResult::TooLarge;
  }
}

bool WriteBmp(const Bitmap& bitmap, std::string& out) {
  out.clear();
  if (bitmap.Empty() || bitmap.channels < 3 ||
      std::uint64_t(bitmap.width) * std::uint64_t(bitmap.height) > kMaxPicturePixels ||
      bitmap.pixels.size() < bitmap.RowBytes() * std::size_t(bitmap.height))
    return false;
  std::uint32_t stride = (std::uint32_t(bitmap.width) * 3 + 3) & ~3u;
  std::uint32_t image = stride * std::uint32_t(bitmap.height);
  ByteWriter w;
  w.U8('B');
  w.U8('M');
  w.U32(54 + image);
  w.U32(0);
  w.U32(54);
  w.U32(40);
  w.I32(bitmap.width);
  w.I32(bitmap.height);  // positive: rows bottom-up
  w.U16(1);
  w.U16(24);
  w.U32(kRgb);
  w.U32(image);
  w.I32(2835);  // 72 dots per inch
  w.I32(2835);
  w.U32(0);
  w.U32(0);
  out = w.Take();
  out.reserve(54 + image);
  std::string row(stride, '\0');
  for (int y = bitmap.height - 1; y >= 0; --y) {
    for (int x = 0; x < bitmap.width; ++x) {
      const std::uint8_t* px = bitmap.Pixel(x, y);
      row[x * 3] = static_cast<char>(px[2]);
      row[x * 3 + 1] = static_cast<char>(px[1]);
      row[x * 3 + 2] = static_cast<char>(px[0]);
    }
    out += row;
  }
  return true;
}

}  // namespace vardolin
