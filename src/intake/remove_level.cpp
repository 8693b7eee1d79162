#include "intake/remove_level.h"

#include <filesystem>
#include <string>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "play/activation.h"
#include "play/active_level.h"
#include "play/editor_restore.h"

namespace vardolin {

bool RemoveLevel(Program& program, std::optional<std::int32_t> chosen, Label* label,
                 ProgressBar* bar, std::optional<bool> delete_files) {
  Catalogue& catalogue = program.catalogue;
  if (!chosen) {
    AskUser(program, program.GetText(text::RemoveNoSelection), msg::kError);
    return false;
  }
  const std::int32_t code = *chosen;
  const int index = FindLevelIndex(catalogue, code);
  if (index < 0) {
    AskUser(program, program.GetText(text::LevelCodeNotFound) + std::to_string(code), msg::kError);
    return false;
  }
  if (CheckLevelNotOnCd(program, index)) return false;
  if (code == 0) {
    AskUser(program, program.GetText(text::RemoveBaseLevel, {"\r\n"}), msg::kError);
    return false;
  }
  const std::string name = Trim(catalogue.levels[index].Name);
  if (!delete_files &&
      AskUser(program, program.GetText(text::RemoveLevelQuestion) + " \"" + name + "\" ?",
              msg::kYesNo) != msg::kYes)
    return false;
  // The level leaves the editor folder before its record goes, so that the marker never names a
  // level the archive has lost; no level is coming, so the folder is cleaned.
  if (code == GetActiveLevelCode(program)) {
    if (RemoveCurrentLevel(program, -1) == kEditorFolderInUse) return false;
    // A file of the level that wouldn't go (the user was told) keeps the marker naming it: the
    // record stays, so that a later activation can still take the rest out.
    if (GetActiveLevelCode(program) == code) return false;
    // What the level may have left beyond its own list (an installer's files) goes too.
    RestoreEditorConfiguration(program, label, bar, false);
  }
  const std::filesystem::path folder = GetLevelFolder(program, code, false);
  const double files_size = catalogue.levels[index].FilesSize;
  const double user_size = catalogue.levels[index].UserSize;
  catalogue.levels[index] = catalogue.levels.back();
  catalogue.levels.pop_back();
  catalogue.header.LevelCount = static_cast<std::int32_t>(catalogue.levels.size());
  CatalogueChanged(program);
  program.notify.LevelListChanged();

  if (delete_files ? !*delete_files
                   : AskUser(program,
                             program.GetText(text::RemoveLevelFilesQuestion) + " \"" +
                                 folder.string() + "\"",
                             msg::kYesNo) != msg::kYes)
    return true;
  ShowWaitMessage(program, program.GetText(text::RemoveLevelFilesWait));
  if (!DeleteLevelTree(program, folder, label, bar))
    AskUser(program, program.GetText(text::RemoveLevelFilesFailed) + folder.string(), msg::kError);
  HideWaitMessage(program);
  AskUser(program, program.GetText(text::RemoveLevelDone), msg::kOkOnly);
  catalogue.header.TotalFilesSize -= files_size;
  catalogue.header.TotalUserSize -= user_size;
  CatalogueChanged(program);
  program.notify.LevelListChanged();
  return true;
}

}  // namespace vardolin
