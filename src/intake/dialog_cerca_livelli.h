#pragma once
// The zip search: finds the files on the user's disks that can be level packages, by words in
// their paths or inside zip files, by age, or all of them, in one of the folders it remembers
// (Old_Search.bin). A found file can be opened, copied, renamed, deleted or chosen for adding;
// after the modal show the caller reads ExitValue and Chosen.

#include <string>
#include <vector>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_CercaLivelli : public Form {
 public:
  explicit Dialog_CercaLivelli(Program& program);
  void ImpostaValori();
  bool QueryUnload() override;

  bool ExitValue = false;
  std::string Chosen;

  Label Label1{*this, "Label1", "Search in folder:"};
  ComboBox Combo_Folder{*this, "Combo_Folder"};
  Button Pul_Sfoglia{*this, "Pul_Sfoglia", "Browse", [this] { Pul_Sfoglia_Click(); }};
  Label Label2{*this, "Label2", "Show only files with following extensions"};
  ComboBox Combo_TipoFile{*this, "Combo_TipoFile"};
  Button Pul_Search{*this, "Pul_Search", "Search files with names containing ->",
                    [this] { SearchFiles(true, false); }};
  TextBox Text_Search{*this, "Text_Search"};
  CheckBox Check_CercaDentroZip{*this, "Check_CercaDentroZip"};
  Button Pul_CercaLastFiles{*this, "Pul_CercaLastFiles", "Search last downloaded levels ->",
                            [this] { SearchFiles(false, false); }};
  ComboBox Combo_LastFiles{*this, "Combo_LastFiles"};
  Button Pul_SearchAll{*this, "Pul_SearchAll", "Search ALL files",
                       [this] { SearchFiles(false, true); }};
  Frame Frame1{*this, "Frame1", " Found Levels "};
  ListBox List_Trovati{*this, "List_Trovati", false, [this] { ShowSelection(); }};
  Label Label_InfoTrovate{*this, "Label_InfoTrovate"};
  Button Pul_Find{*this, "Pul_Find", "Search in Founds  ->", [this] { FindInList(1, 0); }};
  TextBox Text_Find{*this, "Text_Find"};
  Button Pul_FindDopo{*this, "Pul_FindDopo", ">",
                      [this] { FindInList(1, List_Trovati.ListIndex() + 1); }};
  Button Pul_FindPrima{*this, "Pul_FindPrima", "<",
                       [this] { FindInList(-1, List_Trovati.ListIndex() - 1); }};
  Button Pul_OpenZip{*this, "Pul_OpenZip", "Open", [this] { Pul_OpenZip_Click(); }};
  Button Pul_RenameZip{*this, "Pul_RenameZip", "Rename", [this] { Pul_RenameZip_Click(); }};
  Button Pul_CopyZip{*this, "Pul_CopyZip", "Copy", [this] { Pul_CopyZip_Click(); }};
  Button Pul_DeleteZip{*this, "Pul_DeleteZip", "Delete", [this] { Pul_DeleteZip_Click(); }};
  Button Pul_Ok{*this, "Pul_Ok", "Add this level", [this] { Pul_Ok_Click(); }};
  Button Command1{*this, "Command1", "Cancel", [this] { Command1_Click(); }};
  Button Pul_Help{*this, "Pul_Help", "Help", [this] { Pul_Help_Click(); }};
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};

 private:
  void Set_Caption_Texts() override;
  void Form_Unload() override;
  void FillFolders(int select);
  void Pul_Sfoglia_Click();
  void SearchFiles(bool byName, bool all);
  void SetSearching(bool searching);
  void ShowSelection();
  void FindInList(int step, int start);
  // The chosen file's path, or empty after telling the user text `no_selection`.
  std::string SelectedFile(int no_selection);
  void Pul_OpenZip_Click();
  void Pul_RenameZip_Click();
  void Pul_CopyZip_Click();
  void Pul_DeleteZip_Click();
  void Pul_Ok_Click();
  void Command1_Click();
  void Pul_Help_Click();

  // The words of the last search by name.
  std::vector<std::string> words_;
  bool searching_ = false;
  bool stop_ = false;
};

}  // namespace vardolin
