#include <gtest/gtest.h>

#include "foundation/pictures/bmp_codec.h"
#include "foundation/pictures/jpeg_codec.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/services/binary_io.h"
#include "temp_dir.h"

namespace vardolin {
namespace {

using testing::ReadFile;
using testing::TempDir;
using Rgb = std::array<std::uint8_t, 3>;

// Only full or empty channels, so that every depth (5-bit channels included) holds them exactly.
const std::vector<Rgb> kColours = {{0, 0, 0},   {255, 255, 255}, {255, 0, 0},   {0, 255, 0},
                                   {0, 0, 255}, {255, 255, 0},   {0, 255, 255}, {255, 0, 255}};

struct BmpSpec {
  int bpp = 24;
  bool top_down = false;
  int head_size = 40;
  int colours = 8;  // palette size for bpp <= 8
  bool alpha_masks = false;
  std::string_view rle = {};  // run-length pixel data, for bpp 4 or 8
};

int IndexAt(int x, int y, int colours) {
  return (x * 3 + y * 5) % colours;
}

// An encoder of its own, written from the format's description rather than from the reader.
std::string EncodeBmp(int w, int h, const BmpSpec& s) {
  bool core = s.head_size == 12;
  int palette = s.bpp <= 8 ? s.colours : 0;
  int entry = core ? 3 : 4;
  int masks = s.alpha_masks && s.head_size == 40 ? 16 : 0;
  std::uint32_t stride = (std::uint32_t(w) * s.bpp + 31) / 32 * 4;
  std::uint32_t offset = 14 + s.head_size + masks + palette * entry;
  std::uint32_t pixels = s.rle.empty() ? stride * h : std::uint32_t(s.rle.size());
  ByteWriter b;
  b.Raw("BM");
  b.U32(offset + pixels);
  b.U32(0);
  b.U32(offset);
  b.U32(s.head_size);
  if (core) {
    for (int v : {w, h, 1, s.bpp}) b.U16(v);
  } else {
    b.I32(w);
    b.I32(s.top_down ? -h : h);
    b.U16(1);
    b.U16(s.bpp);
    b.U32(!s.rle.empty() ? (s.bpp == 8 ? 1 : 2) : s.alpha_masks ? 6 : 0);
    b.U32(pixels);
    b.I32(2835);
    b.I32(2835);
    b.U32(palette == (1 << s.bpp) ? 0 : palette);
    b.U32(0);
    std::size_t written = 40;
    if (s.alpha_masks || s.head_size > 40) {
      for (std::uint32_t m : {0x00FF0000u, 0x0000FF00u, 0x000000FFu, 0xFF000000u}) b.U32(m);
      written += 16;
    }
    if (s.head_size > 40) b.Zeros(s.head_size - written);
  }
  for (int i = 0; i < palette; ++i) {
    for (int ch = 2; ch >= 0; --ch) b.U8(kColours[i][ch]);
    if (!core) b.U8(0);
  }
  b.Raw(s.rle);
  for (int row = 0; row < h && s.rle.empty(); ++row) {
    int y = s.top_down ? row : h - 1 - row;
    std::string line(stride, '\0');
    for (int x = 0; x < w; ++x) {
      int i = IndexAt(x, y, s.bpp <= 8 ? s.colours : int(kColours.size()));
      const Rgb& c = kColours[i];
      if (s.bpp <= 8) {
        int per = 8 / s.bpp;
        line[x / per] = char(std::uint8_t(line[x / per]) | (i << (8 - s.bpp * (x % per + 1))));
      } else if (s.bpp == 16) {
        std::uint16_t v = (c[0] >> 3) << 10 | (c[1] >> 3) << 5 | (c[2] >> 3);
        line[x * 2] = char(v & 0xFF);
        line[x * 2 + 1] = char(v >> 8);
      } else {
        int n = s.bpp / 8;
        line[x * n] = char(c[2]);
        line[x * n + 1] = char(c[1]);
        line[x * n + 2] = char(c[0]);
        if (n == 4) line[x * n + 3] = char(s.alpha_masks ? 10 * x : 0xAB);
      }
    }
    b.Raw(line);
  }
  return b.Take();
}

// Every pixel of `bmp` against the colour whose index `index` gives for it.
void ExpectPixels(const Bitmap& bmp, int w, int h, const std::function<int(int, int)>& index) {
  ASSERT_EQ(bmp.width, w);
  ASSERT_EQ(bmp.height, h);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) {
      const std::uint8_t* px = bmp.Pixel(x, y);
      ASSERT_EQ((Rgb{px[0], px[1], px[2]}), kColours[index(x, y)]) << x << "," << y;
    }
}

TEST(BmpReader, EveryDepthAndRowOrderReadsBackItsPixels) {
  struct Case {
    const char* name;
    BmpSpec spec;
    int channels;
  };
  const std::vector<Case> cases = {
      {"1 bit", {.bpp = 1, .colours = 2}, 3},
      {"4 bit", {.bpp = 4, .colours = 8}, 3},
      {"8 bit", {.bpp = 8, .colours = 8}, 3},
      {"8 bit top-down", {.bpp = 8, .top_down = true, .colours = 8}, 3},
      {"8 bit OS/2 head", {.bpp = 8, .head_size = 12, .colours = 8}, 3},
      {"16 bit 555", {.bpp = 16}, 3},
      {"24 bit", {.bpp = 24}, 3},
      {"24 bit V5 head", {.bpp = 24, .head_size = 124}, 3},
      {"32 bit, fourth byte unused", {.bpp = 32}, 3},
      {"32 bit with alpha mask", {.bpp = 32, .alpha_masks = true}, 4},
  };
  const int w = 13, h = 7;  // odd width: every depth needs row padding
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::string file = EncodeBmp(w, h, c.spec);
    Bitmap bmp;
    ASSERT_EQ(ReadBmp(file, bmp), PictureResult::Ok);
    ASSERT_EQ(bmp.channels, c.channels);
    int colours = c.spec.bpp <= 8 ? c.spec.colours : int(kColours.size());
    ExpectPixels(bmp, w, h, [&](int x, int y) { return IndexAt(x, y, colours); });
    for (int i = 0; i < w * h && c.channels == 4; ++i)
      ASSERT_EQ(bmp.Pixel(i % w, i / w)[3], 10 * (i % w));
  }
}

