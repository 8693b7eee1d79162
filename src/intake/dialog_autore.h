#pragma once
// Who made a level and how to reach them: the author's name, e-mail addresses, web sites and a
// note, kept in the level's record. The address and site lists are edited as rows and stored
// joined by NUL; nothing that doesn't fit its field is cut, it is refused by name.

#include <cstdint>
#include <string>

#include "foundation/forms/form.h"
#include "intake/text_ids.h"

namespace vardolin {

class Dialog_Autore : public Form {
 public:
  explicit Dialog_Autore(Program& program);
  // Fills the controls from the level with `code`; false when the catalogue has no such level.
  bool ImpostaValori(std::int32_t code);

  bool ExitValue = false;

  Frame Frame1{*this, "Frame1", " Author (game designer)  "};
  TextBox Text_NomeAutore{*this, "Text_NomeAutore", [this] { KeepWithinField(Text_NomeAutore); }};
  Frame Frame2{*this, "Frame2", " Note of author "};
  TextBox Text_Note{*this, "Text_Note", [this] { KeepWithinField(Text_Note); }};
  Frame Frame3{*this, "Frame3", " Web site/s "};
  ComboBox Combo_Sito{*this, "Combo_Sito"};
  Button Pul_ModSito{*this, "Pul_ModSito", "Change",
                     [this] { EditComboRow(Combo_Sito, text::AutoreChangeSiteTitle, true); }};
  Button Pul_DelSito{*this, "Pul_DelSito", "Delete", [this] { DeleteComboRow(Combo_Sito); }};
  Button Pul_New_Sito{*this, "Pul_New_Sito", "",
                      [this] { EditComboRow(Combo_Sito, text::AutoreNewSiteTitle, false); }};
  Button Pul_GoSito{*this, "Pul_GoSito", "Visit this site", [this] { Pul_GoSito_Click(); }};
  Frame Frame4{*this, "Frame4", "Email address "};
  ComboBox Combo_Email{*this, "Combo_Email"};
  Button Pul_SendMail{*this, "Pul_SendMail", "Write an email to ",
                      [this] { Pul_SendMail_Click(); }};
  Button Pul_NewEmail{*this, "Pul_NewEmail", "",
                      [this] { EditComboRow(Combo_Email, text::AutoreNewEmailTitle, false); }};
  Button Pul_DelEmail{*this, "Pul_DelEmail", "Delete", [this] { DeleteComboRow(Combo_Email); }};
  Button Pul_ChangeEmail{*this, "Pul_ChangeEmail", "Change",
                         [this] { EditComboRow(Combo_Email, text::AutoreChangeEmailTitle, true); }};
  Button Pul_Ok{*this, "Pul_Ok", "", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Close(false); }};

  // Asks for a value and adds a row, or with `change` replaces the selected one.
  void EditComboRow(ComboBox& combo, std::int32_t title, bool change);
  void DeleteComboRow(ComboBox& combo);

 private:
  void Set_Caption_Texts() override;
  // A box takes no more than its field holds: what is typed beyond it is refused at once.
  void KeepWithinField(TextBox& box);
  void Pul_SendMail_Click();
  void Pul_GoSito_Click();
  void Pul_Ok_Click();
  void Close(bool confirmed);

  int index_ = -1;
};

// The rows of a list joined by NUL, with nothing at either end; split again by SplitAuthorList.
std::string JoinAuthorList(const ComboBox& combo);
void SplitAuthorList(const std::string& joined, ComboBox& combo);

}  // namespace vardolin
