// The notes of the savegame panel: writing the selected savegame's note, and searching the
// notes of the savegames, in the game's slots and archived, from the menu and the window's keys.

#include <string>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "savegames/savegame_store.h"
#include "savegames/text_ids.h"
#include "web/dialog_input_testo.h"
#include "window/principale.h"
#include "window/principale_savegames.h"
#include "window/principale_savegames_parts.h"

namespace vardolin {

namespace {

constexpr int kCtrl = 2;
constexpr int kKeyF = 'F';
constexpr int kKeyN = 'N';
constexpr int kKeyP = 'P';
// The start that goes on from the selection and stops when it comes round to it.
constexpr int kFromSelection = -1;
// A stop mark that no row has: the walk stops only where it began.
constexpr int kNoStopMark = -2;

// The search walks the slot list and then the archived list as one: position p is row p of the
// slots, or row p - slots of the archive.
struct SearchRows {
  explicit SearchRows(Principale& m)
      : main(m),
        slots(m.List_SaveGameTomb.ListCount()),
        count(slots + m.List_SaveGameArchiviati.ListCount()) {}
  Principale& main;
  int slots, count;

  int Current() const {
    if (const int row = main.List_SaveGameArchiviati.ListIndex(); row >= 0) return slots + row;
    return main.List_SaveGameTomb.ListIndex();
  }
  void Select(int at) {
    const bool archived = at >= slots;
    (archived ? main.List_SaveGameTomb : main.List_SaveGameArchiviati).SetListIndex(-1);
    (archived ? main.List_SaveGameArchiviati : main.List_SaveGameTomb)
        .SetListIndex(archived ? at - slots : at);
    ShowSelectedSavegame(main);
  }
  // `note` is the caller's, so that a walk over thousands of notes reuses one buffer.
  bool NoteHolds(int at, const std::string& needle, std::string& note) {
    const bool archived = at >= slots;
    const std::filesystem::path savegame =
        SavegameOfRow(main, archived, archived ? at - slots : at);
    return !savegame.empty() && ReadFileIfThere(SavegameNoteFile(main.program(), savegame), note) &&
           ContainsNoCase(note, needle);
  }
};

}  // namespace

void EditSavegameNote(Principale& main) {
  Program& program = main.program();
  const std::filesystem::path savegame = GetSelectedSavegame(main);
  if (savegame.empty()) return;
  Dialog_InputTesto dialog(program);
  dialog.ImpostaValori(program.GetText(text::SavegameNoteTitle), main.Text_NoteSaveGame.Text());
  program.ui().ShowModal(dialog);
  if (!dialog.ExitValue) return;
  const std::string note_text = dialog.Testo();
  main.Text_NoteSaveGame.SetText(note_text);
  const std::filesystem::path note = ResolveCase(SavegameNoteFile(program, savegame));
  // A blank note is no note: the file would only be found by the search for blanks.
  if (Trim(note_text).empty())
    DeleteFileForced(note);
  else
    AtomicWriteFile(note, note_text);
}

void FindSavegameNote(Principale& main, int step, int start) {
  SearchRows rows(main);
  if (rows.count == 0) return;
  const int current = rows.Current();
  int stop = kNoStopMark;
  int at = start;
  if (start == kFromSelection) {
    stop = current;
    at = current < 0 ? 0 : current + step;
  }
  auto wrap = [&rows](int row) { return row >= rows.count ? 0 : (row < 0 ? rows.count - 1 : row); };
  at = wrap(at);
  const int first = at;
  const std::string& needle = main.Savegames.search_text;
  std::string note;
  while (true) {
    if (rows.NoteHolds(at, needle, note)) {
      rows.Select(at);
      return;
    }
    at = wrap(at + step);
    if (at == first || at == stop) break;
  }
  Program& program = main.program();
  AskUser(program, program.GetText(text::FindNoteNotFound), msg::kInformation);
}

void FindSavegameNoteAsk(Principale& main) {
  Program& program = main.program();
  if (SearchRows(main).count == 0) {
    AskUser(program, program.GetText(text::FindNoteEmptyList), msg::kError);
    return;
  }
  const std::string typed =
      AskInput(program, program.GetText(text::FindNotePrompt), program.GetText(text::FindNoteTitle),
               main.Savegames.search_text);
  if (typed.empty()) return;
  main.Savegames.search_text = typed;
  FindSavegameNote(main, 1, 0);
}

void FindNextSavegameNote(Principale& main) {
  Program& program = main.program();
  if (main.Savegames.search_text.empty()) return FindSavegameNoteAsk(main);
  if (SearchRows(main).count == 0) {
    AskUser(program, program.GetText(text::FindNextNoteEmptyList), msg::kError);
    return;
  }
  FindSavegameNote(main, 1, kFromSelection);
}

void FindPreviousSavegameNote(Principale& main) {
  Program& program = main.program();
  if (main.Savegames.search_text.empty()) return;
  if (SearchRows(main).count == 0) {
    AskUser(program, program.GetText(text::FindPreviousNoteEmptyList), msg::kError);
    return;
  }
  FindSavegameNote(main, -1, kFromSelection);
}

bool SavegameSearchKey(Principale& main, int key_code, int shift) {
  if (shift != kCtrl) return false;
  switch (key_code) {
    case kKeyF:
      main.mnu_FindSavegameNote.Click();
      return true;
    case kKeyN:
      main.mnu_FineNextSavegame.Click();
      return true;
    case kKeyP:
      main.mnu_FindPreviousSavegame.Click();
      return true;
    default:
      return false;
  }
}

}  // namespace vardolin
