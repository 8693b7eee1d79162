#include "intake/add_level.h"

#include <filesystem>
#include <optional>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "archive/level_store.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/shared_dialogs.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/unfinished_work.h"
#include "intake/dialog_new_level.h"
#include "intake/store_level.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

std::optional<std::int32_t> AddLevel(Program& program, const std::string& packagePath,
                                     const std::function<void(Dialog_NewLevel&)>& act) {
  if (Trim(program.prefs.LastArchive).empty()) {
    AskUser(program, program.GetText(text::NoArchiveOpen), msg::kError);
    return std::nullopt;
  }
  Catalogue& c = program.catalogue;
  program.PendingLevel = LevelRecord{};
  program.PendingLevel.Code = NextLevelCode(c);
  const std::int32_t code = program.PendingLevel.Code;

  const fs::path folder = GetLevelFolder(program, code, false);
  Label* info = program.main.info;
  ProgressBar* bar = program.main.bar;
  if (!folder.empty() && FolderExists(folder)) DeleteLevelTree(program, folder, info, bar);
  ClearMainProgress(program);
  // Until the level enters the table its folder is the add's own: a kill leaves it to the next
  // run's clean-up.
  std::optional<UnfinishedWork> unfinished;
  if (!folder.empty()) unfinished.emplace(program, LeftoverKind::kDelete, folder);
  if (folder.empty() || !CreateLevelFolders(program, folder)) {
    AskUser(program,
            program.GetText(text::CannotMakeLevelFolders) + Trim(c.header.SecondaryDir) + "]",
            msg::kError);
    return std::nullopt;
  }
  DeleteMatchingFiles(JoinFragment(folder, program.GetText(text::NewLevelEmptiedFolder)), "*");

  Dialog_NewLevel form(program);
  form.Load();
  form.ImpostaValori(static_cast<std::int32_t>(c.levels.size()), packagePath);
  // A package that asked for something the user refused closed the form already.
  if (!form.Failed && form.IsLoaded()) {
    if (act)
      act(form);
    else
      program.ui().ShowModal(form);
  }
  if (form.IsLoaded()) form.Unload();

  if (!form.ExitValue) {
    ShowWaitMessage(program, program.GetText(text::RemovingLevelFolders));
    if (!DeleteLevelFolders(program, code, info, bar))
      AskUser(program, program.GetText(text::CannotDeleteLevelFolder) + folder.string(),
              msg::kError);
    HideWaitMessage(program);
    ClearMainProgress(program);
    program.notify.LevelListChanged();
    return std::nullopt;
  }
  LevelRecord added = program.PendingLevel;
  const double files = added.FilesSize, user = added.UserSize;
  added.FilesSize = added.UserSize = 0;
  c.levels.push_back(added);
  unfinished.reset();
  const int index = static_cast<int>(c.levels.size()) - 1;
  AddSizeToCatalogue(c, files, index, SizeKind::Files);
  AddSizeToCatalogue(c, user, index, SizeKind::User);
  c.header.LevelCount = static_cast<std::int32_t>(c.levels.size());
  CatalogueChanged(program);
  program.notify.LevelListChanged();
  return code;
}

bool EditLevelProperties(Program& program, std::int32_t index,
                         const std::function<void(Dialog_NewLevel&)>& act) {
  if (index < 0 || static_cast<std::size_t>(index) >= program.catalogue.levels.size()) return false;
  Dialog_NewLevel form(program);
  form.Load();
  form.ImpostaValori(index);
  if (!form.Failed && form.IsLoaded()) act ? act(form) : program.ui().ShowModal(form);
  if (form.IsLoaded()) form.Unload();
  CatalogueChanged(program);
  program.notify.LevelListChanged();
  return !form.Failed;
}

}  // namespace vardolin
