#pragma once
// Repairs of the level store after a program upgrade.

namespace vardolin {

class Program;

// Walks the levels from index 1 under a progress window. A level whose `\files` folder holds
// `scroll.mcf` as its first media file but no `scroll*.tr4` (packed or plain) lost its scroll
// files: its `scroll.mcf` and `\store` sub-folder are removed, since without them it makes no
// media level. Gives the number of levels repaired.
int RepairLevelStore(Program& program);

}  // namespace vardolin
