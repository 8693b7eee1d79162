#include "cd/remove_moved_levels.h"

#include "archive/catalogue_file.h"
#include "archive/level_store.h"
#include "cd/cd_copy_check.h"
#include "cd/cd_drives.h"
#include "cd/cd_images.h"
#include "cd/text_ids.h"
#include "foundation/dialogs/ask.h"
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

bool HoldsLevelFiles(const Program& program, const fs::path& data) {
  for (std::int32_t id : {text::RemoveMovedPattern1, text::RemoveMovedPattern2}) {
    const std::string pattern = WithoutLeadingSeparators(program.GetText(id));
    if (!ListFiles(data, pattern).empty()) return true;
  }
  return false;
}

// The level's files compared with those on its CD: an image remembered for the CD is read
// directly, else the disc is asked for. Empty `difference` and whole: they may go.
enum class Found { Whole, NotGiven, NotThere, Differs };
Found CheckLevelOnCd(Program& program, const LevelRecord& r, const fs::path& data,
                     std::string& detail) {
  const std::string files = WithoutLeadingSeparators(program.GetText(text::RemoveMovedCdFolder));
  const fs::path image = RememberedCdImage(program, r.CdNumber);
  CopyCheck check;
  if (!image.empty()) {
    const std::string inside =
        CdName(program, r.CdNumber) + LevelFolderName(program, r.Code) + "/" + files;
    check = CheckFolderInImage(image, ReplaceAll(inside, "\\", "/"), data);
  } else {
    const fs::path on_cd = GetLevelFolder(program, r.Code, true);
    if (on_cd.empty()) return Found::NotGiven;
    const fs::path cd_files = on_cd / files;
    if (!FolderExists(cd_files)) {
      detail = cd_files.string();
      return Found::NotThere;
    }
    check = CheckFolderCopy(cd_files, data);
  }
  detail = check.difference;
  return check.whole ? Found::Whole : Found::Differs;
}

}  // namespace

bool RemoveMovedLevels(Program& program) {
  Catalogue& c = program.catalogue;
  ShowProgressDialog(program, program.GetText(text::RemoveMovedProgress));
  bool done = true;
  const int count = static_cast<int>(c.levels.size());
  for (int i = 1; i < count && done; ++i) {
    StepProgressDialog(program, i, count);
    const LevelRecord& r = c.levels[i];
    const fs::path data = JoinFragment(HardDiskLevelFolder(program, r.Code),
                                       program.GetText(text::RemoveMovedDataFolder));
    if (r.CdNumber == 0 || !FolderExists(data) || !HoldsLevelFiles(program, data)) continue;
    std::string detail;
    switch (CheckLevelOnCd(program, r, data, detail)) {
      case Found::Whole:
        // The whole tree: a media level keeps its store folder inside.
        DeleteLevelTree(program, data, nullptr, nullptr);
        break;
      case Found::NotGiven:
        AskUser(program, program.GetText(text::RemoveMovedCdRefused, {"\r\n"}), msg::kError);
        done = false;
        break;
      case Found::NotThere:
        AskUser(program,
                program.GetText(text::RemoveMovedNotOnCd, {"\"" + detail + "\"", "\r\n\r\n"}),
                msg::kError);
        done = false;
        break;
      case Found::Differs:
        AskUser(program,
                program.GetText(text::RemoveMovedDiffers,
                                {"\"" + Trim(r.Name) + "\"", detail, "\r\n\r\n"}),
                msg::kError);
        done = false;
        break;
    }
  }
  HideProgressDialog(program);
  if (!done) return false;
  CatalogueHeader& h = c.header;
  for (const CdDrive& drive : ListCdDrives(program.platform()))
    if (drive.Ready()) {
      h.MainDir = (fs::path(drive.mount_point) / ExtractFileName(Trim(h.MainDir))).string();
      break;
    }
  h.OnCd = false;
  program.CatalogueDirty = true;
  return SaveCatalogueFile(program, program.prefs.LastArchive);
}

}  // namespace vardolin
