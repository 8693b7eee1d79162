// The journal of the savegame work folder is read back after a crash, when it may have been cut
// anywhere: its reader must take any bytes.

#include "savegames/savegame_journal.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  (void)vardolin::ParseSavegameWork(text);
  return 0;
}
