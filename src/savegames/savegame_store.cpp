#include "savegames/savegame_store.h"

#include <sys/stat.h>

#include <chrono>
#include <ctime>
#include <system_error>

#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/active_level.h"
#include "savegames/savegame_files.h"
#include "savegames/savegame_header.h"
#include "savegames/savegame_journal.h"
#include "savegames/savegame_sets.h"
#include "savegames/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;
using namespace savegame_files;

std::string FormatFileDate(const fs::path& file, const std::string& format) {
  struct stat status {};
  if (::stat(ResolveCase(file).c_str(), &status) != 0) return {};
  const std::time_t seconds = status.st_mtime;
  std::tm local{};
  localtime_r(&seconds, &local);
  auto two = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
  std::string out;
  bool after_hour = false;
  for (std::size_t i = 0; i < format.size();) {
    auto take = [&](std::string_view token) {
      if (ToLower(format.substr(i, token.size())) != token) return false;
      i += token.size();
      return true;
    };
    if (take("yyyy")) {
      out += std::to_string(local.tm_year + 1900);
    } else if (take("yy")) {
      out += two(local.tm_year % 100);
    } else if (take("dd")) {
      out += two(local.tm_mday);
    } else if (take("mm")) {
      out += after_hour ? two(local.tm_min) : two(local.tm_mon + 1);
    } else if (take("hh")) {
      out += two(local.tm_hour);
      after_hour = true;
      continue;
    } else if (take("nn")) {
      out += two(local.tm_min);
    } else if (take("ss")) {
      out += two(local.tm_sec);
    } else {
      out += format[i++];
      if (out.back() == ':') continue;
    }
    after_hour = false;
  }
  return out;
}

std::int32_t SlotNumberOf(std::string_view path) {
  const std::string extension = ExtractExtension(path);
  if (extension.size() < 2 || extension.size() > 10) return 0;
  std::int64_t value = 0;
  for (std::size_t i = 1; i < extension.size(); ++i) {
    const char c = extension[i];
    if (c < '0' || c > '9') return 0;
    value = value * 10 + (c - '0');
  }
  return value > INT32_MAX ? 0 : static_cast<std::int32_t>(value);
}

fs::path SavegameNoteFile(const Program& program, const fs::path& savegame) {
  return NoteName(program, savegame.parent_path(), text::NoteFileName,
                  SlotNumberOf(savegame.string()));
}

std::string SaveNumberField(std::int32_t number) {
  std::string field = std::to_string(number);
  if (field.size() < 4) field.insert(0, 4 - field.size(), ' ');
  return field;
}

std::string SavegameListCaption(const Program& program, const fs::path& savegame) {
  std::string title;
  const std::string number = SaveNumberField(ReadSavegameHeader(program, savegame, title));
  return number + " " + title + "  (" +
         FormatFileDate(savegame, program.GetText(text::SavegameDateFormat)) + ") ";
}

namespace {

bool CopyWithNote(const Program& program, const fs::path& source, const fs::path& destination,
                  bool remove_source, bool clear_destination_note) {
  if (ResolveCase(source) == ResolveCase(destination)) return FileExists(source);
  if (!FileExists(source)) return false;
  const fs::path source_note = NoteName(program, source.parent_path(), text::NoteFileCopyFrom,
                                        SlotNumberOf(source.string()));
  const fs::path destination_note = NoteName(
      program, destination.parent_path(), text::NoteFileCopyTo, SlotNumberOf(destination.string()));
  const bool same_note = ResolveCase(source_note) == ResolveCase(destination_note);
  const bool has_note = FileExists(source_note);
  // The note goes first: a savegame then never stands at its destination without its note, and
  // a note left behind by a crash has no savegame to attach itself to.
  if (!same_note) {
    if (has_note) {
      if (!CopyIntoPlace(source_note, destination_note)) return false;
    } else if (clear_destination_note && !DeleteFileForced(destination_note)) {
      return false;
    }
  }
  FaultPoint("savegame-copy");
  const bool copied =
      remove_source ? MoveIntoPlace(source, destination) : CopyIntoPlace(source, destination);
  if (!copied) {
    if (has_note && !same_note && !FileExists(destination)) DeleteFileForced(destination_note);
    return false;
  }
  FaultPoint("savegame-copy");
  if (remove_source && has_note && !same_note) DeleteFileForced(source_note);
  return true;
}

}  // namespace

bool CopySavegame(const Program& program, const fs::path& source, const fs::path& destination,
                  bool remove_source) {
  return CopyWithNote(program, source, destination, remove_source, false);
}

