#pragma once
// How the levels of an archive spread over CDs. Pure: sizes in, plans out, so that the window,
// the command line and the tests share one rule.
//
// The levels go in table order. The first CD has `room` bytes for levels (what the shared items
// leave of it), every further one the whole `capacity`. A level that no longer fits closes the
// CD being filled, even when that CD holds no level yet, and opens the next one; so a first
// level bigger than the room leaves the first CD to the shared items, and a level bigger than a
// whole CD still gets a CD of its own (and the next level closes it at once).

#include <cstdint>
#include <string>
#include <vector>

namespace vardolin {

class Program;
struct CdDrive;

// One megabyte as the capacities count it.
inline constexpr double kCdMegabyte = 1048576.0;
// The capacities a user can choose, in megabytes: CD 650, CD 700, DVD 4.7 GB.
inline constexpr int kCdCapacitiesMb[] = {650, 700, 4700};

struct CdPlan {
  std::int32_t number = 0;
  std::string folder;  // the folder on the CD that holds its LEVEL_ folders
  std::vector<std::int32_t> codes;
};

struct CdSplit {
  std::vector<CdPlan> plans;
  // The CdNumber of each level given, in the given order.
  std::vector<std::int32_t> cd_of_level;
  // What is left on the last CD.
  double left = 0;
};

// Bytes of a disc of `mb` megabytes that levels and files may fill: 5 MB stay free for the
// file system.
double CdCapacityBytes(int mb);

// Spreads the levels (codes with their sizes) over CDs numbered from `first_number`; each CD's
// folder is `archive_name` followed by its number.
CdSplit SplitLevelsOnCds(const std::vector<std::int32_t>& codes, const std::vector<double>& sizes,
                         double room, double capacity, std::int32_t first_number,
                         const std::string& archive_name);

// The levels that still lie on hard disk (a code other than 0 and CdNumber 0), in table order.
struct LevelsToMove {
  std::vector<int> indices;
  std::vector<double> sizes;
};
// Measures each such level's folder. Each record's UserSize becomes what lies there beside its
// files; the catalogue counts as changed when one moved.
LevelsToMove MeasureLevelsToMove(Program& program);

// What stands for a drive where the program would keep its letter: the mount point of its disc,
// or the drive's device while nothing is mounted (a blank disc in a writer).
std::string CdDriveUnit(const CdDrive& drive);

// The archive's name on its CDs: the last component of MainDir.
std::string CdArchiveName(const Program& program);
// The number the next new CD of the archive gets: one above the highest CdNumber of the table.
std::int32_t NextCdNumber(const Program& program);

}  // namespace vardolin
