#include "savegames/savegame_sets.h"

#include <algorithm>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/active_level.h"
#include "savegames/savegame_files.h"
#include "savegames/savegame_header.h"
#include "savegames/savegame_journal.h"
#include "savegames/savegame_store.h"
#include "savegames/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;
using namespace savegame_files;

namespace {

constexpr const char* kLineBreak = "\r\n";

// The savegame of `folder` that holds the same bytes as `file`; empty when none does.
fs::path TwinIn(const Program& program, const fs::path& folder, const fs::path& file) {
  if (folder.empty()) return {};
  for (const fs::path& other : ListWithMask(program, folder, text::SavegameMaskRecover))
    if (SameBytes(file, other)) return other;
  return {};
}

// Gives `to` the note of `from` when `to` has none: of two copies of one savegame the note
// may lie with either, after a crash between the two steps of a copy.
void KeepNote(const Program& program, const fs::path& from, const fs::path& to) {
  const fs::path to_note = SavegameNoteFile(program, to);
  const fs::path from_note = SavegameNoteFile(program, from);
  if (!FileExists(to_note) && FileExists(from_note)) CopyIntoPlace(from_note, to_note);
}

// A crash can leave a partial copy, and a note whose savegame moved on.
void TidyFolder(const Program& program, const fs::path& folder) {
  if (folder.empty() || !FolderExists(folder)) return;
  DeleteFileForced(folder / kPartialCopyName);
  std::set<std::string> kept;
  for (const fs::path& savegame : ListWithMask(program, folder, text::SavegameMaskRecover))
    kept.insert(ToLower(SavegameNoteFile(program, savegame).filename().string()));
  const std::string note_mask = ExtractFileName(program.GetText(text::NoteFileName, {"*"}));
  for (const fs::path& note : ListFiles(folder, note_mask))
    if (!kept.count(ToLower(note.filename().string()))) DeleteFileForced(note);
}

// A folder for savegames whose slot folder is unknown or full: a new archive set of the level,
// made on first use.
struct OverflowSet {
  Program& program;
  std::int32_t level;
  fs::path folder;
  std::int32_t next = 0;

  fs::path NextName() {
    if (folder.empty()) {
      fs::path root = ArchiveRoot(program, level);
      if (root.empty()) level = 0;
      folder = ArchiveSetFolder(program, level, NextArchiveSet(program, level));
      std::error_code ec;
      fs::create_directories(folder, ec);
    }
    return SlotName(program, folder, text::SlotNameArchiveSet, next++);
  }
};

// The first savegame.i, i from 0 to 14, that doesn't stand in the folder; empty when all do.
fs::path FirstFreeSlot(const Program& program, const fs::path& folder, std::int32_t piece_id) {
  for (std::int32_t i = 0; i < kSavegameSlots; ++i) {
    const fs::path name = SlotName(program, folder, piece_id, i);
    if (!FileExists(name)) return name;
  }
  return {};
}

bool RemoveEmptyFolder(const fs::path& folder) {
  std::error_code ec;
  return fs::remove(ResolveCase(folder), ec);
}

}  // namespace

bool RecoverSavegameWork(Program& program) {
  const fs::path work = SavegameWorkFolder(program);
  if (!FolderExists(work)) return true;
  const std::optional<SavegameWork> journal = ReadSavegameWork(program, work);
  const bool known_home = journal && FolderExists(journal->home);
  const fs::path home = known_home ? ResolveCase(journal->home) : fs::path();
  const fs::path set =
      journal && FolderExists(journal->set) ? ResolveCase(journal->set) : fs::path();
  OverflowSet overflow{program, known_home ? journal->level : GetActiveLevelCode(program), {}};

  std::vector<fs::path> files = ListWithMask(program, work, text::SavegameMaskRecover);
  const std::vector<int> order = SortIndexByValue(SaveNumbers(program, files), true);
  for (int index : order) {
    const fs::path& file = files[static_cast<std::size_t>(index)];
    if (const fs::path twin = TwinIn(program, home, file); !twin.empty()) {
      KeepNote(program, file, twin);
      continue;
    }
    const fs::path set_twin = TwinIn(program, set, file);
    if (!set_twin.empty() && journal->committed) {
      KeepNote(program, file, set_twin);
      continue;
    }
    fs::path target;
    if (known_home) {
      const fs::path own = home / file.filename();
      target = FileExists(own) ? FirstFreeSlot(program, home, text::SlotNameRestoreSlots) : own;
    }
    if (target.empty()) target = overflow.NextName();
    if (!set_twin.empty()) KeepNote(program, set_twin, file);
    if (!PlaceSavegame(program, file, target, true)) return false;
    // The copy in the set came from the slots on its way in, or is on its way out: either way
    // the one now at home is the savegame.
    if (!set_twin.empty()) DeleteSavegame(program, set_twin);
  }
  TidyFolder(program, home);
  TidyFolder(program, set);
  TidyFolder(program, overflow.folder);
  if (!set.empty() && ListFiles(set, "*").empty()) RemoveEmptyFolder(set);
  if (!EndSavegameWork(program, work, "savegame-recover")) return false;
  // Every operation that names a slot folder leaves it renumbered; so does its recovery.
  if (known_home) CompactSlots(program, home);
  return true;
}

