#pragma once
// mnu_RemoveLevel: takes the chosen level out of the catalogue and, when the user says so, its
// files off the disk.

namespace vardolin {

class Principale;

// Removes the chosen level. The last record of the table fills its place, so the table's order
// changes; the files can stay behind, to be recovered later.
void RemoveChosenLevel(Principale& main);

}  // namespace vardolin
