#pragma once
// What the savegame panel of the main window knows of the chosen level between events. It is
// rebuilt from the disk each time the panel loads; nothing of it is stored.

#include <filesystem>
#include <string>
#include <vector>

namespace vardolin {

struct SavegamePanelState {
  // Where the level's current savegames lie: the editor folder while the level is the active
  // one, else the play folder under its level folder.
  std::filesystem::path slot_folder;
  std::filesystem::path archive_root;
  // Every savegame file found under the archive root; the archived list's item data index it.
  std::vector<std::filesystem::path> archived;
  // The text of the last search through the notes, kept for the whole run.
  std::string search_text;
};

}  // namespace vardolin
