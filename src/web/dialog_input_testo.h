#pragma once
// A small editor for a longer text than an input box takes, such as a savegame's note.
// ExitValue tells whether the user confirmed with Pul_Ok; Testo() is then the edited text.

#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_InputTesto : public Form {
 public:
  explicit Dialog_InputTesto(Program& program);
  void ImpostaValori(const std::string& TitoloFinestra, const std::string& TestoIniziale);
  const std::string& Testo() const { return Text1.Text(); }

  bool ExitValue = false;

  TextBox Text1{*this, "Text1"};
  Button Pul_Svuota{*this, "Pul_Svuota", "Clear", [this] { Text1.SetText({}); }};
  Button Pul_Annulla{*this, "Pul_Annulla", "Cancel", [this] { Close(false); }};
  Button Pul_Ok{*this, "Pul_Ok", "Ok", [this] { Close(true); }};

 private:
  void Set_Caption_Texts() override;
  void Form_KeyDown(int key_code, int shift) override;
  void Close(bool confirmed);

  std::string title_;
};

}  // namespace vardolin
