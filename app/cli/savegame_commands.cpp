#include "savegame_commands.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "savegames/savegame_sets.h"
#include "savegames/savegame_store.h"

namespace vardolin {

namespace {

// The level must be one of the last catalogue, as a selection in the main window would be.
bool OpenLevel(Program& program, std::int32_t code, std::ostream& err) {
  const std::string last = Trim(program.prefs.LastArchive);
  if (last.empty() || !LoadCatalogueFile(program, last)) {
    err << "vardolin-cli: no catalogue to open; use new-catalogue or open CATALOGUE\n";
    return false;
  }
  if (FindLevelIndex(program.catalogue, code) < 0) {
    err << "vardolin-cli: no level with code " << code << "\n";
    return false;
  }
  if (SlotFolder(program, code).empty()) {
    err << "vardolin-cli: level " << code << " has no folder\n";
    return false;
  }
  return true;
}

std::size_t Count(Program& program, std::int32_t code) {
  return ListSavegames(program, SlotFolder(program, code)).size();
}

}  // namespace

int CmdSavegames(Program& program, std::int32_t code, std::ostream& out, std::ostream& err) {
  if (!OpenLevel(program, code, err)) return 1;
  const auto slots = SlotFolder(program, code);
  out << "slots: " << slots.string() << "\n";
  for (const auto& file : ListSavegames(program, slots))
    out << SlotNumberOf(file.string()) << '\t' << SavegameListCaption(program, file) << "\n";
  out << "archived: " << ArchiveRoot(program, code).string() << "\n";
  std::vector<std::pair<std::string, std::string>> rows;
  for (const auto& file : ListArchivedSavegames(program, code))
    rows.emplace_back(SavegameListCaption(program, file), file.string());
  std::stable_sort(rows.begin(), rows.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& [caption, path] : rows) out << path << '\t' << caption << "\n";
  return 0;
}

int CmdArchiveSavegames(Program& program, std::int32_t code, std::int32_t count, std::ostream& out,
                        std::ostream& err) {
  if (!OpenLevel(program, code, err)) return 1;
  const std::int32_t set = NextArchiveSet(program, code);
  if (!ArchiveSlotSavegames(program, code, count)) {
    err << "vardolin-cli: nothing archived: a level needs two savegames in its slots\n";
    return 1;
  }
  out << "archived " << count << " savegames into " << ArchiveSetFolder(program, code, set).string()
      << "; " << Count(program, code) << " left in the slots\n";
  return 0;
}

int CmdRestoreSavegames(Program& program, std::int32_t code, std::ostream& out, std::ostream& err) {
  if (!OpenLevel(program, code, err)) return 1;
  const std::size_t before = Count(program, code);
  if (!RestoreArchivedSavegames(program, code)) {
    err << "vardolin-cli: nothing restored: the slots are full or no archive set holds savegames\n";
    return 1;
  }
  out << "restored; " << Count(program, code) << " savegames in the slots (" << before
      << " before)\n";
  return 0;
}

}  // namespace vardolin
