#include "web/zip_dialog.h"

#include <memory>

#include "foundation/forms/open_forms.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "web/dialog_zip.h"

namespace vardolin::web {

Dialog_Zip& ShowZipDialog(Program& program, const std::string& message) {
  auto& dialog =
      static_cast<Dialog_Zip&>(program.open_forms.Keep(std::make_unique<Dialog_Zip>(program)));
  dialog.ShowWith(message);
  return dialog;
}

void HideZipDialog(Program& program) {
  program.open_forms.Close("Dialog_Zip");
}

Dialog_Zip* ZipDialog(Program& program) {
  return program.open_forms.Find<Dialog_Zip>("Dialog_Zip");
}

}  // namespace vardolin::web
