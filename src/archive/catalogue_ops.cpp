#include "archive/catalogue_ops.h"

#include <filesystem>
#include <limits>

#include "archive/catalogue_file.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/forms/form.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"

namespace vardolin {

int FindLevelIndex(const Catalogue& catalogue, std::int32_t code) {
  for (std::size_t i = 0; i < catalogue.levels.size(); ++i)
    if (catalogue.levels[i].Code == code) return static_cast<int>(i);
  return -1;
}

std::int32_t NextLevelCode(const Catalogue& catalogue) {
  // An empty table's first record is the base level, code 0.
  std::int32_t highest = -1;
  for (const LevelRecord& r : catalogue.levels)
    if (r.Code > highest) highest = r.Code;
  return highest + 1;
}

SizeTotals LevelSizeTotals(const Catalogue& catalogue) {
  SizeTotals totals;
  for (std::size_t i = 1; i < catalogue.levels.size(); ++i) {
    totals.files += catalogue.levels[i].FilesSize;
    totals.user += catalogue.levels[i].UserSize;
  }
  return totals;
}

std::int32_t ToRecordSize(double bytes) {
  constexpr double kMax = std::numeric_limits<std::int32_t>::max();
  constexpr double kMin = std::numeric_limits<std::int32_t>::min();
  if (!(bytes == bytes)) return 0;  // NaN
  if (bytes >= kMax) return std::numeric_limits<std::int32_t>::max();
  if (bytes <= kMin) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(bytes);
}

void AddSizeToCatalogue(Catalogue& catalogue, double bytes, int index, SizeKind kind) {
  if (index < 0 || static_cast<std::size_t>(index) >= catalogue.levels.size()) return;
  LevelRecord& r = catalogue.levels[static_cast<std::size_t>(index)];
  std::int32_t& field = kind == SizeKind::Files ? r.FilesSize : r.UserSize;
  std::int32_t before = field;
  field = ToRecordSize(static_cast<double>(field) + bytes);
  if (index == 0) return;
  // The total follows what the record really took, so a clamped record keeps them agreeing.
  double added = static_cast<double>(field) - static_cast<double>(before);
  (kind == SizeKind::Files ? catalogue.header.TotalFilesSize : catalogue.header.TotalUserSize) +=
      added;
}

void AddLevelSize(Program& program, double bytes, int index, SizeKind kind) {
  AddSizeToCatalogue(program.catalogue, bytes, index, kind);
  CatalogueChanged(program);
}

bool CheckLevelNotOnCd(Program& program, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= program.catalogue.levels.size()) return false;
  if (program.catalogue.levels[static_cast<std::size_t>(index)].CdNumber == 0) return false;
  AskUser(program, program.GetText(text::LevelIsOnCd, {"\r\n"}), msg::kError);
  return true;
}

std::string MainTitleText(const Program& program) {
  std::string name = std::filesystem::path(program.prefs.LastArchive).filename().string();
  if (name.empty()) return program.GetText(text::MainTitleNoArchive);
  const std::size_t count = program.catalogue.levels.size();
  return program.GetText(count == 1 ? text::MainTitleOneLevel : text::MainTitle,
                         {name + " (" + std::to_string(count)});
}

void UpdateMainTitle(Program& program) {
  if (!program.main.form) return;
  std::string title = MainTitleText(program);
  if (program.GameRunning) title += program.GetText(text::GameRunningTitleMark);
  program.main.form->SetCaption(title);
}

}  // namespace vardolin
