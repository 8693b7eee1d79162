#pragma once
// The maintenance work built on the lists of level files: the check of a whole archive for
// equal levels, making the lists of all levels, and copying the more-info files of CD levels to
// hard disk.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vardolin {

class Program;

struct EqualLevelFind {
  std::int32_t level = 0;  // index in the level table
  std::int32_t equal = 0;  // index of its first equal level
  std::string file;        // the level file they share, as the equal level's list spells it

  bool operator==(const EqualLevelFind&) const = default;
};

// For every level of the table that has an equal level, the find that FindEqualLevel with the
// stored list would give it, in the table's order. Each list file is read once, so the work
// grows with the archive rather than with its square. `step` is told each level read.
std::vector<EqualLevelFind> FindAllEqualLevels(
    Program& program, const std::function<void(int done, int count)>& step = {});

// mnu_ControllaUguali: tells each find and asks whether to go on. Gives the number of finds
// the user went past.
int CheckEqualLevelsInArchive(Program& program);
// mnu_CreaInfoTr4: writes the list of every level that has none, expanding packed levels.
void CreateAllLevelFileLists(Program& program);
// mnu_CopiaFileInfos: copies the more-info file of each level on CD to its folder on hard disk.
void CopyAllInfoFilesFromCd(Program& program);

}  // namespace vardolin
