// A packed level and its header file come in a package. The first byte chooses which reader
// gets the rest. A directory that reads must write back to the bytes it was read from, and its
// contents must fit the file when the check of its length passes.

#include "intake/byte_source.h"
#include "intake/packed_level_directory.h"
#include "intake/packed_level_header.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
  vardolin::MemorySource source(bytes);
  if (data[0] & 1) {
    vardolin::PackageHeader header;
    if (vardolin::ParsePackageHeader(source, "VPH", header) == vardolin::HeaderParse::Ok &&
        header.Names.size() != static_cast<size_t>(header.NameCount))
      __builtin_trap();
    return 0;
  }
  vardolin::ArchiveDirectory directory;
  if (vardolin::ReadDirectory(source, directory) != 0) return 0;
  if (directory.DataStart < 1 || static_cast<size_t>(directory.DataStart - 1) > bytes.size())
    __builtin_trap();
  const std::string image = vardolin::DirectoryImage(directory);
  vardolin::MemorySource image_source(image);
  vardolin::ArchiveDirectory again;
  if (vardolin::ReadDirectory(image_source, again) != 0 || again.Names != directory.Names)
    __builtin_trap();
  return 0;
}
