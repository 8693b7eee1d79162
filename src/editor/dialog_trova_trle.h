#pragma once
// Asks where the level editor's folder is, at start when no valid one is known. It can't be
// closed by its close box: the user leaves it by accepting a folder or saying there is none.

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_TrovaTrle : public Form {
 public:
  explicit Dialog_TrovaTrle(Program& program);
  // True when the known editor folder is valid and the dialog needn't be shown. Otherwise the
  // folder the registry names, if any, is proposed and the answer is false.
  bool ImpostaValori();
  bool QueryUnload() override { return false; }

  // True when the user accepted a valid folder; read after the modal show.
  bool ExitValue = false;

  Label Label_Path{*this, "Label_Path"};
  Button Pul_Sfoglia{*this, "Pul_Sfoglia", [this] { Pul_Sfoglia_Click(); }};
  Button Pul_Ok{*this, "Pul_Ok", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", [this] { Pul_Cancel_Click(); }};
  Button Pul_InstallCompresso{*this, "Pul_InstallCompresso",
                              [this] { Pul_InstallCompresso_Click(); }};
  Button Pul_InstallTrleCD{*this, "Pul_InstallTrleCD", [this] { Pul_InstallTrleCD_Click(); }};
  // The help viewer comes with a later version.
  Button Pul_Help{*this, "Pul_Help"};
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};

 private:
  void Set_Caption_Texts() override;
  void Pul_Sfoglia_Click();
  void Pul_Ok_Click();
  void Pul_Cancel_Click();
  void Pul_InstallTrleCD_Click();
  void Pul_InstallCompresso_Click();
};

}  // namespace vardolin
