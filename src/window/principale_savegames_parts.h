#pragma once
// What the savegame panel's sources share among themselves.

#include <cstdint>
#include <filesystem>
#include <optional>

namespace vardolin {

class Principale;

// Refreshes the panels for the chosen level after its savegames changed on disk.
void ReloadSavegamePanel(Principale& main);
// The savegame of a row of the archived list or of the slot list; empty for a row with none.
std::filesystem::path SavegameOfRow(Principale& main, bool archived, int row);

}  // namespace vardolin
