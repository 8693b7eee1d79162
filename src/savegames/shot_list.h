#pragma once
// The screenshot list of the chosen level: full paths with their file dates, oldest first.
// Equal dates keep the order in which the shots came, so the JPEG files listed first stand
// ahead of the BMP files of the same second.

#include <filesystem>
#include <vector>

#include "savegames/shot_store.h"

namespace vardolin {

class Program;

struct ShotEntry {
  std::filesystem::path path;
  ShotTime date;
};

class ShotList {
 public:
  void Clear() { entries_.clear(); }
  // Places the shot before the first one dated later, behind all of the same date.
  void InsertShotByDate(std::filesystem::path path, ShotTime date);
  int Count() const { return static_cast<int>(entries_.size()); }
  bool Holds(int index) const { return index >= 0 && index < Count(); }
  const ShotEntry& operator[](int index) const { return entries_[index]; }
  // Index of the shot with that path (names compare without regard to case), or -1.
  int IndexOf(const std::filesystem::path& path) const;
  // Changes a shot's date in the list only; the order stays until the next load.
  void SetDate(int index, ShotTime date) { entries_[index].date = date; }
  const std::vector<ShotEntry>& Entries() const { return entries_; }

 private:
  std::vector<ShotEntry> entries_;
};

// The level's shots as the panel lists them: the JPEG files, then the BMP files, each placed
// by its file date.
ShotList ListLevelShots(Program& program, int level_index);

// The shot whose date lies nearest to `when`, counted in whole seconds, when that distance is at
// most `minutes`; of equal distances the first in the list. -1 without such a shot.
int NearestShotWithin(const ShotList& shots, ShotTime when, int minutes);

}  // namespace vardolin
