// The Tools menu entries built on the lists of level files.

#include "intake/equal_levels.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireEqualLevels() {
  mnu_ControllaUguali.SetHandler([this] { CheckEqualLevelsInArchive(program()); });
  mnu_CreaInfoTr4.SetHandler([this] { CreateAllLevelFileLists(program()); });
  mnu_CopiaFileInfos.SetHandler([this] { CopyAllInfoFilesFromCd(program()); });
}

}  // namespace vardolin
