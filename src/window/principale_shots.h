#pragma once
// The screenshot panel of the main window: the chosen level's shots shown two at a time, paged
// by pairs, one of the two selected; and the tie of a savegame to the shot taken nearest to it.

#include <cstdint>
#include <filesystem>

#include "savegames/shot_store.h"

namespace vardolin {

class Image;
class Principale;
class Program;

// The no-image picture: behind the base level's folder, or behind the program's folder (the
// savegame panel's). `fragment` is the text id at the caller's place of use.
std::filesystem::path NoImageOfBaseLevel(Program& program, std::int32_t fragment);
std::filesystem::path NoImageOfProgram(Program& program, std::int32_t fragment);

// Lists the level's shot folder anew, JPEG files before BMP files, and shows the pair at
// `index`.
void LoadLevelScreenshots(Principale& main, int level_index, int index);
// Shows shot `index` in Image1 and the next in Image2, the no-image picture where the list has
// none. False, after telling the user, when a picture isn't there; the panel keeps what it had.
bool ShowScreenshotPair(Principale& main, int index);
// Marks Image1 (0) or Image2 (1) as the selected one.
void SelectShotImage(Principale& main, int which);
// The selected shot's index: with the panel up, the pair's first index plus the selected image;
// else the tied image's index, or the count (none) when no image is tied.
int GetSelectedShotIndex(Principale& main);

enum class ShotPage { First, Previous, Next, Last };
// Pul_PrimoShot, Pul_PrimaScreenShot, Pul_DopoScreenShot and Pul_UltimoShot.
void PageShots(Principale& main, ShotPage page);

// Ties the savegame to the shot nearest to its file date within AssociationMinutes and loads
// that shot into `target`; without one, the no-image picture and no tie.
void ShowTiedShot(Principale& main, const std::filesystem::path& savegame, Image& target);
// Shows the pair with the newest shot of the chosen level, after new ones were stored.
void ShowNewestShots(Principale& main);
// Forgets the tie, as the savegame panel does when nothing is selected.
void ForgetTiedShot(Principale& main);

}  // namespace vardolin
