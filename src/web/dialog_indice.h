#pragma once
// The index of the manual: its main topics ("[...]") and sub-topics ("{...}") as rows, with a
// search in the rows. After the modal show the caller reads ExitValue and the chosen title.

#include <cstdint>
#include <string>
#include <vector>

#include "foundation/forms/form.h"
#include "web/help_text.h"

namespace vardolin {

class Dialog_Indice : public Form {
 public:
  explicit Dialog_Indice(Program& program);
  // Reads the manual and builds both lists.
  void ImpostaValori();

  bool ExitValue = false;
  std::string Chosen;

  ListBox List_Indice{*this, "List_Indice"};
  OptionButton Opt_Main{*this, "Opt_Main", "Frame_Kind", [this] { FillList(); }};
  OptionButton Opt_Sub{*this, "Opt_Sub", "Frame_Kind", [this] { FillList(); }};
  TextBox Text_Find{*this, "Text_Find"};
  Button Pul_Find{*this, "Pul_Find", "Find", [this] { Pul_Find_Click(); }};
  Button Pul_Dopo{*this, "Pul_Dopo", ">", [this] { Pul_Dopo_Click(); }};
  Button Pul_Prima{*this, "Pul_Prima", "<", [this] { Pul_Prima_Click(); }};
  Label Label_Info{*this, "Label_Info"};
  Button Pul_Ok{*this, "Pul_Ok", "Ok", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Unload(); }};

 private:
  void Set_Caption_Texts() override;
  const std::vector<std::string>& Titles() const;
  void FillList();
  void Pul_Find_Click();
  void Pul_Dopo_Click();
  void Pul_Prima_Click();
  void ShowHit();
  void Pul_Ok_Click();

  HelpIndex index_;
  std::vector<std::int64_t> hits_;
  int current_hit_ = -1;
};

}  // namespace vardolin
