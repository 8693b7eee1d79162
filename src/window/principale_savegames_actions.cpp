// What the savegame panel's buttons and menu entries do with the chosen level's savegames.

#include <string>

#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/export_target.h"
#include "foundation/platform/desktop_integration.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "savegames/savegame_sets.h"
#include "savegames/savegame_store.h"
#include "savegames/savegame_transfer.h"
#include "savegames/shot_store.h"
#include "savegames/text_ids.h"
#include "window/principale.h"
#include "window/principale_levels.h"
#include "window/principale_savegames.h"
#include "window/principale_savegames_parts.h"

namespace vardolin {

namespace {

// Archiving all of them still leaves the newest savegame in slot 0.
constexpr std::int32_t kArchiveAll = kSavegameSlots;

std::string SelectedRowText(Principale& main, bool archived) {
  return archived ? main.List_SaveGameArchiviati.SelectedText()
                  : main.List_SaveGameTomb.SelectedText();
}

// The note's path, the savegame's path and the picture tied to it, under the row text.
std::string SavegamePropertiesText(Program& program, const std::string& row_text,
                                   const std::filesystem::path& savegame,
                                   const std::filesystem::path& tied_image,
                                   const std::string& image_date) {
  const std::filesystem::path note = SavegameNoteFile(program, savegame);
  std::string out = row_text + "\r\n\r\n";
  out += FileExists(note) ? "\"" + ResolveCase(note).string() + "\""
                          : program.GetText(text::SavegamePropertiesNoNote);
  out += "\r\n\r\n" + program.GetText(text::SavegamePropertiesFile) + savegame.string();
  out += "\r\n\r\n";
  out += tied_image.empty() ? program.GetText(text::SavegamePropertiesNoImage)
                            : "\"" + tied_image.string() + "\"\r\n" +
                                  program.GetText(text::SavegamePropertiesImageDate) + image_date;
  return out;
}

}  // namespace

void DeleteSelectedSavegame(Principale& main) {
  Program& program = main.program();
  int index = -1;
  bool archived = false;
  const std::filesystem::path path = GetSelectedSavegame(main, &index, &archived);
  if (path.empty()) return;
  const std::string question =
      program.GetText(text::DeleteSavegameQuestion) + SelectedRowText(main, archived) + "] ?";
  if (AskUser(program, question, msg::kYesNo) != msg::kYes) return;
  DeleteSavegame(program, path);
  if (!archived) CompactSlots(program, main.Savegames.slot_folder);
  ReloadSavegamePanel(main);
  ListBox& list = main.List_SaveGameArchiviati;
  if (archived && index >= 0 && list.ListCount() > 0)
    list.SetListIndex(index < list.ListCount() ? index : list.ListCount() - 1);
}

void RestoreSelectedSavegame(Principale& main) {
  Program& program = main.program();
  bool archived = false;
  const std::filesystem::path path = GetSelectedSavegame(main, nullptr, &archived);
  if (path.empty() || !archived) {
    AskUser(program, program.GetText(text::RestoreNeedsArchived), msg::kError);
    return;
  }
  const std::optional<std::int32_t> code = main.ChosenLevelCode();
  if (!code) return;
  const int row = main.List_SaveGameArchiviati.ListIndex();
  RestoreSavegameToSlot(program, *code, path);
  // The picture beside it may be one the user paged to: the pair on show stays.
  AggiornaDatiLivello(main, program.FirstShotShown);
  main.List_SaveGameArchiviati.SetListIndex(row);
}

void ArchiveLevelSavegames(Principale& main, bool tell_user) {
  Program& program = main.program();
  if (const std::optional<std::int32_t> code = main.ChosenLevelCode()) {
    std::int32_t count = kArchiveAll;
    ArchiveSlotSavegames(program, *code, count);
    ReloadSavegamePanel(main);
  }
  if (tell_user) AskUser(program, program.GetText(text::ArchiveSavegamesDone), msg::kInformation);
}

void RestoreLevelSavegames(Principale& main) {
  Program& program = main.program();
  if (const std::optional<std::int32_t> code = main.ChosenLevelCode()) {
    RestoreArchivedSavegames(program, *code);
    ReloadSavegamePanel(main);
  }
  AskUser(program, program.GetText(text::RestoreSavegamesDone), msg::kInformation);
}

void SaveSelectedSavegameAs(Principale& main) {
  Program& program = main.program();
  const std::filesystem::path path = GetSelectedSavegame(main);
  if (path.empty()) return;
  FileRequest request;
  request.title = program.GetText(text::SaveSavegameTitle);
  request.filter = program.GetText(text::SaveSavegameFilterZip) + "|" +
                   program.GetText(text::SaveSavegameFilterAll);
  request.start_folder = DesktopFolder(program).string();
  request.file_name = path.filename().string();
  const std::string chosen = program.ui().AskSaveFile(request);
  if (chosen.empty() || !MayWriteExportTarget(program, chosen, true)) return;
  const std::string zip = program.GetText(text::SaveSavegameZipExtension);
  if (!zip.empty() && EqualsNoCase(ExtractExtension(chosen), zip)) {
    ZipSavegames(program, chosen, {path}, &main.Label_Info, &main.ProgressBar1);
    return;
  }
  CopySavegame(program, path, chosen, false);
}

void ShowSavegameProperties(Principale& main) {
  Program& program = main.program();
  bool archived = false;
  const std::filesystem::path path = GetSelectedSavegame(main, nullptr, &archived);
  if (path.empty()) return;
  // The picture beside the savegame is the one the screenshot panel tied to it on selection.
  const std::filesystem::path tied = main.Shots.tied_image;
  const std::string tied_date = tied.empty() ? std::string() : ShotDateText(ShotFileDate(tied));
  AskUser(program,
          SavegamePropertiesText(program, SelectedRowText(main, archived), path, tied, tied_date),
          msg::kInformation);
}

}  // namespace vardolin
