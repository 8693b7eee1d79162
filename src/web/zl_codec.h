#pragma once
// The `.zl` codec over plain byte sources and sinks, so that files and memory share one code
// path (and the fuzzer reaches exactly what a level's activation runs).

#include <cstddef>
#include <cstdint>

#include "web/zlib_tool.h"

namespace vardolin::zl {

class Source {
 public:
  virtual ~Source() = default;
  // Up to `n` bytes; 0 at the end, -1 on a read error.
  virtual std::ptrdiff_t Read(unsigned char* buffer, std::size_t n) = 0;
};

class Sink {
 public:
  virtual ~Sink() = default;
  virtual bool Write(const unsigned char* bytes, std::size_t n) = 0;
};

// Packs exactly `length` bytes of `in`; a source that ends early (or fails) gives
// CannotReadInput.
ZlResult Pack(Source& in, std::uint64_t length, Sink& out, const ZlOptions& options);

// Expands a whole `.zl` image read from `in`. `in_length` only feeds the progress callback;
// a head that promises more than `max_size` bytes is refused as Corrupt before any output.
ZlResult Expand(Source& in, std::uint64_t in_length, Sink& out, std::uint64_t max_size,
                const ZlOptions& options);

}  // namespace vardolin::zl
