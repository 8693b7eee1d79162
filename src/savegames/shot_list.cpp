#include "savegames/shot_list.h"

#include <algorithm>
#include <cstdint>

#include "archive/level_store.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "savegames/text_ids.h"

namespace vardolin {
namespace {

// Seconds since the epoch, rounded down: two times in the same second are 0 seconds apart,
// as the tie between a savegame and its picture counts them.
std::int64_t WholeSeconds(ShotTime t) {
  return std::chrono::floor<std::chrono::seconds>(t.time_since_epoch()).count();
}

}  // namespace

void ShotList::InsertShotByDate(std::filesystem::path path, ShotTime date) {
  // The list is always sorted, so the first later entry is found by halving.
  auto at = std::upper_bound(entries_.begin(), entries_.end(), date,
                             [](ShotTime d, const ShotEntry& e) { return d < e.date; });
  entries_.insert(at, ShotEntry{std::move(path), date});
}

int ShotList::IndexOf(const std::filesystem::path& path) const {
  const std::string wanted = path.string();
  for (int i = 0; i < Count(); ++i)
    if (EqualsNoCase(entries_[i].path.string(), wanted)) return i;
  return -1;
}

ShotList ListLevelShots(Program& program, int level_index) {
  ShotList shots;
  const std::filesystem::path folder = ShotFolder(program, level_index, text::ShotFolderLoad);
  if (folder.empty()) return shots;
  // The base level's shot folder holds the picture that stands in for a missing shot; it was
  // never taken in the game, so it neither counts nor gets paged to.
  const std::string no_image = program.catalogue.levels[level_index].Code == 0
                                   ? JoinFragment(GetLevelFolder(program, 0, false),
                                                  program.GetText(text::NoImageOfBaseLevel))
                                         .string()
                                   : std::string();
  for (std::int32_t mask : {text::ShotMaskJpeg, text::ShotMaskBmp})
    for (const std::filesystem::path& file :
         ListFiles(folder, ExtractFileName(program.GetText(mask))))
      if (no_image.empty() || !EqualsNoCase(file.string(), no_image))
        shots.InsertShotByDate(file, ShotFileDate(file));
  return shots;
}

int NearestShotWithin(const ShotList& shots, ShotTime when, int minutes) {
  const std::int64_t tolerance = std::int64_t(minutes) * 60;
  const std::int64_t at = WholeSeconds(when);
  int best = -1;
  std::int64_t best_distance = 0;
  for (int i = 0; i < shots.Count(); ++i) {
    const std::int64_t d = std::llabs(WholeSeconds(shots[i].date) - at);
    if (best < 0 || d < best_distance) {
      best = i;
      best_distance = d;
    }
  }
  return best >= 0 && best_distance <= tolerance ? best : -1;
}

}  // namespace vardolin
