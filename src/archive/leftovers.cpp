#include "archive/leftovers.h"

#include "archive/level_files.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/unfinished_work.h"
#include "foundation/text_ids.h"

namespace vardolin {

int ClearLeftovers(Program& program) {
  int cleared = ClearUnfinishedWork(program);
  // The expansion folder lives only as long as the one activation or form that made it.
  const std::filesystem::path temporary = TemporaryFilesFolder(program);
  if (FolderExists(temporary)) {
    FolderTreeWalker walk;
    walk.WalkFolderTree(temporary);
    for (const std::filesystem::path& file : walk.Files()) DeleteFileForced(file);
    for (auto it = walk.Folders().rbegin(); it != walk.Folders().rend(); ++it)
      DeleteFolderTree(*it);
    DeleteFolderTree(temporary);
    WriteLog(program, program.GetText(text::LeftoverRemoved) + temporary.string());
    ++cleared;
  }
  return cleared;
}

}  // namespace vardolin
