// BringCdLevelsToDisk: the levels on CD come back onto the hard disk. The CD is reached through
// GetLevelFolder with a CD allowed, so a disc in a drive and an image of it serve alike.
#include "archive/archive_maintenance.h"
#include "archive/catalogue_file.h"
#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {
constexpr const char* kLineEnd = "\r\n";
}  // namespace

bool BringCdLevelsToDisk(Program& p) {
  Catalogue& c = p.catalogue;
  const fs::path folder = Trim(c.header.SecondaryDir);
  double need = 0;
  for (std::size_t i = 1; i < c.levels.size(); ++i)
    if (c.levels[i].CdNumber > 0) need += c.levels[i].FilesSize;
  if (DiskFreeBytes(p.platform(), folder) < need) {
    AskUser(p,
            p.GetText(text::ToDiskNoRoom,
                      {DriveOfPath(p.platform(), folder), FormatFileSize(need), kLineEnd}),
            msg::kError);
    return false;
  }

  ShowProgressDialog(p, p.GetText(text::ToDiskProgress));
  bool all = true;
  const int count = static_cast<int>(c.levels.size());
  for (int i = 1; i < count && all; ++i) {
    StepProgressDialog(p, i, count);
    const std::int32_t code = c.levels[static_cast<std::size_t>(i)].Code;
    if (c.levels[static_cast<std::size_t>(i)].CdNumber <= 0) continue;
    const fs::path on_cd = GetLevelFolder(p, code, true);
    if (p.CdRefused) {
      AskUser(p, p.GetText(text::ToDiskCdRefused), msg::kError);
      all = false;
      break;
    }
    const fs::path source = JoinFragment(on_cd, p.GetText(text::ToDiskSourceFiles));
    const fs::path target =
        JoinFragment(GetLevelFolder(p, code, false), p.GetText(text::ToDiskTargetFiles));
    if (!MakeFolder(target) || !CopyMatchingFiles(p, source, target, true, "*") ||
        ListFiles(source, "*").empty()) {
      AskUser(p, p.GetText(text::ToDiskCopyFailed) + source.string() + "]", msg::kError);
      all = false;
      break;
    }
    // The level counts as on disk the moment its files stand there: a later refusal keeps it.
    c.levels[static_cast<std::size_t>(i)].CdNumber = 0;
    p.CatalogueDirty = true;
  }
  HideProgressDialog(p);
  if (all) {
    c.header.MainDir = folder.string();
    c.header.CdCount = 0;
    CatalogueChanged(p);
  }
  p.notify.LevelListChanged();
  return all;
}

}  // namespace vardolin
