#include "shot_commands.h"

#include <ostream>

#include "archive/catalogue_ops.h"
#include "catalogue_commands.h"
#include "foundation/program.h"
#include "foundation/services/paths.h"
#include "json_text.h"
#include "savegames/shot_list.h"
#include "savegames/shot_store.h"

namespace vardolin {

int CmdShots(Program& program, std::int32_t code, bool json, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err) || !LevelKnown(program, code, err)) return 1;
  const ShotList shots = ListLevelShots(program, FindLevelIndex(program.catalogue, code));
  if (json) out << "[";
  for (int i = 0; i < shots.Count(); ++i) {
    std::error_code ec;
    const auto size = std::filesystem::file_size(shots[i].path, ec);
    if (json)
      out << (i ? "," : "") << "\n  {\"index\": " << i
          << ", \"date\": " << JsonString(ShotDateText(shots[i].date, "%Y-%m-%dT%H:%M:%S"))
          << ", \"size\": " << (ec ? 0 : size)
          << ", \"path\": " << JsonString(shots[i].path.string()) << "}";
    else
      out << i << '\t' << ShotDateText(shots[i].date, "%Y-%m-%d %H:%M:%S") << '\t'
          << FormatFileSize(static_cast<double>(ec ? 0 : size)) << '\t' << shots[i].path.string()
          << '\n';
  }
  if (json) out << "\n]\n";
  return 0;
}

}  // namespace vardolin
