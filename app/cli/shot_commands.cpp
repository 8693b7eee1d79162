#include "shot_commands.h"

#include <ctime>
#include <ostream>

#include "archive/catalogue_file.h"
#include "archive/catalogue_ops.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "savegames/shot_list.h"

namespace vardolin {
namespace {

std::string IsoDate(ShotTime when) {
  const std::time_t t = std::chrono::system_clock::to_time_t(when);
  std::tm local{};
  localtime_r(&t, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
  return text;
}

}  // namespace

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
    out << i << '\t' << IsoDate(shots[i].date) << '\t' << (ec ? 0 : size) << '\t'
        << shots[i].path.string() << '\n';
  }
  return 0;
}

}  // namespace vardolin
