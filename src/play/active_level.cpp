#include "play/active_level.h"

#include <string>

#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/active_level_file.h"
#include "play/text_ids.h"

namespace vardolin {

std::filesystem::path EditorFolderPath(const Program& program) {
  return std::filesystem::path(Trim(program.prefs.EditorFolder));
}

std::filesystem::path ActiveLevelFilePath(const Program& program) {
  return JoinFragment(program.prefs.EditorFolder, program.GetText(text::ActiveLevelFileName));
}

std::int32_t GetActiveLevelCode(const Program& program) {
  if (program.prefs.EditorFolder.empty()) return 0;
  const std::string marker = ReadWholeFile(ActiveLevelFilePath(program));
  return ParseMarkerCode(ReadMarkerField(marker, program.GetText(text::ActiveLevelCodeKey)))
      .value_or(0);
}

}  // namespace vardolin
