#pragma once
// The savegame panel of the main window: the chosen level's savegames in the game's slots and
// in its archive sets, the note of the selected one, and what the panel's buttons, pop-up menus
// and menu entries do with them. The store itself (savegame_store.h, savegame_sets.h) knows
// nothing of the window.

#include <filesystem>

namespace vardolin {

class Principale;

// The selected savegame: from the archived list when it has a selection, else from the slot
// list. `index` gets the row in its list and `archived` which list it is. Empty, after telling
// the user, when neither list has a selection.
std::filesystem::path GetSelectedSavegame(Principale& main, int* index = nullptr,
                                          bool* archived = nullptr);
// Clears the panel and fills both lists for the level chosen in Combo_Livelli.
void LoadLevelSavegames(Principale& main);
// Shows the note of the selected savegame; with no selection clears it.
void ShowSelectedSavegame(Principale& main);

// Pul_DeleteSavegame and mnu_DelSavegame: asks, deletes, closes the gap in the slots.
void DeleteSelectedSavegame(Principale& main);
// Pul_RestoreSaveGame: copies the selected archived savegame into the first free slot.
void RestoreSelectedSavegame(Principale& main);
// Pul_ArchiviaSavegames and mnu_BackupSavegame: archives all but the newest slot savegame.
void ArchiveLevelSavegames(Principale& main, bool tell_user);
// mnu_RestoreSavegames: brings the newest archive set back into free slots.
void RestoreLevelSavegames(Principale& main);
// mnu_SalvaSavegame: saves a copy of the selected savegame under a name the user chooses.
void SaveSelectedSavegameAs(Principale& main);
// mnu_PropertySavegame: where the selected savegame, its note and its picture lie.
void ShowSavegameProperties(Principale& main);

// A click in Text_NoteSaveGame: edits the selected savegame's note; a note that is blank after
// trimming is removed.
void EditSavegameNote(Principale& main);
// Looks for the search text in the notes of the savegames in the slots and then of the archived
// ones, in the lists' order, one row per `step` (+1 or -1) from `start` (-1: from the row behind
// the selection, stopping at it), and selects the first row whose note holds it.
void FindSavegameNote(Principale& main, int step, int start);
// mnu_FindSavegameNote (Ctrl+F), mnu_FineNextSavegame (Ctrl+N), mnu_FindPreviousSavegame
// (Ctrl+P).
void FindSavegameNoteAsk(Principale& main);
void FindNextSavegameNote(Principale& main);
void FindPreviousSavegameNote(Principale& main);
// The main window's keys for the search: true when the key was one of them.
bool SavegameSearchKey(Principale& main, int key_code, int shift);

}  // namespace vardolin
