#include "foundation/pictures/jpeg_codec.h"

// jpeglib.h needs size_t and FILE declared first.
#include <csetjmp>
#include <cstdio>
#include <cstdlib>

#include <jerror.h>
#include <jpeglib.h>

#include <algorithm>
#include <new>

namespace vardolin {
namespace {

// Progressive files may hold any number of scans; damaged ones can loop through thousands.
constexpr int kMaxScans = 1000;
// A JPEG spends at least a few bits on every 8x8 block, so a file claiming more pixels than
// this per byte is damaged, whatever its header says.
constexpr std::uint64_t kMaxPixelsPerByte = 1024;

struct Trap {
  jpeg_error_mgr mgr;
  std::jmp_buf jump;
  bool truncated = false;
};

[[noreturn]] void OnError(j_common_ptr cinfo) {
  std::longjmp(reinterpret_cast<Trap*>(cinfo->err)->jump, 1);
}

void OnMessage(j_common_ptr cinfo, int level) {
  // Level -1 is a warning about the data; the one that matters is the stream running out.
  if (level == -1 && cinfo->err->msg_code == JWRN_JPEG_EOF)
    reinterpret_cast<Trap*>(cinfo->err)->truncated = true;
}

void OnProgress(j_common_ptr cinfo) {
  if (cinfo->is_decompressor &&
      reinterpret_cast<j_decompress_ptr>(cinfo)->input_scan_number > kMaxScans)
    std::longjmp(reinterpret_cast<Trap*>(cinfo->err)->jump, 1);
}

void InstallTrap(Trap& trap) {
  jpeg_std_error(&trap.mgr);
  trap.mgr.error_exit = OnError;
  trap.mgr.emit_message = OnMessage;
  trap.mgr.output_message = [](j_common_ptr) {};
}

// Everything that lives across the setjmp sits in this record, which the caller owns, so a
// jump back leaves no half-built C++ object in the jumping frame.
struct Decoder {
  jpeg_decompress_struct cinfo;
  Trap trap;
  jpeg_progress_mgr progress;
  PictureResult result = PictureResult::Malformed;
};

void Decode(Decoder& d, std::string_view bytes, Bitmap& out) {
  d.cinfo.err = &d.trap.mgr;
  InstallTrap(d.trap);
  if (setjmp(d.trap.jump)) return;
  jpeg_create_decompress(&d.cinfo);
  d.progress.progress_monitor = OnProgress;
  d.cinfo.progress = &d.progress;
  jpeg_mem_src(&d.cinfo, reinterpret_cast<const unsigned char*>(bytes.data()),
               static_cast<unsigned long>(bytes.size()));
  if (jpeg_read_header(&d.cinfo, TRUE) != JPEG_HEADER_OK) return;
  std::uint64_t pixels = std::uint64_t(d.cinfo.image_width) * d.cinfo.image_height;
  if (pixels == 0) return;
  if (pixels > kMaxPicturePixels || pixels > bytes.size() * kMaxPixelsPerByte) {
    d.result = PictureResult::TooLarge;
    return;
  }
  d.cinfo.out_color_space = JCS_RGB;
  jpeg_start_decompress(&d.cinfo);
  if (d.cinfo.output_components != 3) {
    d.result = PictureResult::Unsupported;
    return;
  }
  out.width = static_cast<int>(d.cinfo.output_width);
  out.height = static_cast<int>(d.cinfo.output_height);
  out.channels = 3;
  out.pixels.resize(out.RowBytes() * std::size_t(out.height));
  while (d.cinfo.output_scanline < d.cinfo.output_height) {
    JSAMPROW row = out.pixels.data() + std::size_t(d.cinfo.output_scanline) * out.RowBytes();
    if (jpeg_read_scanlines(&d.cinfo, &row, 1) != 1) return;
  }
  jpeg_finish_decompress(&d.cinfo);
  d.result = d.trap.truncated ? PictureResult::Malformed : PictureResult::Ok;
}

struct Encoder {
  jpeg_compress_struct cinfo;
  Trap trap;
  unsigned char* buffer = nullptr;
  unsigned long size = 0;
  bool ok = false;
};

void Encode(Encoder& e, const Bitmap& bitmap, int quality) {
  e.cinfo.err = &e.trap.mgr;
  InstallTrap(e.trap);
  if (setjmp(e.trap.jump)) return;
  jpeg_create_compress(&e.cinfo);
  jpeg_mem_dest(&e.cinfo, &e.buffer, &e.size);
  e.cinfo.image_width = static_cast<JDIMENSION>(bitmap.width);
  e.cinfo.image_height = static_cast<JDIMENSION>(bitmap.height);
  e.cinfo.input_components = bitmap.channels;
  e.cinfo.in_color_space = bitmap.channels == 4 ? JCS_EXT_RGBX : JCS_RGB;
  jpeg_set_defaults(&e.cinfo);
  jpeg_set_quality(&e.cinfo, std::clamp(quality, 1, 100), TRUE);
  jpeg_start_compress(&e.cinfo, TRUE);
  while (e.cinfo.next_scanline < e.cinfo.image_height) {
    auto row = const_cast<JSAMPROW>(bitmap.Pixel(0, static_cast<int>(e.cinfo.next_scanline)));
    jpeg_write_scanlines(&e.cinfo, &row, 1);
  }
  jpeg_finish_compress(&e.cinfo);
  e.ok = true;
}

}  // namespace

PictureResult ReadJpeg(std::string_view bytes, Bitmap& out) {
  out = Bitmap{};
  if (bytes.size() < 4 || static_cast<unsigned char>(bytes[0]) != 0xFF ||
      static_cast<unsigned char>(bytes[1]) != 0xD8)
    return PictureResult::Malformed;
  Decoder d{};
  try {
    Decode(d, bytes, out);
  } catch (const std::bad_alloc&) {
    d.result = PictureResult::TooLarge;
  }
  jpeg_destroy_decompress(&d.cinfo);
  if (d.result != PictureResult::Ok) out = Bitmap{};
  return d.result;
}

PictureResult WriteJpeg(const Bitmap& bitmap, int quality, std::string& out) {
  out.clear();
  if (bitmap.Empty() || (bitmap.channels != 3 && bitmap.channels != 4) ||
      bitmap.width > JPEG_MAX_DIMENSION || bitmap.height > JPEG_MAX_DIMENSION ||
      bitmap.pixels.size() < bitmap.RowBytes() * std::size_t(bitmap.height))
    return PictureResult::Unsupported;
  Encoder e{};
  Encode(e, bitmap, quality);
  jpeg_destroy_compress(&e.cinfo);
  if (e.ok) out.assign(reinterpret_cast<const char*>(e.buffer), e.size);
  std::free(e.buffer);
  return e.ok ? PictureResult::Ok : PictureResult::CannotWrite;
}

}  // namespace vardolin