// A palette picture of four colours with run-length data given as bytes.
std::string RleBmp(int w, int h, int bpp, std::string_view data) {
  return EncodeBmp(w, h, {.bpp = bpp, .colours = 4, .rle = data});
}

TEST(BmpReader, RunLengthPicturesDecodeRunsAbsoluteRunsAndDeltas) {
  struct Case {
    const char* name;
    int w, h, bpp;
    std::string data;
    const char* pixels;  // top row first, one colour index a pixel
  };
  using namespace std::string_literals;
  const std::vector<Case> cases = {
      {"rle8 run, line end, absolute", 4, 2, 8,
       "\x04\x01\x00\x00\x00\x03\x02\x03\x02\x00\x01\x01\x00\x01"s, "23211111"},
      {"rle8 delta skips pixels", 4, 2, 8, "\x00\x02\x02\x01\x01\x03\x00\x01"s, "00300000"},
      {"rle8 missing end of picture", 3, 1, 8, "\x03\x02"s, "222"},
      {"rle8 run past the width is clipped", 2, 1, 8, "\x05\x01\x00\x01"s, "11"},
      {"rle4 alternating run", 5, 1, 4, "\x05\x12\x00\x01"s, "12121"},
      {"rle4 absolute odd count", 3, 1, 4, "\x00\x03\x31\x20\x00\x01"s, "312"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Bitmap bmp;
    ASSERT_EQ(ReadBmp(RleBmp(c.w, c.h, c.bpp, c.data), bmp), PictureResult::Ok);
    ExpectPixels(bmp, c.w, c.h, [&](int x, int y) { return c.pixels[y * c.w + x] - '0'; });
  }
}

// Patches a little-endian 32-bit field of a file (the 16-bit depth with the zero after it).
std::string Patch32(std::string s, std::size_t at, std::uint32_t v) {
  for (int i = 0; i < 4; ++i) s[at + i] = char(v >> (8 * i));
  return s;
}

Bitmap Gradient(int w, int h) {
  Bitmap b = Bitmap::Make(w, h);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) {
      std::uint8_t* p = b.Pixel(x, y);
      p[0] = std::uint8_t(x * 255 / (w - 1));
      p[1] = std::uint8_t(y * 255 / (h - 1));
      p[2] = 160;
    }
  return b;
}

