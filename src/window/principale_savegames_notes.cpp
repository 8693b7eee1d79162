// The notes of the savegame panel: writing the selected savegame's note, and searching the
// notes of the archived savegames from the menu and the main window's keys.

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

// `note` is the caller's, so that a walk over thousands of notes reuses one buffer.
bool NoteHolds(Principale& main, int row, const std::string& needle, std::string& note) {
  const std::int64_t at = main.List_SaveGameArchiviati.ItemData(row);
  const auto& archived = main.Savegames.archived;
  if (at < 0 || at >= static_cast<std::int64_t>(archived.size())) return false;
  return ReadFileIfThere(SavegameNoteFile(main.program(), archived[static_cast<std::size_t>(at)]),
                         note) &&
         ContainsNoCase(note, needle);
}

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
  ListBox& list = main.List_SaveGameArchiviati;
  const int rows = list.ListCount();
  if (rows == 0) return;
  const int current = list.ListIndex();
  int stop = kNoStopMark;
  int at = start;
  if (start == kFromSelection) {
    stop = current;
    at = current < 0 ? 0 : current + step;
  }
  auto wrap = [rows](int row) { return row >= rows ? 0 : (row < 0 ? rows - 1 : row); };
  at = wrap(at);
  const int first = at;
  const std::string& needle = main.Savegames.search_text;
  std::string note;
  while (true) {
    if (NoteHolds(main, at, needle, note)) {
      list.SetListIndex(at);
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
  if (main.List_SaveGameArchiviati.ListCount() == 0) {
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
  if (main.List_SaveGameArchiviati.ListCount() == 0) {
    AskUser(program, program.GetText(text::FindNextNoteEmptyList), msg::kError);
    return;
  }
  FindSavegameNote(main, 1, kFromSelection);
}

void FindPreviousSavegameNote(Principale& main) {
  Program& program = main.program();
  if (main.Savegames.search_text.empty()) return;
  if (main.List_SaveGameArchiviati.ListCount() == 0) {
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
