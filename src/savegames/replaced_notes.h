#pragma once
// A note belongs to the savegame it was written for. Notes are named after their slot, so when
// the game saves over a slot the note of the savegame it replaced would pass to the new one; the
// watcher looks at the slots on each tick and sets such a note aside instead, into the level's
// folder, where it is kept and no savegame shows it.

#include <cstdint>
#include <filesystem>
#include <map>

namespace vardolin {

class Program;

// When each savegame of a slot folder was last written.
using SlotWriteTimes = std::map<std::filesystem::path, std::filesystem::file_time_type>;
SlotWriteTimes ReadSlotWriteTimes(const Program& program, const std::filesystem::path& slots);

// Sets aside the note of each slot of the level whose savegame was written anew since `before`
// was read. Gives how many notes were set aside.
int SetAsideReplacedNotes(Program& program, std::int32_t code, const SlotWriteTimes& before);

}  // namespace vardolin
