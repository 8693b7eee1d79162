#pragma once
// The level chooser of the main window: the list of levels, the summary of the chosen one,
// searching by name, its more-info file and the helper behind F12.

#include <cstdint>
#include <filesystem>
#include <string>

namespace vardolin {

class Program;
class Principale;
struct LevelRecord;

// Rebuilds Combo_Livelli from the catalogue, keeping the chosen level when it is still there.
void RefreshLevelList(Principale& main);
// Chooses the entry of the level with `code`; false when the list has none.
bool SelectLevelByCode(Principale& main, std::int32_t code);

// Refreshes the panels for the chosen level: its screenshots from the pair at `first_shot`,
// its note and the summary line.
void AggiornaDatiLivello(Principale& main, int first_shot = 0);
// The summary line of Label_InfoDir for a level: its savegames counted from the disk, beside the
// count of the screenshots the panel listed.
std::string LevelInfoDirText(Program& program, const LevelRecord& level, std::int32_t active_code,
                             int shot_count);

enum class SearchWay { FromTop, Down, Up };
// Pul_Search (FromTop), Pul_Dopo (Down) and Pul_Prima (Up) with the text of Text_Search.
void SearchLevel(Principale& main, SearchWay way);

// Pul_MoreInfo: opens the chosen level's more-info file, copying it to hard disk from a CD.
void ShowMoreInfo(Principale& main);

// F12: starts the helper checkvardo.exe of the program's folder when it stands there.
bool StartCheckVardo(Program& program);

}  // namespace vardolin
