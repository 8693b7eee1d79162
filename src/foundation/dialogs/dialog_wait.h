#pragma once
// A one-line "please wait" window, shown without blocking while something slow runs.

#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_Wait : public Form {
 public:
  explicit Dialog_Wait(Program& program);
  void ImpostaValori(const std::string& text);

  Label Label_Mex{*this, "Label_Mex"};

 private:
  void Set_Caption_Texts() override;
};

}  // namespace vardolin
