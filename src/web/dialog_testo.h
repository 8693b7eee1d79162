#pragma once
// The help viewer: the manual in a read-only box, a search in it, and the index of its titles.
// ShowHelp opens it on the first place that holds a topic mark or title.

#include <cstddef>
#include <filesystem>
#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_Testo : public Form {
 public:
  explicit Dialog_Testo(Program& program);
  // Loads the text and the string to look for once the window stands on screen.
  void ImpostaValori(const std::string& Testo, const std::string& MexSeleziona);
  // 1-based position of the last hit, as the searches step from it.
  std::size_t LastFound = 1;

  TextBox Text_File{*this, "Text_File"};
  Frame Frame1{*this, "Frame1", "Cerca"};
  TextBox Text_Trova{*this, "Text_Trova"};
  Button Pul_Trova{*this, "Pul_Trova", "Find", [this] { Pul_Trova_Click(); }};
  Button Pul_Dopo{*this, "Pul_Dopo", ">", [this] { Pul_Dopo_Click(); }};
  Button Pul_Prima{*this, "Pul_Prima", "<", [this] { Pul_Prima_Click(); }};
  Button Pul_Index{*this, "Pul_Index", "Index", [this] { Pul_Index_Click(); }};
  Button Pul_Ok{*this, "Pul_Ok", "Close", [this] { Unload(); }};
  Timer Timer1{*this, "Timer1", [this] { Timer1_Tick(); }, 100};

 private:
  void Set_Caption_Texts() override;
  void Pul_Trova_Click();
  void Pul_Dopo_Click();
  void Pul_Prima_Click();
  void Pul_Index_Click();
  void Timer1_Tick();
  void Text_File_DblClick();
  void Select(std::size_t start, std::size_t length);

  // The text lowered once, for the searches.
  std::string lowered_;
};

// Opens the viewer on the manual at the first place that holds `Topic` (a topic mark or a
// title in brackets); at the top when the manual doesn't hold it. A missing
// manual is told by text 1399 and its path.
void ShowHelp(Program& program, const std::string& Topic);
// Where the manual lies: in the program's folder.
std::filesystem::path HelpFilePath(const Program& program);

}  // namespace vardolin
