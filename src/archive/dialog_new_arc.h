#pragma once
// Asked at start when no catalogue is known: make a new archive or load an existing one.

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_NewArc : public Form {
 public:
  explicit Dialog_NewArc(Program& program);
  // Set by Pul_New; clear when the dialog closed through Pul_Load or otherwise.
  bool CreateNew = false;

  Label Label_Mex{*this, "Label_Mex",
                  "Vardolin doesn't know an archive of levels yet. You can create a new, empty "
                  "archive or load an archive file that you already have."};
  Button Pul_New{*this, "Pul_New", "Create new archive", [this] { Pul_New_Click(); }};
  Button Pul_Load{*this, "Pul_Load", "Load archive", [this] { Pul_Load_Click(); }};

 private:
  void Set_Caption_Texts() override;
  void Pul_New_Click();
  void Pul_Load_Click();
};

}  // namespace vardolin
