// Old_Search.bin may be cut short, padded with old bytes or hold any count: the reader gives no
// more entries than the bytes carry, and what it gives is written back and read again alike.

#include "intake/search_history.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto history = vardolin::ParseSearchHistory(bytes);
  if (history.size() * 264 + 4 > size && !history.empty()) std::abort();
  const auto again = vardolin::ParseSearchHistory(vardolin::SearchHistoryBytes(history));
  if (again.size() != history.size()) std::abort();
  return 0;
}
