// A wad package's language text: any bytes give a list led by its marker, without blank lines.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "foundation/services/strings.h"
#include "intake/editor_script_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  static const vardolin::LanguageMarks marks{"[Strings]", "[PSXStrings]"};
  std::string head, tail;
  const auto list = vardolin::ParseLanguageText(bytes, marks, head, tail);
  if (list.empty()) return 0;
  if (!vardolin::EqualsNoCase(vardolin::Trim(list[0]), marks.section_start)) std::abort();
  for (std::size_t i = 1; i < list.size(); ++i)
    if (list[i].empty() || list[i][0] == ';' || list[i].find('\n') != std::string::npos)
      std::abort();
  return 0;
}
