// The Levels menu entry that sends a level out of the archive as a zip.

#include "intake/export_level.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireExport() {
  mnu_Export.SetHandler([this] { ExportLevel(program(), ChosenLevelCode()); });
}

}  // namespace vardolin
