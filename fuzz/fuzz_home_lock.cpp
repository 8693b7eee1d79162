// The lock file of a home is written by whichever process holds it, and by hand by nobody: but a
// reader must still give either a holder with a real pid and a one-line name, or none at all.

#include "foundation/services/home_lock.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const vardolin::HomeLockOwner owner = vardolin::ParseHomeLockText(text);
  if (owner.pid < 0 || (owner.pid == 0 && !owner.program.empty())) std::abort();
  if (owner.program.find('\n') != std::string::npos) std::abort();
  return 0;
}
