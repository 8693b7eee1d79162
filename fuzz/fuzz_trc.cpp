// Language files come from translators and downloads: any bytes must parse or fail cleanly.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "foundation/texts/text_catalogue.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // The first byte picks a code page, so that multi-byte pages are exercised too.
  static constexpr int kCodePages[] = {1252, 1253, 1251, 932, 936};
  int codepage = 1252;
  if (!bytes.empty()) {
    codepage = kCodePages[static_cast<unsigned char>(bytes[0]) % 5];
    bytes.remove_prefix(1);
  }
  vardolin::TrcParse parsed = vardolin::ParseTrc(bytes, codepage);
  if (parsed.ok && parsed.entries.size() != static_cast<size_t>(parsed.declared_count))
    __builtin_trap();
  std::string text;
  vardolin::DecodeTextLine(bytes, text);
  return 0;
}
