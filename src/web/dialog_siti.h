#pragma once
// The window of the URL list: web addresses by category, to open, copy, add, change and remove,
// and the update of the whole list from the program's web addresses.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "foundation/forms/form.h"
#include "web/url_list.h"

namespace vardolin {

class Dialog_Siti : public Form {
 public:
  explicit Dialog_Siti(Program& program);

  // Reads the list and shows the category `TipoUrl`; with `TestAggiorna` the update runs at once.
  void ImpostaValori(std::int32_t TipoUrl, bool TestAggiorna);
  // Whether an entry at `url` may stand beside the others of the shown category: an equal
  // address or an equal host asks the user. `own_index` is the entry being changed, or -1.
  bool CheckUrlCollision(const std::string& url, int own_index);
  // The close box is Cancel.
  bool QueryUnload() override;

  // Writes List to the program's folder; a file that couldn't be read at opening is replaced
  // only when the user agrees. False, after saying why, when nothing was written.
  bool SaveList();

  bool ExitValue = false;
  UrlList List;
  bool Changed = false;
  // The copy of a list file that stood but couldn't be read; empty when the file was good.
  std::filesystem::path SetAside;

  ComboBox Combo_TipoUrl{*this, "Combo_TipoUrl", false, [this] { ShowList(); }};
  ListBox List_Url{*this, "List_Url", false, [this] { List_Url_Click(); }};
  Label Label_Url{*this, "Label_Url"};
  TextBox Text_Note{*this, "Text_Note"};
  Label Label_TotUrl{*this, "Label_TotUrl"};
  Label Label_Update{*this, "Label_Update"};
  Label Label1{*this, "Label1", "Kind of sites:"};
  Label Label2{*this, "Label2", "Archived urls:"};
  Label Label3{*this, "Label3", "Last update :"};
  Button Pul_Go{*this, "Pul_Go", "Go", [this] { Pul_Go_Click(); }};
  Button Pul_Copy{*this, "Pul_Copy", "Copy", [this] { Pul_Copy_Click(); }};
  Button Pul_Add{*this, "Pul_Add", "Add", [this] { Pul_Add_Click(); }};
  Button Pul_Change{*this, "Pul_Change", "Change", [this] { Pul_Change_Click(); }};
  Button Pul_Remove{*this, "Pul_Remove", "Remove", [this] { Pul_Remove_Click(); }};
  Button Pul_Aggiorna{*this, "Pul_Aggiorna", "Update", [this] { Pul_Aggiorna_Click(); }};
  Button Pul_Ok{*this, "Pul_Ok", "OK", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};

 protected:
  void Set_Caption_Texts() override;

 private:
  void ShowList();
  void SelectEntry(int index);
  std::int32_t SelectedType() const;
  // The index in List of the selected row, or -1.
  int SelectedEntry() const;
  void List_Url_Click();
  void Pul_Go_Click();
  void Pul_Copy_Click();
  void Pul_Add_Click();
  void Pul_Change_Click();
  void Pul_Remove_Click();
  void Pul_Aggiorna_Click();
  void Pul_Ok_Click();
  void Pul_Cancel_Click();
  bool closing_ = false;
};

// Shows the list on a category, and with `update` runs the update first; true when the user
// left with OK.
bool ShowUrlListWindow(Program& program, std::int32_t kind, bool update);

}  // namespace vardolin
