#include "archive/catalogue_sizes.h"

#include <string>
#include <utility>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive/level_folder_name.h"
#include "archive/level_store.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/dialog_progress.h"
#include "foundation/dialogs/progress.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// The progress window's label and bar: which level of how many, and what of it is counted.
void ShowProgress(Program& program, const std::string& text, std::size_t done, std::size_t all) {
  if (Dialog_Progress* dialog = ProgressDialog(program)) {
    dialog->Label_Info.SetCaption(text);
    if (all > 0)
      SetProgressPercent(dialog->ProgressBar1, static_cast<double>(all), static_cast<double>(done));
    dialog->Refresh();
  }
  program.ui().DoEvents();
}

}  // namespace

double FolderBytes(const fs::path& folder) {
  double total = 0;
  std::error_code ec;
  fs::recursive_directory_iterator it(folder, fs::directory_options::skip_permission_denied, ec);
  for (; !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
    std::error_code fe;
    if (it->is_regular_file(fe)) {
      auto size = it->file_size(fe);
      if (!fe) total += static_cast<double>(size);
    }
  }
  return total;
}

double FilesBytesOfLevel(Program& program, std::int32_t code) {
  // A level on CD gives an empty folder here (no CD is asked for), and so no bytes.
  fs::path files = GetLevelFilesFolder(program, code, true);
  return files.empty() ? 0 : FolderBytes(files);
}

double UserBytesOfLevel(const Program& program, std::int32_t code, std::int32_t first_text) {
  fs::path folder = HardDiskLevelFolder(program, code);
  double total = 0;
  for (std::int32_t id = first_text; id < first_text + 3; ++id)
    total += FolderBytes(JoinFragment(folder, program.GetText(id)));
  return total;
}

bool UpdateLevelSizes(Program& program, std::int32_t code) {
  int index = FindLevelIndex(program.catalogue, code);
  if (index < 0) return false;
  const LevelRecord& r = program.catalogue.levels[static_cast<std::size_t>(index)];
  if (r.CdNumber == 0)
    AddSizeToCatalogue(program.catalogue, FilesBytesOfLevel(program, code) - r.FilesSize, index,
                       SizeKind::Files);
  AddSizeToCatalogue(program.catalogue, UserBytesOfLevel(program, code) - r.UserSize, index,
                     SizeKind::User);
  CatalogueChanged(program);
  return true;
}

void RecomputeAllSizes(Program& program, bool silent) {
  Catalogue& c = program.catalogue;
  c.header.TotalFilesSize = 0;
  c.header.TotalUserSize = 0;
  ShowProgressDialog(program, program.GetText(text::SizesProgressTitle));
  const std::size_t all = c.levels.size();
  for (std::size_t i = 0; i < all; ++i) {
    LevelRecord& r = c.levels[i];
    const std::string name = Trim(r.Name);
    ShowProgress(program, program.GetText(text::SizesLevel) + name, i, all);
    if (r.CdNumber == 0) {
      r.FilesSize = ToRecordSize(FilesBytesOfLevel(program, r.Code));
      ShowProgress(program, program.GetText(text::SizesLevelFiles) + FormatFileSize(r.FilesSize), i,
                   all);
    } else {
      // The CD isn't asked for: the size it was given when the level went there stands.
      ShowProgress(program, program.GetText(text::SizesFilesOnCd) + FormatFileSize(r.FilesSize), i,
                   all);
    }
    const fs::path folder = HardDiskLevelFolder(program, r.Code);
    double user = 0;
    const std::pair<std::int32_t, std::int32_t> parts[] = {
        {text::SizeFolderPlay, text::SizesPlayFolder},
        {text::SizeFolderSavegames, text::SizesArchivedSavegames},
        {text::SizeFolderScreenshots, text::SizesScreenshots}};
    for (const auto& [fragment, label] : parts) {
      const double bytes = FolderBytes(JoinFragment(folder, program.GetText(fragment)));
      user += bytes;
      ShowProgress(program, program.GetText(label) + FormatFileSize(bytes), i, all);
    }
    r.UserSize = ToRecordSize(user);
  }
  ShowProgress(program, program.GetText(text::SizesAddingUp), all, all);
  for (std::size_t i = 1; i < all; ++i) {
    c.header.TotalFilesSize += c.levels[i].FilesSize;
    c.header.TotalUserSize += c.levels[i].UserSize;
  }
  CatalogueChanged(program);
  ShowProgress(program, program.GetText(text::SizesDone), all, all);
  HideProgressDialog(program);
  if (silent) return;
  const double files = c.header.TotalFilesSize, user = c.header.TotalUserSize;
  AskUser(program,
          program.GetText(text::SizesTotalFiles) + FormatFileSize(files) + "\r\n" +
              program.GetText(text::SizesTotalUser) + FormatFileSize(user) + "\r\n" +
              program.GetText(text::SizesTotalAll) + FormatFileSize(files + user),
          msg::kInformation, program.GetText(text::SizesResultTitle));
}

}  // namespace vardolin
