#include "web/zl_chunk_deflater.h"

#include <algorithm>
#include <cstring>

namespace vardolin::zl {
namespace {

constexpr std::size_t kStoredBlockMax = 65535;
constexpr std::size_t kProbeSlice = 8192;
// Chunks smaller than this are simply deflated: the trial would cost as much as the work.
constexpr std::size_t kProbeMinimum = 4 * kProbeSlice;

}  // namespace

std::size_t StoredSize(std::size_t n) {
  std::size_t blocks = std::max<std::size_t>(1, (n + kStoredBlockMax - 1) / kStoredBlockMax);
  return n + 5 * blocks;
}

ChunkDeflater::ChunkDeflater(int level) : level_(std::clamp(level, 0, 9)) {
  if (level_ > 0) {
    strong_ok_ = deflateInit2(&strong_, level_, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) == Z_OK;
    probe_ok_ = deflateInit2(&probe_, 1, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) == Z_OK;
  }
}

ChunkDeflater::~ChunkDeflater() {
  if (strong_ok_) deflateEnd(&strong_);
  if (probe_ok_) deflateEnd(&probe_);
}

bool ChunkDeflater::LooksIncompressible(const Chunk& chunk) {
  std::size_t n = chunk.size;
  if (!probe_ok_ || n < kProbeMinimum) return false;
  // Each slice is primed with the 32 KiB before it, as the real deflate would see them: data
  // whose redundancy lies in copies from far back looks random in a slice taken alone.
  const std::size_t starts[] = {n / 2 - kProbeSlice / 2, n - kProbeSlice};
  for (std::size_t start : starts) {
    std::size_t at = chunk.dict + start;
    std::size_t prime = std::min(at, kWindowSize);
    unsigned char out[kProbeSlice + 256];
    deflateReset(&probe_);
    if (prime)
      deflateSetDictionary(&probe_, chunk.in.data() + at - prime, static_cast<uInt>(prime));
    probe_.next_in = const_cast<unsigned char*>(chunk.in.data() + at);
    probe_.avail_in = kProbeSlice;
    probe_.next_out = out;
    probe_.avail_out = sizeof out;
    if (deflate(&probe_, Z_FINISH) != Z_STREAM_END) return false;
    if ((sizeof out - probe_.avail_out) * 100 < kProbeSlice * 98) return false;
  }
  return true;
}

void ChunkDeflater::Store(Chunk& chunk) {
  chunk.out.resize(StoredSize(chunk.size));
  const unsigned char* p = chunk.Data();
  std::size_t left = chunk.size;
  std::size_t pos = 0;
  do {
    std::size_t n = std::min(left, kStoredBlockMax);
    bool final = chunk.last && n == left;
    unsigned char* o = chunk.out.data() + pos;
    o[0] = final ? 1 : 0;  // BFINAL, BTYPE 00; the rest of the byte is padding
    o[1] = static_cast<unsigned char>(n);
    o[2] = static_cast<unsigned char>(n >> 8);
    o[3] = static_cast<unsigned char>(~n);
    o[4] = static_cast<unsigned char>(~n >> 8);
    if (n) std::memcpy(o + 5, p, n);
    pos += 5 + n;
    p += n;
    left -= n;
  } while (left > 0);
  chunk.out_size = pos;
  chunk.stored = true;
}

void ChunkDeflater::Run(Chunk& chunk) {
  const unsigned char* data = chunk.Data();
  chunk.adler = adler32_z(1L, data, chunk.size);
  chunk.stored = false;
  if (!strong_ok_ || LooksIncompressible(chunk)) return Store(chunk);

  deflateReset(&strong_);
  if (chunk.dict) deflateSetDictionary(&strong_, chunk.in.data(), static_cast<uInt>(chunk.dict));
  std::size_t stored = StoredSize(chunk.size);
  std::size_t room = std::max<std::size_t>(deflateBound(&strong_, chunk.size) + 64, stored);
  if (chunk.out.size() < room) chunk.out.resize(room);
  strong_.next_in = const_cast<unsigned char*>(data);
  strong_.avail_in = static_cast<uInt>(chunk.size);
  strong_.next_out = chunk.out.data();
  strong_.avail_out = static_cast<uInt>(room);
  int rc = deflate(&strong_, chunk.last ? Z_FINISH : Z_SYNC_FLUSH);
  bool complete = chunk.last ? rc == Z_STREAM_END
                             : rc == Z_OK && strong_.avail_in == 0 && strong_.avail_out > 0;
  std::size_t produced = room - strong_.avail_out;
  if (!complete || produced >= stored) return Store(chunk);
  chunk.out_size = produced;
}

}  // namespace vardolin::zl
