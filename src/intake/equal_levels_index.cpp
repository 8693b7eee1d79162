// The equal-level check of a whole archive. Asking FindEqualLevel for each level reads every
// list once per level; an index of (name, size) keys over all lists answers the same question
// for all levels after one reading.

#include <limits>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "intake/equal_levels.h"
#include "intake/level_file_list.h"

namespace vardolin {

namespace {

std::string Key(const LevelFileEntry& entry) {
  return ToLower(Trim(entry.Name)) + '\0' + std::to_string(entry.Size);
}

}  // namespace

std::vector<EqualLevelFind> FindAllEqualLevels(
    Program& program, const std::function<void(int done, int count)>& step) {
  const std::int32_t count = TableLevelCount(program);
  std::vector<LevelFileList> lists(static_cast<std::size_t>(count));
  // Each key names the levels that hold it, in ascending order, each level once.
  std::unordered_map<std::string, std::vector<std::int32_t>> holders;
  for (std::int32_t i = 0; i < count; ++i) {
    if (step) step(i, count);
    ReadLevelFileList(program, program.catalogue.levels[i].Code, lists[i]);
    for (const LevelFileEntry& entry : lists[i]) {
      std::vector<std::int32_t>& levels = holders[Key(entry)];
      if (levels.empty() || levels.back() != i) levels.push_back(i);
    }
  }

  std::vector<EqualLevelFind> finds;
  for (std::int32_t i = 0; i < count; ++i) {
    std::unordered_set<std::string> keys;
    std::int32_t first = std::numeric_limits<std::int32_t>::max();
    for (const LevelFileEntry& entry : lists[i]) {
      const std::string key = Key(entry);
      keys.insert(key);
      for (std::int32_t other : holders[key]) {
        if (other == i) continue;
        if (other < first) first = other;
        break;
      }
    }
    if (first == std::numeric_limits<std::int32_t>::max()) continue;
    // As FindEqualLevel reads the other level's list: its first entry that matches tells.
    for (const LevelFileEntry& entry : lists[first]) {
      if (!keys.count(Key(entry))) continue;
      finds.push_back({i, first, Trim(entry.Name)});
      break;
    }
  }
  return finds;
}

}  // namespace vardolin
