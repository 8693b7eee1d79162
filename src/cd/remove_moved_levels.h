#pragma once
// Once levels are on CD, their files leave the hard disk; their savegames, screenshots and play
// folder stay. A level's files go only after they were found whole on its CD or in its image:
// a CD not given, a level missing there or a copy that differs stops the run, and every level
// not yet done keeps its files.

namespace vardolin {

class Program;

// For each level with a CdNumber whose files folder still holds level files. At the end MainDir
// takes the first CD drive with a disc mounted (when there is one), OnCd is cleared and the
// catalogue saved. False when the run stopped early.
bool RemoveMovedLevels(Program& program);

}  // namespace vardolin
