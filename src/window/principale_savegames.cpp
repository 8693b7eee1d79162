// The savegame panel's lists: filling them for the chosen level, the selection, showing the
// selected savegame and the pop-up menus of the panel.

#include "window/principale_savegames.h"
#include "window/principale_shots.h"
#include "window/principale_shots_menu.h"

#include <string>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "savegames/savegame_store.h"
#include "savegames/text_ids.h"
#include "window/principale.h"
#include "window/principale_levels.h"
#include "window/principale_savegames_parts.h"

namespace vardolin {

namespace {

constexpr int kRightButton = 2;

std::filesystem::path SlotSavegame(Principale& main, std::int32_t fragment, int row) {
  const std::int64_t slot = main.List_SaveGameTomb.ItemData(row);
  return JoinFragment(main.Savegames.slot_folder,
                      main.program().GetText(fragment) + std::to_string(slot));
}

std::filesystem::path ArchivedSavegame(Principale& main, int row) {
  const std::int64_t at = main.List_SaveGameArchiviati.ItemData(row);
  const auto& archived = main.Savegames.archived;
  if (at < 0 || at >= static_cast<std::int64_t>(archived.size())) return {};
  return archived[static_cast<std::size_t>(at)];
}

// A click in one list takes the selection from the other one.
void SavegameListClick(Principale& main, ListBox& clicked, ListBox& other) {
  if (clicked.ListIndex() < 0) return;
  other.SetListIndex(-1);
  ShowSelectedSavegame(main);
}

void SavegameListMouseDown(Principale& main, ListBox& list, int button) {
  if (button == kRightButton && list.ListIndex() >= 0) main.mnu_SaveGameHid2.Popup();
}

void SavegameImageMouseDown(Principale& main, int button) {
  if (button != kRightButton) return;
  // The savegame menu offers to tie a picture, which only an archived savegame without one
  // takes; otherwise the picture is a screenshot and gets the screenshots' menu.
  if (main.List_SaveGameArchiviati.ListIndex() >= 0 && main.Shots.tied_image.empty())
    main.mnu_SaveGameHid.Popup();
  else
    main.mnu_Edit.Popup();
}

}  // namespace

std::filesystem::path GetSelectedSavegame(Principale& main, int* index, bool* archived) {
  int row = main.List_SaveGameArchiviati.ListIndex();
  std::filesystem::path path;
  bool from_archive = row >= 0;
  if (from_archive) {
    path = ArchivedSavegame(main, row);
  } else if ((row = main.List_SaveGameTomb.ListIndex()) >= 0) {
    path = SlotSavegame(main, text::SlotNameSelection, row);
  }
  if (index) *index = row;
  if (archived) *archived = from_archive;
  if (path.empty()) {
    Program& program = main.program();
    AskUser(program, program.GetText(text::SavegameNoneSelected), msg::kError);
  }
  return path;
}

void LoadLevelSavegames(Principale& main) {
  Program& program = main.program();
  SavegamePanelState& state = main.Savegames;
  main.Image_SaveGame.SetPicture(NoImageOfProgram(program, text::NoImageSavegameLoad).string());
  ForgetTiedShot(main);
  main.List_SaveGameTomb.Clear();
  main.List_SaveGameArchiviati.Clear();
  main.Text_NoteSaveGame.SetText({});
  state.archived.clear();
  const std::optional<std::int32_t> code = main.ChosenLevelCode();
  if (!code) return;
  state.archive_root = ArchiveRoot(program, *code);
  state.slot_folder = SlotFolder(program, *code);
  state.archived = ListArchivedSavegames(program, *code);
  for (std::size_t i = 0; i < state.archived.size(); ++i)
    main.List_SaveGameArchiviati.AddItem(SavegameListCaption(program, state.archived[i]),
                                         static_cast<std::int64_t>(i));
  if (state.slot_folder.empty()) return;
  for (const std::filesystem::path& file : ListSavegames(program, state.slot_folder))
    main.List_SaveGameTomb.AddItem(SavegameListCaption(program, file), SlotNumberOf(file.string()));
}

void ShowSelectedSavegame(Principale& main) {
  Program& program = main.program();
  std::filesystem::path path;
  if (const int row = main.List_SaveGameArchiviati.ListIndex(); row >= 0)
    path = ArchivedSavegame(main, row);
  else if (const int slot_row = main.List_SaveGameTomb.ListIndex(); slot_row >= 0)
    path = SlotSavegame(main, text::SlotNameShow, slot_row);
  if (path.empty()) {
    main.Text_NoteSaveGame.SetText({});
    main.Image_SaveGame.SetPicture(NoImageOfProgram(program, text::NoImageSavegameNone).string());
    ForgetTiedShot(main);
    return;
  }
  ShowTiedShot(main, path, main.Image_SaveGame);
  const std::filesystem::path note = SavegameNoteFile(program, path);
  main.Text_NoteSaveGame.SetText(FileExists(note) ? ReadWholeFile(ResolveCase(note))
                                                  : std::string());
}

std::filesystem::path SavegameOfRow(Principale& main, bool archived, int row) {
  return archived ? ArchivedSavegame(main, row) : SlotSavegame(main, text::SlotNameShow, row);
}

void ReloadSavegamePanel(Principale& main) {
  AggiornaDatiLivello(main);
}

void Principale::List_SaveGameTomb_Click() {
  SavegameListClick(*this, List_SaveGameTomb, List_SaveGameArchiviati);
}

void Principale::List_SaveGameArchiviati_Click() {
  SavegameListClick(*this, List_SaveGameArchiviati, List_SaveGameTomb);
}

void Principale::WireSavegamePanel() {
  List_SaveGameTomb.SetMouseDownHandler(
      [this](int button) { SavegameListMouseDown(*this, List_SaveGameTomb, button); });
  List_SaveGameArchiviati.SetMouseDownHandler(
      [this](int button) { SavegameListMouseDown(*this, List_SaveGameArchiviati, button); });
  Image_SaveGame.SetMouseDownHandler([this](int button) { SavegameImageMouseDown(*this, button); });
  Image_SaveGame.SetDblClickHandler([this] { ZoomTiedShot(*this); });
  Text_NoteSaveGame.SetMultiLine(true);
  Text_NoteSaveGame.SetLocked(true);
  Text_NoteSaveGame.SetClickHandler([this] { EditSavegameNote(*this); });
  Pul_DeleteSavegame.SetHandler([this] { DeleteSelectedSavegame(*this); });
  Pul_RestoreSaveGame.SetHandler([this] { RestoreSelectedSavegame(*this); });
  Pul_ArchiviaSavegames.SetHandler([this] { ArchiveLevelSavegames(*this, false); });
}

}  // namespace vardolin
