#include "all_forms.h"

#include "foundation/settings/dialog_settings.h"
#include "web/dialog_zip.h"

namespace vardolin {
namespace {

template <class F>
FormFactory Entry(const char* name) {
  return {name, [](Program& p) -> std::unique_ptr<Form> { return std::make_unique<F>(p); }};
}

}  // namespace

const std::vector<FormFactory>& AllForms() {
  static const std::vector<FormFactory> forms = {
      // One line per form: Entry<Dialog_Name>("Dialog_Name"),
      Entry<Dialog_Settings>("Dialog_Settings"),
      Entry<web::Dialog_Zip>("Dialog_Zip"),
  };
  return forms;
}

}  // namespace vardolin
