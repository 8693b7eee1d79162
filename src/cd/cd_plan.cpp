#include "cd/cd_plan.h"

#include <algorithm>

#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "cd/cd_drives.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {

double CdCapacityBytes(int mb) {
  return (mb - 5) * kCdMegabyte;
}

CdSplit SplitLevelsOnCds(const std::vector<std::int32_t>& codes, const std::vector<double>& sizes,
                         double room, double capacity, std::int32_t first_number,
                         const std::string& archive_name) {
  CdSplit split;
  if (codes.empty()) return split;
  std::int32_t number = first_number;
  double left = room;
  std::vector<std::int32_t> current;
  const auto close = [&] {
    split.plans.push_back({number, archive_name + std::to_string(number), current});
    current.clear();
  };
  for (std::size_t i = 0; i < codes.size(); ++i) {
    const double size = i < sizes.size() ? sizes[i] : 0;
    left -= size;
    if (left <= 0) {
      close();
      ++number;
      left = capacity - size;
    }
    current.push_back(codes[i]);
    split.cd_of_level.push_back(number);
  }
  close();
  split.left = left;
  return split;
}

LevelsToMove MeasureLevelsToMove(Program& program) {
  LevelsToMove levels;
  Catalogue& c = program.catalogue;
  for (int i = 0; i < static_cast<int>(c.levels.size()); ++i) {
    LevelRecord& r = c.levels[i];
    if (r.Code == 0 || r.CdNumber != 0) continue;
    const double size = FolderSizeBytes(GetLevelFolder(program, r.Code, false), "*");
    levels.indices.push_back(i);
    levels.sizes.push_back(size);
    const std::int32_t user = ToRecordSize(std::max(0.0, size - r.FilesSize));
    if (user == r.UserSize) continue;
    // Through the size helper, so that the header's total follows the record.
    AddSizeToCatalogue(c, static_cast<double>(user) - r.UserSize, i, SizeKind::User);
    program.CatalogueDirty = true;
  }
  return levels;
}

std::string CdDriveUnit(const CdDrive& drive) {
  return drive.mount_point.empty() ? drive.device : drive.mount_point;
}

std::string CdArchiveName(const Program& program) {
  return Trim(ExtractFileName(Trim(program.catalogue.header.MainDir)));
}

std::int32_t NextCdNumber(const Program& program) {
  std::int32_t highest = 0;
  for (const LevelRecord& r : program.catalogue.levels) highest = std::max(highest, r.CdNumber);
  return highest + 1;
}

}  // namespace vardolin
