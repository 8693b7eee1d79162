#include "startup/base_level.h"

#include <filesystem>

#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/text_ids.h"

#include "archive/level_store.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

bool MakeBaseFolders(Program& program, const fs::path& folder) {
  return CreateLevelFolders(program, folder);
}

}  // namespace

bool EnsureBaseLevel(Program& program) {
  fs::path folder = JoinFragment(program.Home(), program.GetText(text::BaseLevelFolder));
  if (FolderExists(folder)) return true;
  if (!MakeBaseFolders(program, folder)) return false;
  fs::path editor = program.prefs.EditorFolder;
  // Copies replace what stands there; a file the editor lacks is simply not copied.
  CopyFileOver(JoinFragment(editor, program.GetText(text::BaseLevelFile1)),
               JoinFragment(program.Home(), program.GetText(text::BaseLevelPlace1)));
  CopyFileOver(JoinFragment(editor, program.GetText(text::BaseLevelFile2)),
               JoinFragment(program.Home(), program.GetText(text::BaseLevelPlace2)));
  fs::path from = JoinFragment(editor, program.GetText(text::BaseLevelFiles3));
  fs::path to = JoinFragment(program.Home(), program.GetText(text::BaseLevelPlace3));
  for (const fs::path& file : ListFiles(from, "*.*")) CopyFileOver(file, to / file.filename());
  program.BaseLevelBuilt = true;
  return true;
}

}  // namespace vardolin
