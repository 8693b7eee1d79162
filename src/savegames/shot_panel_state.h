#pragma once
// What the screenshot panel of the main window remembers of the chosen level between events.

#include <string>

#include "savegames/shot_list.h"

namespace vardolin {

struct ShotPanelState {
  ShotList shots;
  // Catalogue index of the level whose shots are listed, -1 before the first load.
  int level_index = -1;
  // Index of the shot in Image1: always even, -2 when it lies outside the list.
  int current = -2;
  // 0 for Image1, 1 for Image2.
  int selected_image = 0;
  // The shot tied to the selected savegame, empty when none is.
  std::string tied_image;
};

}  // namespace vardolin
