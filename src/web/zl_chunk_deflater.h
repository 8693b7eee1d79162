#pragma once
// Deflates one chunk of a file into a piece of raw deflate data that can be joined to the
// pieces of the chunks before and after it: every piece but the last ends on a byte boundary
// (a sync flush) without the final-block bit, and each is primed with the 32 KiB that precede
// its chunk, which the inflater has in its window at that point anyway.

#include <cstddef>
#include <vector>

#include <zlib.h>

namespace vardolin::zl {

inline constexpr std::size_t kWindowSize = 32768;

struct Chunk {
  // The bytes before the chunk that prime the deflater (`dict` of them), then the chunk.
  std::vector<unsigned char> in;
  std::size_t dict = 0;
  std::size_t size = 0;
  bool last = false;

  std::vector<unsigned char> out;
  std::size_t out_size = 0;
  uLong adler = 1;  // Adler-32 of this chunk alone
  bool stored = false;

  const unsigned char* Data() const { return in.data() + dict; }
};

// Size of `n` bytes written as stored blocks.
std::size_t StoredSize(std::size_t n);

class ChunkDeflater {
 public:
  explicit ChunkDeflater(int level);
  ~ChunkDeflater();
  ChunkDeflater(const ChunkDeflater&) = delete;
  ChunkDeflater& operator=(const ChunkDeflater&) = delete;

  // Fills `out`, `out_size`, `adler` and `stored` of the chunk. Never fails: when deflate
  // can't help (or can't run) the chunk is stored.
  void Run(Chunk& chunk);

 private:
  // A quick level-1 trial on two slices of the chunk: data that gains under 2% in both is not
  // worth level 9's search (random bytes, packed textures, sound already compressed).
  bool LooksIncompressible(const Chunk& chunk);
  static void Store(Chunk& chunk);

  int level_;
  z_stream strong_{};
  z_stream probe_{};
  bool strong_ok_ = false;
  bool probe_ok_ = false;
};

}  // namespace vardolin::zl
