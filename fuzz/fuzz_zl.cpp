// Expansion of a `.zl` image from memory: any bytes must give a result, never a crash, and a
// result of Ok must mean the promised length came out.

#include "web/zlib_tool.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view in(reinterpret_cast<const char*>(data), size);
  std::string out;
  auto result = vardolin::ExpandBytes(in, out, 1u << 24);
  if (result == vardolin::ZlResult::Ok) {
    std::uint64_t length = 0;
    for (int i = 0; i < 8; ++i) length |= std::uint64_t(data[4 + i]) << (8 * i);
    if (out.size() != length) __builtin_trap();
  }
  return 0;
}
