#include "archive/store_repair.h"

#include <algorithm>
#include <string>
#include <vector>

#include "archive/level_store.h"
#include "archive/store_conversion.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "web/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

std::string BareName(const Program& program, std::int32_t id) {
  std::string name = program.GetText(id);
  while (!name.empty() && (name.front() == '\\' || name.front() == '/')) name.erase(0, 1);
  return name;
}

// The first media file as the file system the program was made for lists them: by name,
// without regard to case.
fs::path FirstMediaFile(const fs::path& files, const std::string& pattern) {
  std::vector<fs::path> media = ListFiles(files, pattern);
  if (media.empty()) return {};
  return *std::min_element(media.begin(), media.end(), [](const fs::path& a, const fs::path& b) {
    return ToLower(a.filename().string()) < ToLower(b.filename().string());
  });
}

}  // namespace

int RepairLevelStore(Program& program) {
  const std::string media_pattern = BareName(program, text::MediaFilesPattern);
  const std::string scroll_media = program.GetText(text::ScrollMediaFile);
  const std::string scroll_levels = program.GetText(text::ScrollLevelPattern);
  // In a compressed store the scroll levels stand packed, as `scroll1.tr4.zl`.
  const std::string packed_levels = scroll_levels + program.GetText(text::PackedSuffix);
  ShowProgressDialog(program, program.GetText(text::RepairStoreLabel));
  Dialog_Progress* dialog = ProgressDialog(program);
  if (dialog) dialog->SetCaption(program.GetText(text::RepairStoreCaption));

  int repaired = 0;
  const auto& levels = program.catalogue.levels;
  for (std::size_t i = 1; i < levels.size(); ++i) {
    const std::int32_t code = levels[i].Code;
    const fs::path level = GetLevelFolder(program, code, false);
    RecoverInterruptedConversion(program, level);
    const fs::path files = ResolveCase(JoinFragment(level, program.GetText(text::FilesFolder)));
    if (dialog) SetProgressPercent(dialog->ProgressBar1, static_cast<double>(levels.size()), i);
    program.ui().DoEvents();
    if (!FolderExists(files)) continue;
    const fs::path first = FirstMediaFile(files, media_pattern);
    if (first.empty() || !WildcardMatch(first.filename().string(), scroll_media)) continue;
    if (!ListFiles(files, scroll_levels).empty() || !ListFiles(files, packed_levels).empty())
      continue;
    DeleteFileForced(first);
    DeleteLevelTree(program, JoinFragment(files, program.GetText(text::MediaStoreFolder)), nullptr,
                    nullptr);
    ++repaired;
  }
  HideProgressDialog(program);
  return repaired;
}

}  // namespace vardolin
