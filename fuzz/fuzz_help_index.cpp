// The manual is any text: the index keeps its titles whole with their brackets, the sub-topics
// once each, and a double click anywhere picks a word inside the text or none.
#include <unordered_set>

#include "web/help_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const vardolin::HelpIndex index = vardolin::BuildHelpIndex(text);
  std::unordered_set<std::string> seen;
  for (const std::string& t : index.main_topics)
    if (t.size() < 2 || t.back() != ']' || text.find(t) == std::string_view::npos) std::abort();
  for (const std::string& t : index.sub_topics)
    if (t.size() < 2 || t.back() != '}' || !seen.insert(vardolin::LowerAscii(t)).second)
      std::abort();
  for (std::size_t caret = 0; caret <= size && caret < 256; ++caret)
    if (const auto span = vardolin::PickHelpWord(text, caret))
      if (span->start + span->length > size) std::abort();
  return 0;
}
