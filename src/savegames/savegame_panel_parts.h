#pragma once
// What the savegame panel's sources share among themselves.

#include <cstdint>
#include <optional>

namespace vardolin {

class Principale;

// The code of the level chosen in Combo_Livelli; none when nothing is chosen.
std::optional<std::int32_t> ChosenLevelCode(Principale& main);
// Refreshes the panels for the chosen level after its savegames changed on disk.
void ReloadSavegamePanel(Principale& main);

}  // namespace vardolin
