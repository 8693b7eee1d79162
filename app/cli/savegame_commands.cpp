#include "savegame_commands.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "catalogue_commands.h"
#include "foundation/program.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "json_text.h"
#include "savegames/savegame_sets.h"
#include "savegames/savegame_store.h"
#include "savegames/savegame_transfer.h"
#include "savegames/text_ids.h"

namespace vardolin {

namespace {

// The level must be one of the last catalogue, as a selection in the main window would be.
bool OpenLevel(Program& program, std::int32_t code, std::ostream& err) {
  if (!OpenLastCatalogue(program, err) || !LevelKnown(program, code, err)) return false;
  if (SlotFolder(program, code).empty()) {
    err << "vardolin-cli: level " << code << " of the catalogue " << program.prefs.LastArchive
        << " has no folder\n";
    return false;
  }
  return true;
}

std::size_t Count(Program& program, std::int32_t code) {
  return ListSavegames(program, SlotFolder(program, code)).size();
}

}  // namespace

int CmdSavegames(Program& program, std::int32_t code, bool json, std::ostream& out,
                 std::ostream& err) {
  if (!OpenLevel(program, code, err)) return 1;
  const auto slots = SlotFolder(program, code);
  const auto archived = ArchiveRoot(program, code);
  std::vector<std::pair<std::string, std::string>> rows;
  for (const auto& file : ListArchivedSavegames(program, code))
    rows.emplace_back(SavegameListCaption(program, file), file.string());
  std::stable_sort(rows.begin(), rows.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  if (json) {
    out << "{\"slots\": " << JsonString(slots.string()) << ", \"savegames\": [";
    const char* comma = "";
    for (const auto& file : ListSavegames(program, slots)) {
      out << comma << "\n  {\"slot\": " << SlotNumberOf(file.string())
          << ", \"caption\": " << JsonString(SavegameListCaption(program, file))
          << ", \"path\": " << JsonString(file.string()) << "}";
      comma = ",";
    }
    out << "],\n \"archived\": " << JsonString(archived.string()) << ", \"archived_savegames\": [";
    comma = "";
    for (const auto& [caption, path] : rows) {
      out << comma << "\n  {\"caption\": " << JsonString(caption)
          << ", \"path\": " << JsonString(path) << "}";
      comma = ",";
    }
    out << "]}\n";
    return 0;
  }
  out << "slots: " << slots.string() << "\n";
  for (const auto& file : ListSavegames(program, slots))
    out << SlotNumberOf(file.string()) << '\t' << SavegameListCaption(program, file) << "\n";
  out << "archived: " << archived.string() << "\n";
  for (const auto& [caption, path] : rows) out << path << '\t' << caption << "\n";
  return 0;
}

int CmdArchiveSavegames(Program& program, std::int32_t code, std::int32_t count, std::ostream& out,
                        std::ostream& err) {
  if (!OpenLevel(program, code, err)) return 1;
  const std::int32_t set = NextArchiveSet(program, code);
  if (!ArchiveSlotSavegames(program, code, count)) {
    err << "vardolin-cli: nothing archived: a level needs two savegames in its slots "
        << SlotFolder(program, code).string() << "\n";
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
    err << "vardolin-cli: nothing restored: the slots " << SlotFolder(program, code).string()
        << " are full or no archive set in " << ArchiveRoot(program, code).string()
        << " holds savegames\n";
    return 1;
  }
  out << "restored; " << Count(program, code) << " savegames in the slots (" << before
      << " before)\n";
  return 0;
}

int CmdExportSavegames(Program& program, std::int32_t code, const std::string& target,
                       std::ostream& out, std::ostream& err) {
  if (!OpenLevel(program, code, err)) return 1;
  std::vector<std::filesystem::path> files = ListSavegames(program, SlotFolder(program, code));
  for (const auto& file : ListArchivedSavegames(program, code)) files.push_back(file);
  if (files.empty()) {
    err << "vardolin-cli: level " << code << " has no savegames\n";
    return 1;
  }
  const std::filesystem::path to = std::filesystem::absolute(target);
  const bool zip =
      EqualsNoCase(ExtractExtension(to.string()), program.GetText(text::SaveSavegameZipExtension));
  const std::filesystem::path refused = RefusedSavegameTarget(program, to, files, zip, false);
  if (!refused.empty()) {
    err << "vardolin-cli: the savegames were not exported: " << refused.string()
        << " is not to be written (the message above says why)\n";
    return 1;
  }
  if (zip) {
    if (!ZipSavegames(program, to, files, nullptr, nullptr)) return 1;
  } else {
    std::error_code ec;
    std::filesystem::create_directories(to, ec);
    ExportSavegamesToFolder(files, to, false);
  }
  out << files.size() << " savegames into " << to.string() << "\n";
  return 0;
}

int CmdImportSavegames(Program& program, std::int32_t code, const std::string& source,
                       std::ostream& out, std::ostream& err) {
  if (!OpenLevel(program, code, err)) return 1;
  const std::filesystem::path from = std::filesystem::absolute(source);
  std::error_code ec;
  if (!std::filesystem::exists(from, ec)) {
    err << "vardolin-cli: there is no " << from.string() << "\n";
    return 1;
  }
  int taken = 0;
  if (std::filesystem::is_directory(from, ec)) {
    const std::optional<int> imported =
        ImportSavegamesIntoSlots(program, code, ListSavegames(program, from));
    if (!imported) return 1;
    taken = *imported;
  } else {
    taken = ReceiveSavegameFile(program, code, from);
  }
  out << taken << " savegames into " << SlotFolder(program, code).string() << "\n";
  return taken > 0 ? 0 : 1;
}

}  // namespace vardolin