bool PlaceSavegame(const Program& program, const fs::path& source, const fs::path& destination,
                   bool remove_source) {
  return CopyWithNote(program, source, destination, remove_source, true);
}

bool DeleteSavegame(const Program& program, const fs::path& savegame) {
  // The note goes first: a note that outlived its savegame would be shown for whatever savegame
  // next takes that slot.
  const fs::path note = NoteName(program, savegame.parent_path(), text::NoteFileDelete,
                                 SlotNumberOf(savegame.string()));
  const bool note_gone = DeleteFileForced(note);
  return DeleteFileForced(savegame) && note_gone;
}

fs::path SlotFolder(Program& program, std::int32_t code) {
  if (code == GetActiveLevelCode(program)) return fs::path(Trim(program.prefs.EditorFolder));
  const fs::path level = GetLevelFolder(program, code, false);
  if (level.empty()) return {};
  return JoinFragment(level, program.GetText(text::SlotFolderPanel));
}

fs::path ArchiveRoot(Program& program, std::int32_t code) {
  const fs::path level = GetLevelFolder(program, code, false);
  if (level.empty()) return {};
  return JoinFragment(level, program.GetText(text::ArchiveRootArchive));
}

fs::path ArchiveSetFolder(Program& program, std::int32_t code, std::int32_t set) {
  const fs::path root = ArchiveRoot(program, code);
  if (root.empty()) return {};
  return JoinFragment(root, program.GetText(text::ArchiveSetProbe) + std::to_string(set));
}

std::int32_t NextArchiveSet(Program& program, std::int32_t code) {
  std::int32_t set = 1;
  while (FolderExists(ArchiveSetFolder(program, code, set))) ++set;
  return set;
}

fs::path SavegameWorkFolder(const Program& program) {
  return JoinFragment(program.Home(), program.GetText(text::WorkFolderArchive));
}

std::vector<fs::path> ListSavegames(const Program& program, const fs::path& folder) {
  return ListWithMask(program, folder, text::SavegameMaskList);
}

std::vector<fs::path> ListArchivedSavegames(Program& program, std::int32_t code) {
  const fs::path root = ArchiveRoot(program, code);
  if (root.empty()) return {};
  FolderTreeWalker walker(&program.ui());
  walker.WalkFolderTree(ResolveCase(root));
  const std::string mark = Mask(program, text::ArchivedSavegameMark);
  std::vector<fs::path> archived;
  // The mark is looked for below the root only, so a folder of the user's that happens to hold
  // it in its name doesn't turn every file into a savegame.
  for (const fs::path& file : walker.Files())
    if (ContainsNoCase(file.lexically_relative(ResolveCase(root)).string(), mark))
      archived.push_back(file);
  return archived;
}

bool CompactSlots(Program& program, const fs::path& folder) {
  std::vector<fs::path> files = ListWithMask(program, folder, text::SavegameMaskCompact);
  if (files.empty()) return true;
  if (files.size() == 1) {
    if (ExtractExtension(files[0].string()) == ".0") return true;
    return PlaceSavegame(
        program, files[0],
        files[0].parent_path() / ChangeExtension(files[0].filename().string(), ".0"), true);
  }
  if (!RecoverSavegameWork(program)) return false;
  files = ListWithMask(program, folder, text::SavegameMaskCompact);
  const fs::path work = JoinFragment(program.Home(), program.GetText(text::WorkFolderCompact));
  SavegameWork journal{SavegameWork::Compact, 0, ResolveCase(folder), {}, false};
  if (!BeginSavegameWork(program, work, journal)) return false;
  const std::vector<std::int32_t> numbers = SaveNumbers(program, files);
  const std::vector<int> order = SortIndexByValue(numbers, true);
  for (std::size_t k = 0; k < order.size(); ++k) {
    const fs::path& file = files[static_cast<std::size_t>(order[k])];
    const std::string name = ChangeExtension(file.filename().string(), "." + std::to_string(k));
    if (!PlaceSavegame(program, file, work / name, true))
      return RecoverSavegameWork(program) && false;
    FaultPoint("savegame-compact");
  }
  for (const fs::path& file : ListWithMask(program, work, text::SavegameMaskCompact)) {
    if (!PlaceSavegame(program, file, ResolveCase(folder) / file.filename(), true))
      return RecoverSavegameWork(program) && false;
    FaultPoint("savegame-compact");
  }
  return EndSavegameWork(program, work, "savegame-compact");
}

}  // namespace vardolin
