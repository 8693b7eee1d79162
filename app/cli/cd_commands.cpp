#include "cd_commands.h"

#include <ostream>

#include "cd/burn_engine.h"
#include "foundation/program.h"
#include "foundation/services/strings.h"

namespace vardolin {

int CmdCdReport(Program& program, const std::string& kind, const std::string& image,
                std::ostream& out, std::ostream& err) {
  BurnEngine engine(program);
  if (!engine.BurnCommand(cw_ReportIsoFileList, kind, image)) {
    err << "vardolin-cli: " << engine.ErrorMessage() << " (" << image << ")\n";
    return 1;
  }
  // The engine's reports end their lines as the CD's own system does; a terminal wants LF.
  out << ReplaceAll(engine.ResultText(), "\r\n", "\n");
  return 0;
}

}  // namespace vardolin
