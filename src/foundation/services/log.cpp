#include "foundation/services/log.h"

#include <fstream>

#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"

namespace vardolin {

std::filesystem::path LogPath(const Program& program) {
  return program.Home() / kLogFileName;
}

void WriteLog(Program& program, const std::string& text, bool show) {
  if (show) AskUser(program, text, msg::kError);
  std::ofstream out(LogPath(program), std::ios::binary | std::ios::app);
  out << text << "\n";
}

void ResetLog(Program& program) {
  DeleteFileForced(LogPath(program));
}

}  // namespace vardolin