TEST(PictureReaders, MalformedFilesAreRefusedWithoutReadingPastTheirEnd) {
  using namespace std::string_literals;
  const std::string good = EncodeBmp(13, 7, {.bpp = 24});
  const std::string pal = EncodeBmp(13, 7, {.bpp = 8, .colours = 8});
  std::string jpeg;
  ASSERT_EQ(WriteJpeg(Gradient(64, 48), 75, jpeg), PictureResult::Ok);
  const std::size_t sof = jpeg.find("\xFF\xC0");
  ASSERT_NE(sof, std::string::npos);
  std::string huge = jpeg, zero_width = jpeg;
  huge[sof + 5] = huge[sof + 7] = char(0xEA);  // 60000 x 60000 in a few hundred bytes
  huge[sof + 6] = huge[sof + 8] = char(0x60);
  zero_width[sof + 7] = zero_width[sof + 8] = 0;
  auto* bmp = &ReadBmp;
  auto* jpg = &ReadJpeg;
  struct Case {
    const char* name;
    PictureResult (*read)(std::string_view, Bitmap&);
    std::string bytes;
    PictureResult expected;
  };
  const std::vector<Case> cases = {
      {"not a bitmap", bmp, "GIF89a" + std::string(60, '\0'), PictureResult::Malformed},
      {"pixels cut short", bmp, good.substr(0, good.size() - 20), PictureResult::Malformed},
      {"zero width", bmp, Patch32(good, 18, 0), PictureResult::Malformed},
      {"height claims far more rows", bmp, Patch32(good, 22, 70000), PictureResult::Malformed},
      {"huge dimensions", bmp, Patch32(Patch32(good, 18, 100000), 22, 100000),
       PictureResult::TooLarge},
      {"depth 7", bmp, Patch32(good, 28, 7), PictureResult::Unsupported},
      {"palette past the end", bmp, pal.substr(0, 14 + 40 + 10), PictureResult::Malformed},
      {"rle top-down", bmp, Patch32(RleBmp(2, 2, 8, "\x00\x01"s), 22, 0xFFFFFFFEu),
       PictureResult::Malformed},
      {"rle absolute run past the end", bmp, RleBmp(8, 1, 8, "\x00\x08\x01\x02"s),
       PictureResult::Malformed},
      {"rle tiny file claiming a huge picture", bmp, RleBmp(8000, 8000, 8, "\x00\x01"s),
       PictureResult::TooLarge},
      {"empty jpeg", jpg, "", PictureResult::Malformed},
      {"jpeg cut in the picture data", jpg, jpeg.substr(0, jpeg.size() / 2),
       PictureResult::Malformed},
      {"huge jpeg", jpg, huge, PictureResult::TooLarge},
      {"jpeg of zero width", jpg, zero_width, PictureResult::Malformed},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Bitmap out;
    EXPECT_EQ(c.read(c.bytes, out), c.expected);
    EXPECT_TRUE(out.Empty());
    EXPECT_TRUE(out.pixels.empty());
  }
}

TEST(PictureFiles, ConvertPictureFileChoosesTheTargetKindByExtension) {
  TempDir dir;
  const Bitmap shot = Gradient(40, 30);
  ASSERT_EQ(WritePictureFile(dir / "shot.BMP", shot), PictureResult::Ok);
  ASSERT_EQ(ReadFile(dir / "shot.BMP").substr(0, 2), "BM");

  // The store's road: a bitmap packed as load.jpg at quality 90, and back for the game.
  ASSERT_TRUE(ConvertPictureFile(dir / "shot.BMP", dir / "load.jpg", 90));
  EXPECT_EQ(ReadFile(dir / "load.jpg").substr(0, 2), "\xFF\xD8");
  ASSERT_TRUE(ConvertPictureFile(dir / "load.jpg", dir / "load.bmp"));
  Bitmap back;
  ASSERT_EQ(ReadPictureFile(dir / "load.bmp", back), PictureResult::Ok);
  ASSERT_EQ(back.pixels.size(), shot.pixels.size());
  double difference = 0;  // JPEG is lossy: the mean difference a channel stays small
  for (std::size_t i = 0; i < back.pixels.size(); ++i)
    difference += std::abs(back.pixels[i] - shot.pixels[i]);
  EXPECT_LT(difference / back.pixels.size(), 4.0);

  // A bitmap saved under a .jpg name still reads: the bytes tell the kind.
  std::filesystem::copy_file(dir / "shot.BMP", dir / "misnamed.jpg");
  EXPECT_TRUE(ConvertPictureFile(dir / "misnamed.jpg", dir / "fixed.jpeg", 60));
}

}  // namespace
}  // namespace vardolin
