#include "shot_commands.h"

#include <ostream>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "savegames/shot_list.h"
#include "savegames/shot_store.h"

namespace vardolin {

int CmdShots(Program& program, std::int32_t code, std::ostream& out, std::ostream& err) {
  const std::string last = Trim(program.prefs.LastArchive);
  if (last.empty() || !LoadCatalogueFile(program, last)) {
    err << "vardolin-cli: no catalogue to read; use new-catalogue or open CATALOGUE\n";
    return 1;
  }
  const int index = FindLevelIndex(program.catalogue, code);
  if (index < 0) {
    err << "vardolin-cli: no level with code " << code << "\n";
    return 1;
  }
  const ShotList shots = ListLevelShots(program, index);
  for (int i = 0; i < shots.Count(); ++i) {
    std::error_code ec;
    const auto size = std::filesystem::file_size(shots[i].path, ec);
    out << i << '\t' << ShotDateText(shots[i].date, "%Y-%m-%d %H:%M:%S") << '\t' << (ec ? 0 : size)
        << '\t' << shots[i].path.string() << '\n';
  }
  return 0;
}

}  // namespace vardolin
