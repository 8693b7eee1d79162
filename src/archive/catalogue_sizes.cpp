#include "archive/catalogue_sizes.h"

#include <cstdio>
#include <string>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive/level_folder_name.h"
#include "archive/level_store.h"
#include "foundation/forms/controls.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// Sizes as the totals box shows them: bytes, whole Kb, then Mb and Gb with one decimal.
std::string SizeForTotals(double bytes) {
  char buf[64];
  if (bytes < 1024)
    std::snprintf(buf, sizeof buf, "%.0f", bytes);
  else if (bytes < 1048576.0)
    std::snprintf(buf, sizeof buf, "%.0f Kb",
                  static_cast<double>(static_cast<long long>(bytes / 1024)));
  else if (bytes < 1073741824.0)
    std::snprintf(buf, sizeof buf, "%.1f Mb", bytes / 1048576.0);
  else
    std::snprintf(buf, sizeof buf, "%.1f Gb", bytes / 1073741824.0);
  return buf;
}

void ShowProgress(Program& program, const std::string& text, std::size_t done, std::size_t all) {
  if (program.main.info) program.main.info->SetCaption(text);
  if (program.main.bar && all > 0) program.main.bar->SetValue(static_cast<int>(done * 100 / all));
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
  for (std::size_t i = 0; i < c.levels.size(); ++i) {
    LevelRecord& r = c.levels[i];
    if (r.CdNumber == 0) {
      ShowProgress(program, program.GetText(text::SizesLevelFiles) + r.Name, i, c.levels.size());
      r.FilesSize = ToRecordSize(FilesBytesOfLevel(program, r.Code));
    }
    ShowProgress(program, program.GetText(text::SizesLevelUser) + r.Name, i, c.levels.size());
    r.UserSize = ToRecordSize(UserBytesOfLevel(program, r.Code));
    if (i > 0) {
      c.header.TotalFilesSize += r.FilesSize;
      c.header.TotalUserSize += r.UserSize;
    }
  }
  if (program.main.info) program.main.info->SetCaption({});
  if (program.main.bar) program.main.bar->SetValue(0);
  CatalogueChanged(program);
  if (silent) return;
  const double files = c.header.TotalFilesSize, user = c.header.TotalUserSize;
  AskUser(program,
             program.GetText(text::SizesTotalFiles) + SizeForTotals(files) + "\r\n" +
                 program.GetText(text::SizesTotalUser) + SizeForTotals(user) + "\r\n" +
                 program.GetText(text::SizesTotalAll) + SizeForTotals(files + user),
             msg::kInformation, program.GetText(text::SizesResultTitle));
}

}  // namespace vardolin
