#pragma once
// The main window over a small archive whose levels have savegames in their slots and archive
// sets, for the tests of the savegame panel. Savegames are written as the game writes them: a
// title at the start and the save number at offset 75.

#include <filesystem>
#include <string>
#include <vector>

#include "browser_fixture.h"
#include "foundation/services/files.h"
#include "savegame_bytes.h"
#include "savegames/savegame_header.h"
#include "savegames/savegame_store.h"
#include "savegames/text_ids.h"
#include "window/principale_savegames.h"

namespace vardolin::testing {

struct SavegamePanelFixture : BrowserFixture {
  SavegamePanelFixture() : BrowserFixture({"Base level", "Alpha", "Beta"}) {}

  // Savegames of the folder, one per save number, in slots 0, 1, 2 ...
  static std::vector<std::filesystem::path> Fill(const std::filesystem::path& folder,
                                                 const std::vector<std::int16_t>& numbers) {
    std::vector<std::filesystem::path> out;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      out.push_back(folder / ("savegame." + std::to_string(i)));
      const std::string title = "Save " + std::to_string(numbers[i]);
      WriteBytes(out.back(), GameSavegameBytes(numbers[i], title, 0, 200));
    }
    return out;
  }
  auto FillSlots(std::int32_t code, const std::vector<std::int16_t>& numbers) {
    return Fill(SlotFolder(program, code), numbers);
  }
  auto FillSet(std::int32_t code, std::int32_t set, const std::vector<std::int16_t>& numbers) {
    return Fill(ArchiveSetFolder(program, code, set), numbers);
  }
  void WriteNote(const std::filesystem::path& savegame, const std::string& text) {
    WriteBytes(SavegameNoteFile(program, savegame), text);
  }
  // Chooses the level in Combo_Livelli, which loads the panel.
  void ChooseLevel(std::int32_t code) {
    if (main->Combo_Livelli.ListCount() == 0) RefreshLevelList(*main);
    main->Combo_Livelli.SetListIndex(-1);
    main->Combo_Livelli.SetListIndex(main->Combo_Livelli.FindData(code));
  }
  // The save numbers at the head of a list's rows, in the list's order.
  static std::vector<int> Numbers(const ListBox& list) {
    std::vector<int> out;
    for (const ListItem& item : list.Items()) out.push_back(std::stoi(item.text.substr(0, 4)));
    return out;
  }
  // Save numbers of the files savegame.0, savegame.1 ... of a folder, until one is missing.
  std::vector<int> SlotNumbers(const std::filesystem::path& folder) {
    std::vector<int> out;
    for (int slot = 0;; ++slot) {
      const std::filesystem::path file = folder / ("savegame." + std::to_string(slot));
      if (!std::filesystem::exists(file)) return out;
      std::string title;
      out.push_back(ReadSavegameHeader(program, file, title));
    }
  }
};

}  // namespace vardolin::testing
