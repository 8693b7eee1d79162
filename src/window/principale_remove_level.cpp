#include "window/principale_remove_level.h"

#include <string>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"
#include "play/activation.h"
#include "play/active_level.h"
#include "window/principale.h"
#include "window/principale_levels.h"

namespace vardolin {

void RemoveChosenLevel(Principale& main) {
  Program& program = main.program();
  Catalogue& catalogue = program.catalogue;
  const std::optional<std::int32_t> chosen = main.ChosenLevelCode();
  if (!chosen) {
    AskUser(program, program.GetText(text::RemoveNoSelection), msg::kError);
    return;
  }
  const std::int32_t code = *chosen;
  const int index = FindLevelIndex(catalogue, code);
  if (index < 0) {
    AskUser(program, program.GetText(text::LevelCodeNotFound) + std::to_string(code), msg::kError);
    return;
  }
  if (CheckLevelNotOnCd(program, index)) return;
  if (code == 0) {
    AskUser(program, program.GetText(text::RemoveBaseLevel, {"\r\n"}), msg::kError);
    return;
  }
  const std::string name = Trim(catalogue.levels[index].Name);
  if (AskUser(program, program.GetText(text::RemoveLevelQuestion) + " \"" + name + "\" ?",
              msg::kYesNo) != msg::kYes)
    return;
  // The level leaves the editor folder before its record goes, so that the marker never names a
  // level the archive has lost; no level is coming, so the folder is cleaned.
  if (code == GetActiveLevelCode(program) && RemoveCurrentLevel(program, -1) == kEditorFolderInUse)
    return;
  const std::filesystem::path folder = GetLevelFolder(program, code, false);
  const double files_size = catalogue.levels[index].FilesSize;
  const double user_size = catalogue.levels[index].UserSize;
  catalogue.levels[index] = catalogue.levels.back();
  catalogue.levels.pop_back();
  catalogue.header.LevelCount = static_cast<std::int32_t>(catalogue.levels.size());
  CatalogueChanged(program);
  RefreshLevelList(main);

  if (AskUser(program,
              program.GetText(text::RemoveLevelFilesQuestion) + " \"" + name + "\" (" +
                  folder.string() + ")",
              msg::kYesNo) != msg::kYes)
    return;
  ShowWaitMessage(program, program.GetText(text::RemoveLevelFilesWait));
  if (!DeleteLevelTree(program, folder, &main.Label_Info, &main.ProgressBar1))
    AskUser(program, program.GetText(text::RemoveLevelFilesFailed) + folder.string(), msg::kError);
  HideWaitMessage(program);
  AskUser(program, program.GetText(text::RemoveLevelDone), msg::kInformation);
  catalogue.header.TotalFilesSize -= files_size;
  catalogue.header.TotalUserSize -= user_size;
  CatalogueChanged(program);
  RefreshLevelList(main);
}

}  // namespace vardolin
