// The readme analysis searches a package's document, any bytes an author wrote, for the names of
// the level sources and the wad sets near them.

#include "intake/dialog_assistant.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  (void)vardolin::MatchWadSetsInText(text, {"castle", "a", ""}, {"castle", "castle2", "t", ""});
  return 0;
}
