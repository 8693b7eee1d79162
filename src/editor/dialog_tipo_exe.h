#pragma once
// Asks where a level's setup program copied its files, when that couldn't be told beforehand.
// The caller reads ExitValue, Folder and Mask after the modal show.

#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_TipoExe : public Form {
 public:
  explicit Dialog_TipoExe(Program& program);
  void ImpostaValori();
  // The close box gives no answer.
  bool QueryUnload() override {
    ExitValue = false;
    return true;
  }

  bool ExitValue = false;
  std::string Folder;
  // Which kind of destination the user named (text 904 the editor folder, 903 another one).
  std::string Mask;

  Label Label_Warning{*this, "Label_Warning"};
  Button Pul_Trle{*this, "Pul_Trle", [this] { Pul_Trle_Click(); }};
  Button Pul_Sfoglia{*this, "Pul_Sfoglia", [this] { Pul_Sfoglia_Click(); }};
  // The help viewer comes with a later version.
  Button Pul_Help{*this, "Pul_Help"};

 private:
  void Set_Caption_Texts() override;
  void Pul_Trle_Click();
  void Pul_Sfoglia_Click();
};

}  // namespace vardolin
