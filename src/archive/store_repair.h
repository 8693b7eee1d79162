#pragma once
// Repairs of the level store after a program upgrade.

namespace vardolin {

class Program;

// For each level from index 1 whose files folder holds `scroll.mcf` as its first `*.mcf` and no
// `scroll*.tr4` beside it: that media file no longer makes a media level, so it and the
// `\store` sub-folder are removed. Conversions broken off by a crash are put right on the way.
// Shows Dialog_Progress while it runs. Gives the number of levels whose scroll files were
// removed.
int RepairLevelStore(Program& program);

}  // namespace vardolin
