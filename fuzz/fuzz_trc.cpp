// Language files come from translators and downloads: any bytes must parse or fail cleanly.

#include "foundation/texts/text_catalogue.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
  // The first byte picks a code page, so that multi-byte pages are exercised too.
  static constexpr int kCodePages[] = {1252, 1253, 1251, 932, 936};
  vardolin::TrcParse parsed = vardolin::ParseTrc(bytes, kCodePages[data[0] % 5]);
  if (parsed.ok && parsed.entries.size() != static_cast<size_t>(parsed.declared_count))
    __builtin_trap();
  std::string text;
  vardolin::DecodeTextLine(bytes, text);
  return 0;
}
