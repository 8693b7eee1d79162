// A self-installer's trailer is read from any program in a package: any bytes must give a
// result without a crash, and every entry taken must lie inside the file, before its tail.

#include "intake/byte_source.h"
#include "intake/self_installer.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  vardolin::MemorySource source(std::string_view(reinterpret_cast<const char*>(data), size));
  std::vector<vardolin::InstallerEntry> entries;
  if (vardolin::ReadInstallerTrailer(source, "VARDSFX", entries) != vardolin::InstallerTrailer::Ok)
    return 0;
  for (const vardolin::InstallerEntry& entry : entries)
    if (entry.offset + entry.size > size - 4) __builtin_trap();
  return 0;
}
