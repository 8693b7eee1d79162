#include "savegames/replaced_notes.h"

#include <string>
#include <system_error>

#include "archive/level_store.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "savegames/savegame_store.h"
#include "savegames/text_ids.h"

namespace vardolin {
namespace fs = std::filesystem;

SlotWriteTimes ReadSlotWriteTimes(const Program& program, const fs::path& slots) {
  SlotWriteTimes times;
  for (const fs::path& savegame : ListSavegames(program, slots)) {
    std::error_code ec;
    const fs::file_time_type written = fs::last_write_time(savegame, ec);
    if (!ec) times[savegame] = written;
  }
  return times;
}

int SetAsideReplacedNotes(Program& program, std::int32_t code, const SlotWriteTimes& before) {
  const fs::path slots = SlotFolder(program, code);
  if (slots.empty()) return 0;
  int set_aside = 0;
  for (const auto& [savegame, written] : ReadSlotWriteTimes(program, slots)) {
    const auto was = before.find(savegame);
    if (was == before.end() || was->second == written) continue;
    const std::int32_t slot = SlotNumberOf(savegame.string());
    const fs::path note = ResolveCase(SavegameNoteFile(program, savegame));
    if (!FileExists(note)) continue;
    const fs::path aside =
        JoinFragment(GetLevelFolder(program, code, false), program.GetText(text::NoteAsideFolder));
    fs::path target;
    for (int n = 1; target.empty() || FileExists(target); ++n)
      target =
          aside / program.GetText(text::NoteAsideName, {std::to_string(slot), std::to_string(n)});
    std::error_code ec;
    fs::create_directories(aside, ec);
    if (MoveFileOver(note, target)) ++set_aside;
  }
  return set_aside;
}

}  // namespace vardolin
