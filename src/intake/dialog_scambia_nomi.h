#pragma once
// The name a new level gets in the editor's language text: the one its own text gave it, or
// one the user types.

#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_ScambiaNomi : public Form {
 public:
  explicit Dialog_ScambiaNomi(Program& program);
  void ImpostaValori(const std::string& NomeOld, const std::string& NomeNew);

  std::string ChosenName;

  Label Label_Old{*this, "Label_Old", "Name in the imported text:"};
  Label Label_OldName{*this, "Label_OldName"};
  Label Label_New{*this, "Label_New", "Name in the editor's text:"};
  TextBox Text_NuovoNome{*this, "Text_NuovoNome"};
  Button Pul_UsaOld{*this, "Pul_UsaOld", "Use Original Name", [this] { Pul_UsaOld_Click(); }};
  Button Pul_Ok{*this, "Pul_Ok", "Ok", [this] { Pul_Ok_Click(); }};
  Button Pul_Help{*this, "Pul_Help", "Help", [this] { Pul_Help_Click(); }};

 private:
  void Set_Caption_Texts() override;
  void Pul_UsaOld_Click();
  void Pul_Ok_Click();
  void Pul_Help_Click();
};

}  // namespace vardolin
