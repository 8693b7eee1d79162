// The main window's two entries that open the list of web addresses.

#include "web/dialog_siti.h"
#include "window/principale.h"

namespace vardolin {

void Principale::WireUrlList() {
  mnu_ShowListaUrl.SetHandler([this] { ShowUrlListWindow(program(), url_type::kLevels, false); });
  // Under the Level-Editor menu: where the editor, its wads and patches come from.
  mnu_ShowUrlList.SetHandler([this] { ShowUrlListWindow(program(), url_type::kEditor, false); });
}

}  // namespace vardolin
