#pragma once
// The modeless windows the program keeps up on its own (progress, wait message, splash): one of
// each name at a time, owned here so that any service can show or hide them by name.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Form;

class OpenForms {
 public:
  OpenForms();
  ~OpenForms();
  OpenForms(const OpenForms&) = delete;
  OpenForms& operator=(const OpenForms&) = delete;

  // Takes the form; one standing under the same name is unloaded and dropped first.
  Form& Keep(std::unique_ptr<Form> form);
  Form* Find(std::string_view name) const;
  template <class T>
  T* Find(std::string_view name) const {
    return dynamic_cast<T*>(Find(name));
  }
  // Unloads and drops the form of that name, if any.
  void Close(std::string_view name);
  // Shut-down: every kept form is unloaded and dropped.
  void CloseAll();

 private:
  std::vector<std::unique_ptr<Form>> forms_;
};

}  // namespace vardolin
