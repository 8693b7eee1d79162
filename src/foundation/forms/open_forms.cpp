#include "foundation/forms/open_forms.h"

#include "foundation/forms/form.h"

namespace vardolin {

OpenForms::OpenForms() = default;
OpenForms::~OpenForms() {
  CloseAll();
}

Form& OpenForms::Keep(std::unique_ptr<Form> form) {
  Close(form->Name());
  forms_.push_back(std::move(form));
  return *forms_.back();
}

Form* OpenForms::Find(std::string_view name) const {
  for (const auto& f : forms_)
    if (f->Name() == name) return f.get();
  return nullptr;
}

void OpenForms::Close(std::string_view name) {
  for (auto it = forms_.begin(); it != forms_.end(); ++it) {
    if ((*it)->Name() != name) continue;
    // Out of the list before unloading, so an unload handler that closes forms finds it gone.
    std::unique_ptr<Form> form = std::move(*it);
    forms_.erase(it);
    form->Unload();
    return;
  }
}

void OpenForms::CloseAll() {
  while (!forms_.empty()) {
    std::unique_ptr<Form> form = std::move(forms_.back());
    forms_.pop_back();
    form->Unload();
  }
}

}  // namespace vardolin
