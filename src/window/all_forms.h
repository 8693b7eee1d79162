#pragma once
// Every form of the program, by name, so that front ends and tests can make any of them.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "foundation/forms/form.h"

namespace vardolin {

struct FormFactory {
  std::string name;
  std::function<std::unique_ptr<Form>(Program&)> make;
};

const std::vector<FormFactory>& AllForms();

}  // namespace vardolin
