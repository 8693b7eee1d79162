#pragma once
// Repairs and moves of a whole archive (Tools > Archive maintenance) on hard disk: the full
// backup of the editor folder made afresh, a catalogue rebuilt from the level folders, and the
// archive moved to another folder. The CD branches come with the level CDs.

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
// its code and gets a name of its position. The open catalogue is saved first if changed.
RecoverResult RecoverArchive(Program& program, const std::filesystem::path& folder = {});

// mnu_MoveArc: the levels' folders go to `folder` (asked for when empty; with too little room
// or the archive's own folder the choice is asked again, or, given, refused). Every level is
// copied and the catalogue saved pointing there before any old folder is deleted: a kill at any
// moment leaves a catalogue on disk whose every level has its folder.
bool MoveArchive(Program& program, const std::filesystem::path& folder = {});

}  // namespace vardolin
