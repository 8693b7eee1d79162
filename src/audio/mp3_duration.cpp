#include "audio/mp3_duration.h"

#include <array>
#include <cmath>
#include <fstream>
#include <limits>
#include <string>
#include <system_error>

#include "foundation/services/files.h"

namespace vardolin {
namespace {

// kbit/s by bit-rate index; index 0 is the free format, which gives no rate.
constexpr std::array<std::array<int, 15>, 5> kBitRates = {{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},  // MPEG-1 Layer I
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},     // MPEG-1 Layer II
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},      // MPEG-1 Layer III
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},     // MPEG-2/2.5 Layer I
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},          // MPEG-2/2.5 II, III
}};

// The reader's position is a signed 16-bit number: a header must lie wholly within this.
constexpr std::size_t kSearchLimit = 32767;

int BitRateOfHeader(const unsigned char* h) {
  const int version = (h[1] >> 3) & 3;
  const int layer = (h[1] >> 1) & 3;
  const int index = h[2] >> 4;
  int row;
  if (version == 3)
    row = layer == 3 ? 0 : layer == 2 ? 1 : 2;
  else
    row = layer == 3 ? 3 : 4;
  return kBitRates[static_cast<std::size_t>(row)][static_cast<std::size_t>(index)];
}

bool IsHeader(const unsigned char* h) {
  return h[0] == 0xFF && (h[1] & 0xE0) == 0xE0 && ((h[1] >> 3) & 3) != 1 &&
         ((h[1] >> 1) & 3) != 0 && (h[2] >> 4) != 15 && ((h[2] >> 2) & 3) != 3;
}

}  // namespace

std::int32_t Mp3DurationSeconds(std::string_view head, std::uint64_t file_length) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(head.data());
  const std::size_t end = std::min(head.size(), kSearchLimit);
  int rate = 0;
  for (std::size_t pos = 0; pos + 4 <= end; ++pos) {
    if (IsHeader(bytes + pos)) {
      rate = BitRateOfHeader(bytes + pos);
      break;
    }
  }
  if (rate == 0) return 1;
  const double seconds = static_cast<double>(file_length) * 8.0 / 1000.0 / rate;
  // Halves go to the even neighbour, as the default rounding mode does.
  const double rounded = std::nearbyint(seconds);
  if (rounded < 1) return 1;
  if (rounded >= std::numeric_limits<std::int32_t>::max())
    return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(rounded);
}

std::int32_t Mp3DurationSeconds(const std::filesystem::path& path) {
  const std::filesystem::path file = ResolveCase(path);
  std::error_code ec;
  const std::uintmax_t length = std::filesystem::file_size(file, ec);
  if (ec) return 1;
  std::ifstream in(file, std::ios::binary);
  if (!in) return 1;
  std::string head(kSearchLimit, '\0');
  in.read(head.data(), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<std::size_t>(in.gcount()));
  return Mp3DurationSeconds(head, length);
}

}  // namespace vardolin
