#pragma once
// mnu_RemoveLevel: takes the chosen level out of the catalogue and, when the user says so, its
// files off the disk.

#include <filesystem>

namespace vardolin {

class Principale;
class Label;
class ProgressBar;

// Removes the chosen level. The last record of the table fills its place, so the table's order
// changes; the files can stay behind, to be recovered later.
void RemoveChosenLevel(Principale& main);

// Removes a level's folder with all it holds, files first and then the folders from the
// deepest up, moving the bar. False when anything stays.
bool DeleteLevelFolderTree(const std::filesystem::path& folder, Label* label, ProgressBar* bar);

}  // namespace vardolin
