// The settings file may be of any length and content: it is parsed, never refused.

#include "foundation/settings/preferences.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  vardolin::ParsedPreferences parsed = vardolin::ParsePreferences(bytes);
  std::string image = vardolin::SerializePreferences(parsed.prefs);
  if (parsed.upgraded != (size != vardolin::Preferences::kFileSize)) __builtin_trap();
  // A record read back from its own image is stable from then on.
  vardolin::ParsedPreferences again = vardolin::ParsePreferences(image);
  if (again.upgraded || vardolin::SerializePreferences(again.prefs) != image) __builtin_trap();
  return 0;
}
