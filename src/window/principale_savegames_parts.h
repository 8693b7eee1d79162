#pragma once
// What the savegame panel's sources share among themselves.

#include <cstdint>
#include <optional>

namespace vardolin {

class Principale;

// Refreshes the panels for the chosen level after its savegames changed on disk.
void ReloadSavegamePanel(Principale& main);

}  // namespace vardolin
