#pragma once
// Repairs and moves of a whole archive (Tools > Archive maintenance) on hard disk: the full
// backup of the editor folder made afresh, a catalogue rebuilt from the level folders, the
// archive moved to another folder, and the levels on CD brought back onto the hard disk.

#include <filesystem>
#include <string>
#include <vector>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// True when some level's files lie on a CD.
bool HasCdLevels(const Program& program);

// mnu_FaiFullBackup. The caller has put the editor folder back to its own level. A backup that
// is replaced stays until the new one stands whole.
void FaiFullBackup(Program& program, Label* label, ProgressBar* bar);
// The full copy itself: with `replace` made anew beside the backup and put in its place, else
// copied over the backup as it stands. False when no whole copy of the folder stands.
bool MakeFullBackup(Program& program, bool replace, Label* label, ProgressBar* bar);

struct RecoverResult {
  bool done = false;
  std::vector<std::string> skipped;  // folders whose names don't end in a level code
};
// A new catalogue from the level folders of `folder` (asked for when empty): each level keeps
// its code and gets a name of its position. The open catalogue is saved first if changed. When
// the levels lie on CDs too (asked when `folder` is, or given as `first_cd`, the folder of the
// first CD's levels, whose name ends in "1"), the CDs are read one by one and their levels take
// their CD's number.
RecoverResult RecoverArchive(Program& program, const std::filesystem::path& folder = {},
                             const std::filesystem::path& first_cd = {});

// Copies the files of every level on CD (asking for each CD, or reading its image) into the
// level's folder on hard disk, where its user folders already are; each level that arrived
// loses its CdNumber at once, so a CD refused halfway (text 1322) leaves the others on CD and
// the arrived ones on disk. True when no level is left on CD.
bool BringCdLevelsToDisk(Program& program);

// mnu_MoveArc: with levels on CD the user chooses first between bringing them onto the disk
// (and nothing more) and moving only what lies on the disk. The levels' folders go to `folder`
// (asked for when empty; with too little room or the archive's own folder the choice is asked
// again, or, given, refused). Every level is copied and the catalogue saved pointing there before
// any old folder is deleted: a kill at any moment leaves a catalogue on disk whose every level has
// its folder.
bool MoveArchive(Program& program, const std::filesystem::path& folder = {});

}  // namespace vardolin
