#pragma once
// Archiving a level's slot savegames into numbered archive sets and bringing them back. Each
// operation moves the savegames through the work folder with a journal beside them, so that a
// crash at any moment loses none: RecoverSavegameWork puts back what a stopped operation left
// there, and every operation runs it before it starts.
//
// The operations work on the level `code` (the one selected in the main window, which need not
// be the active one); reloading the window's panel afterwards is the caller's part.

#include <cstdint>
#include <filesystem>

namespace vardolin {

class Program;

// Moves the `count` oldest savegames of the level's slots into a new archive set as savegame.0
// onward and renumbers the rest from 0, oldest first. `count` is lowered to the number of
// savegames found. A single savegame is never archived, and archiving all of them still leaves
// the newest in slot 0 (it is then also in the set). True when a set was made.
bool ArchiveSlotSavegames(Program& program, std::int32_t code, std::int32_t& count);

// Brings the newest non-empty archive set back into the free slots, newest archived savegames
// first; those already in the slots (same save number) are deleted from the set, those that
// find no free slot stay. Slots end as savegame.0 onward, oldest first. Nothing happens with 15
// savegames in the slots. True when the slots were rebuilt.
bool RestoreArchivedSavegames(Program& program, std::int32_t code);

// Copies one archived savegame (with its note) into the first free slot and renumbers the
// slots; the archived one stays. With all 15 slots taken the user is asked (text 2398) whether
// to archive them first. True when the savegame was copied.
bool RestoreSavegameToSlot(Program& program, std::int32_t code,
                           const std::filesystem::path& archived);

// Puts back whatever a stopped operation left in the work folder: each savegame goes home to
// the slot folder its journal names (a copy that already stands there is dropped), or, without a
// journal, into a new archive set of the active level (of the journal's level when its slots are
// full). Removes the work folder.
// True when the work folder is gone afterwards (also when there was none).
bool RecoverSavegameWork(Program& program);

}  // namespace vardolin