bool ArchiveSlotSavegames(Program& program, std::int32_t code, std::int32_t& count) {
  if (!RecoverSavegameWork(program)) return false;
  const fs::path slots = ResolveCase(SlotFolder(program, code));
  if (slots.empty()) return false;
  const std::vector<fs::path> listed = ListWithMask(program, slots, text::SavegameMaskArchive);
  // A single savegame is never archived: the game would have nothing to load.
  if (listed.size() < 2) return false;
  const fs::path work = JoinFragment(program.Home(), program.GetText(text::WorkFolderArchive));
  const std::int32_t set_number = NextArchiveSet(program, code);
  const fs::path set =
      JoinFragment(ArchiveRoot(program, code),
                   program.GetText(text::ArchiveSetMake) + std::to_string(set_number));
  const SavegameWork journal{SavegameWork::Archive, code, slots, set, false};
  if (!BeginSavegameWork(program, work, journal)) return false;
  for (const fs::path& file : listed) {
    if (!PlaceSavegame(program, file, work / file.filename(), true)) {
      RecoverSavegameWork(program);
      return false;
    }
    FaultPoint("savegame-archive");
  }
  // The table of the game's savegames; the game makes no more than 15, and whatever else stood
  // in the folder is carried along rather than dropped.
  const std::vector<fs::path> files = ListWithMask(program, work, text::SavegameMaskArchive);
  const std::vector<int> order = SortIndexByValue(SaveNumbers(program, files), true);
  const std::int32_t n = static_cast<std::int32_t>(files.size());
  std::error_code ec;
  fs::create_directories(set, ec);
  if (!FolderExists(set)) {
    RecoverSavegameWork(program);
    return false;
  }
  count = std::clamp(count, 0, n);
  for (std::int32_t i = 0; i < count; ++i) {
    if (!PlaceSavegame(program, files[static_cast<std::size_t>(order[i])],
                       SlotName(program, set, text::SlotNameArchiveSet, i), false)) {
      RecoverSavegameWork(program);
      return false;
    }
    FaultPoint("savegame-archive");
  }
  // Archiving everything still leaves the newest savegame in slot 0.
  const std::int32_t first_kept = count >= n ? n - 1 : count;
  for (std::int32_t i = first_kept; i < n; ++i) {
    if (!PlaceSavegame(program, files[static_cast<std::size_t>(order[i])],
                       SlotName(program, slots, text::SlotNameArchiveSlots, i - first_kept),
                       false)) {
      RecoverSavegameWork(program);
      return false;
    }
    FaultPoint("savegame-archive");
  }
  if (!CommitSavegameWork(program, work, journal)) {
    RecoverSavegameWork(program);
    return false;
  }
  FaultPoint("savegame-archive");
  EndSavegameWork(program, work, "savegame-archive");
  return true;
}

