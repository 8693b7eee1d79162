#pragma once
// The picture shown while the program starts. Any click or key closes it at once; start-up goes
// on behind it either way.

#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_Splash : public Form {
 public:
  explicit Dialog_Splash(Program& program);
  void ImpostaValori(const std::string& picture);

  Image Image_Splash{*this, "Image_Splash", [this] { Unload(); }};
  Label Label_Version{*this, "Label_Version"};

 private:
  void Set_Caption_Texts() override;
  void Form_KeyDown(int key_code, int shift) override { Unload(); }
  void Form_Click() override { Unload(); }
};

// "1.04": major 1, minor 4 in two digits.
std::string VersionText();

}  // namespace vardolin
