#pragma once
// The two ways back for the editor folder (mnu_SetOriginale): Fast takes the level out, Full
// restores the editor's configuration from its backup.

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_Restore : public Form {
 public:
  explicit Dialog_Restore(Program& program);

  Label Label_Choose{*this, "Label_Choose"};
  Button Pul_Fast{*this, "Pul_Fast", [this] { Pul_Fast_Click(); }};
  Label Label_FastNote{*this, "Label_FastNote"};
  Button Pul_Full{*this, "Pul_Full", [this] { Pul_Full_Click(); }};
  Label Label_FullNote{*this, "Label_FullNote"};
  Button Pul_Cancel{*this, "Pul_Cancel", [this] { Unload(); }};
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};

 private:
  void Set_Caption_Texts() override;
  void Pul_Fast_Click();
  void Pul_Full_Click();
};

}  // namespace vardolin
