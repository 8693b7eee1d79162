// A level's list of level files may be left damaged by a crash or copied in from anywhere: the
// reader must take any bytes, never size its list from the count, and what it accepts must write
// back into an image that reads as the same list.

#include "intake/level_file_list.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  vardolin::LevelFileList list;
  const bool ok = vardolin::ParseLevelFileList(bytes, list);
  if (!ok && !list.empty()) std::abort();
  if (!ok) return 0;
  if (list.size() > (size - 4) / vardolin::LevelFileEntry::kSize) std::abort();
  const std::string image = vardolin::SerializeLevelFileList(list);
  vardolin::LevelFileList again;
  if (!vardolin::ParseLevelFileList(image, again)) std::abort();
  // Names pass through the code page once, so the second image is the fixed point.
  if (vardolin::SerializeLevelFileList(again) != image) std::abort();
  return 0;
}
