#pragma once
// The compressed setup of the level editor: the user lists its zip files and chooses the
// language, and the install runs with its progress shown here.

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_InstallaTrle : public Form {
 public:
  explicit Dialog_InstallaTrle(Program& program);
  // Fills the language list and chooses its first row.
  void ImpostaValori();
  // The editor could be installed is the one thing the caller needs to know.
  bool QueryUnload() override { return !installing_; }

  bool ExitValue = false;

  ListBox List_FileZip{*this, "List_FileZip"};
  Button Pul_Add{*this, "Pul_Add", [this] { Pul_Add_Click(); }};
  Button Pul_Remove{*this, "Pul_Remove", [this] { Pul_Remove_Click(); }};
  Label Label_Lingua{*this, "Label_Lingua"};
  ComboBox Combo_Lingua{*this, "Combo_Lingua"};
  Button Pul_Install{*this, "Pul_Install", [this] { Pul_Install_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", [this] { Unload(); }};
  // The help viewer comes with a later version.
  Button Pul_Help{*this, "Pul_Help"};
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Timer Timer1{*this, "Timer1"};

 private:
  void Set_Caption_Texts() override;
  void Pul_Add_Click();
  void Pul_Remove_Click();
  void Pul_Install_Click();
  // Adds the file unless a row of the same file name stands; true when added.
  bool AddZip(const std::string& path);
  bool installing_ = false;
};

}  // namespace vardolin