bool RestoreArchivedSavegames(Program& program, std::int32_t code) {
  if (!RecoverSavegameWork(program)) return false;
  const fs::path slots = ResolveCase(SlotFolder(program, code));
  if (slots.empty()) return false;
  const std::vector<fs::path> in_slots =
      ListWithMask(program, slots, text::SavegameMaskRestoreSlots);
  if (static_cast<int>(in_slots.size()) >= kSavegameSlots) return false;
  const fs::path root = ArchiveRoot(program, code);
  if (root.empty()) return false;
  auto set_folder = [&](std::int32_t k) {
    return JoinFragment(root, program.GetText(text::ArchiveSetRestoreProbe) + std::to_string(k));
  };
  // Sets are looked at up to the first missing number only: a gap ends the row.
  std::int32_t k = 1;
  while (FolderExists(set_folder(k))) ++k;
  fs::path set;
  for (--k; k >= 1; --k) {
    const fs::path folder = ResolveCase(set_folder(k));
    if (!ListWithMask(program, folder, text::ArchiveSetAnyFile).empty()) {
      set = folder;
      break;
    }
    RemoveEmptyFolder(folder);
  }
  if (set.empty()) return false;
  const std::vector<fs::path> archived = ListWithMask(program, set, text::SavegameMaskRestoreSet);
  if (archived.empty()) return false;

  const fs::path work = JoinFragment(program.Home(), program.GetText(text::WorkFolderRestore));
  const SavegameWork journal{SavegameWork::Restore, code, slots, set, false};
  if (!BeginSavegameWork(program, work, journal)) return false;
  for (const fs::path& file : in_slots) {
    if (!PlaceSavegame(program, file, work / file.filename(), true)) {
      RecoverSavegameWork(program);
      return false;
    }
    FaultPoint("savegame-restore");
  }
  const std::vector<int> newest_first = SortIndexByValue(SaveNumbers(program, archived), false);
  for (int index : newest_first) {
    const fs::path& file = archived[static_cast<std::size_t>(index)];
    const std::vector<fs::path> present =
        ListWithMask(program, work, text::SavegameMaskRestoreWork);
    std::string title;
    const std::int32_t number = ReadSavegameHeader(program, file, title);
    const std::vector<std::int32_t> numbers = SaveNumbers(program, present);
    // The save number only counts the saves of one playthrough: another playthrough's savegame
    // may carry the same number, so only the same bytes make it the same savegame.
    bool same = false;
    const std::string bytes = ReadWholeFile(file);
    for (std::size_t i = 0; i < present.size() && !same; ++i)
      same = numbers[i] == number && ReadWholeFile(present[i]) == bytes;
    if (same) {
      // The same savegame stands in the slots already.
      DeleteSavegame(program, file);
      FaultPoint("savegame-restore");
      continue;
    }
    const fs::path free_slot = FirstFreeSlot(program, work, text::SlotNameRestoreWork);
    if (free_slot.empty()) break;
    if (!PlaceSavegame(program, file, free_slot, true)) {
      RecoverSavegameWork(program);
      return false;
    }
    FaultPoint("savegame-restore");
  }
  const std::vector<fs::path> gathered = ListWithMask(program, work, text::SavegameMaskRestoreWork);
  const std::vector<int> oldest_first = SortIndexByValue(SaveNumbers(program, gathered), true);
  for (std::size_t i = 0; i < oldest_first.size(); ++i) {
    if (!PlaceSavegame(
            program, gathered[static_cast<std::size_t>(oldest_first[i])],
            SlotName(program, slots, text::SlotNameRestoreSlots, static_cast<std::int32_t>(i)),
            true)) {
      RecoverSavegameWork(program);
      return false;
    }
    FaultPoint("savegame-restore");
  }
  return EndSavegameWork(program, work, "savegame-restore");
}

bool RestoreSavegameToSlot(Program& program, std::int32_t code, const fs::path& archived) {
  const fs::path slots = SlotFolder(program, code);
  if (slots.empty() || !FileExists(archived)) return false;
  if (static_cast<int>(ListWithMask(program, slots, text::SavegameMaskRestoreOne).size()) >=
      kSavegameSlots) {
    const std::string question = program.GetText(text::RestoreOneSlotsFull, {kLineBreak});
    if (AskUser(program, question, msg::kYesNo) != msg::kYes) return false;
    std::int32_t all = kSavegameSlots;
    ArchiveSlotSavegames(program, code, all);
  }
  const fs::path free_slot = FirstFreeSlot(program, slots, text::SlotNameRestoreOne);
  if (free_slot.empty()) return false;
  if (!PlaceSavegame(program, archived, free_slot, false)) return false;
  CompactSlots(program, slots);
  return true;
}

}  // namespace vardolin
