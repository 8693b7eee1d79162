#include "play/active_level.h"

#include <charconv>
#include <string>

#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/text_ids.h"

namespace vardolin {

std::filesystem::path ActiveLevelFilePath(const Program& program) {
  return JoinFragment(program.prefs.EditorFolder, program.GetText(text::ActiveLevelFileName));
}

std::int32_t GetActiveLevelCode(const Program& program) {
  if (program.prefs.EditorFolder.empty()) return 0;
  const std::string marker = ReadWholeFile(ActiveLevelFilePath(program));
  const std::string key = ToLower(program.GetText(text::ActiveLevelCodeKey));
  if (marker.empty() || key.empty()) return 0;
  const std::size_t at = ToLower(marker).find(key);
  if (at == std::string::npos) return 0;
  const std::size_t start = at + key.size();
  std::size_t end = marker.find('#', start);
  if (end == std::string::npos) end = marker.size();
  const std::string value = Trim(std::string_view(marker).substr(start, end - start));
  std::int32_t code = 0;
  auto [ptr, ec] = std::from_chars(value.data(), value.data() + value.size(), code);
  if (ec != std::errc() || value.empty()) return 0;
  return code;
}

}  // namespace vardolin
