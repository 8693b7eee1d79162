// The URL list comes from the web: whatever its bytes, the reader gives a whole list or none, and
// a list it gives is written back to the very same bytes.

#include "web/url_list.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  vardolin::UrlList list;
  const bool ok = vardolin::ParseUrlList(bytes, list);
  if (!ok && list.Count() != 0) std::abort();
  if (!ok) return 0;
  vardolin::UrlList again;
  if (!vardolin::ParseUrlList(vardolin::UrlListBytes(list), again) || again.Count() != list.Count())
    std::abort();
  return 0;
}
