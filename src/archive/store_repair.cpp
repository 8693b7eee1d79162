#include "archive/store_repair.h"

#include <algorithm>
#include <string>
#include <vector>

#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/wildcard.h"
#include "web/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMediaFilesPattern = "*.mcf";
constexpr std::string_view kScrollMedia = "scroll.mcf";
constexpr std::string_view kScrollLevels = "scroll*.tr4";
constexpr std::string_view kMediaStoreFolder = "store";

// A file of the level as the game knows it, and the file that holds it in the store: in a
// compressed store `scroll1.tr4` stands as `scroll1.tr4.zl`.
struct StoredFile {
  std::string name;
  fs::path path;
};

std::vector<StoredFile> StoredFiles(const fs::path& files_folder, const std::string& suffix) {
  std::vector<StoredFile> out;
  for (const fs::path& file : ListFiles(files_folder, "*")) {
    std::string name = file.filename().string();
    if (!suffix.empty() && EndsWithNoCase(name, suffix) && name.size() > suffix.size())
      name.resize(name.size() - suffix.size());
    out.push_back({name, file});
  }
  std::sort(out.begin(), out.end(),
            [](const StoredFile& a, const StoredFile& b) { return LessNoCase(a.name, b.name); });
  return out;
}

// True when the level's scroll media file was removed.
bool RepairLevel(Program& program, const fs::path& files_folder) {
  if (!FolderExists(files_folder)) return false;
  std::vector<StoredFile> files =
      StoredFiles(files_folder, program.GetText(web::text::PackedSuffix));
  auto first_media = std::find_if(files.begin(), files.end(), [](const StoredFile& f) {
    return WildcardMatch(f.name, kMediaFilesPattern);
  });
  if (first_media == files.end() || !EqualsNoCase(first_media->name, kScrollMedia)) return false;
  bool has_scroll_levels = std::any_of(files.begin(), files.end(), [](const StoredFile& f) {
    return WildcardMatch(f.name, kScrollLevels);
  });
  if (has_scroll_levels) return false;
  DeleteFileForced(first_media->path);
  fs::path store = ResolveCase(files_folder / kMediaStoreFolder);
  if (FolderExists(store)) DeleteLevelTree(program, store, nullptr, nullptr);
  WriteLog(program, "Store repair: " + first_media->path.string() + " removed");
  return true;
}

}  // namespace

int RepairLevelStore(Program& program) {
  ShowProgressDialog(program, program.GetText(text::RepairStoreLabel));
  Dialog_Progress* dialog = ProgressDialog(program);
  if (dialog) {
    dialog->SetCaption(program.GetText(text::RepairStoreTitle));
    dialog->Refresh();
  }
  int repaired = 0;
  const std::size_t count = program.catalogue.levels.size();
  for (std::size_t i = 1; i < count; ++i) {
    const std::int32_t code = program.catalogue.levels[i].Code;
    if (RepairLevel(program, GetLevelFilesFolder(program, code, false))) ++repaired;
    if (dialog)
      SetProgressPercent(dialog->ProgressBar1, static_cast<double>(count - 1),
                         static_cast<double>(i));
    program.ui().DoEvents();
  }
  HideProgressDialog(program);
  return repaired;
}

}  // namespace vardolin
