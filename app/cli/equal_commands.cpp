#include "equal_commands.h"

#include <ostream>

#include "catalogue_commands.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"
#include "intake/equal_levels.h"
#include "json_text.h"

namespace vardolin {

int CmdEqual(Program& program, bool json, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err)) return 1;
  const auto& levels = program.catalogue.levels;
  const std::vector<EqualLevelFind> finds = FindAllEqualLevels(program);
  if (json) {
    out << "[";
    const char* comma = "";
    for (const EqualLevelFind& f : finds) {
      out << comma << "\n  {\"code\": " << levels[f.level].Code
          << ", \"name\": " << JsonString(Trim(levels[f.level].Name))
          << ", \"equal_code\": " << levels[f.equal].Code
          << ", \"equal_name\": " << JsonString(Trim(levels[f.equal].Name))
          << ", \"file\": " << JsonString(f.file) << "}";
      comma = ",";
    }
    out << "\n]\n";
    return 0;
  }
  out << "code\tname\tequal_code\tequal_name\tfile\n";
  for (const EqualLevelFind& f : finds)
    out << levels[f.level].Code << '\t' << Trim(levels[f.level].Name) << '\t'
        << levels[f.equal].Code << '\t' << Trim(levels[f.equal].Name) << '\t' << f.file << '\n';
  return 0;
}

}  // namespace vardolin
