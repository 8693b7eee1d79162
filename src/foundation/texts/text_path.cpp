#include "foundation/texts/text_path.h"

namespace vardolin {

std::filesystem::path JoinTextPath(const std::filesystem::path& folder, std::string_view fragment) {
  std::filesystem::path out = folder;
  size_t start = 0;
  while (start <= fragment.size()) {
    size_t end = fragment.find_first_of("\\/", start);
    if (end == std::string_view::npos) end = fragment.size();
    if (end > start) out /= std::filesystem::path(fragment.substr(start, end - start));
    start = end + 1;
  }
  return out;
}

}  // namespace vardolin
