// The catalogue reader on any bytes: it must neither crash nor size its table from the header's
// count, and whatever it accepts must write back into an image that reads as the same catalogue.

#include "foundation/catalogue_records.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  vardolin::Catalogue catalogue;
  vardolin::CatalogueParse parse = vardolin::ParseCatalogue(bytes, catalogue);
  if (!parse.ok()) return 0;
  if (catalogue.levels.size() >
      (size - vardolin::CatalogueHeader::kSize) / vardolin::LevelRecord::kSize)
    std::abort();

  std::string image = vardolin::SerializeCatalogue(catalogue);
  vardolin::Catalogue again;
  if (vardolin::ParseCatalogue(image, again).status != vardolin::CatalogueParseStatus::Complete)
    std::abort();
  // Texts pass through the code page once, so the second image is the fixed point.
  if (vardolin::SerializeCatalogue(again) != image) std::abort();
  return 0;
}
