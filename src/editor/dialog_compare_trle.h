#pragma once
// Which files of an editor folder differ from a trusted copy of it: a report of one row per file,
// by size and date. The level intake uses the same comparison, without showing the form, to find
// what a setup program wrote into the editor folder.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "foundation/forms/form.h"

namespace vardolin {

// One file as the comparison sees it: its name below the folder compared ("\data\TITLE.TR4":
// the folders in lower case, the file's name in upper case, so that spellings that differ only
// in case meet), and where it stands.
struct ComparedFile {
  std::string name;
  std::filesystem::path path;
};

// The report's tags, 11 characters each.
inline constexpr const char* kTagOk = " [OK]      ";
inline constexpr const char* kTagChanged = " [CHANGED] ";
inline constexpr const char* kTagMissing = " [MISSING] ";
inline constexpr const char* kTagNew = " [NEW   ]  ";

class Dialog_CompareTrle : public Form {
 public:
  explicit Dialog_CompareTrle(Program& program);
  // The editor folder against the backup of its files; the full comparison when that backup is
  // a whole copy.
  void ImpostaValori();
  // The files of the folder as the chosen kind of comparison sees it, in the folder's order.
  std::vector<ComparedFile> CatturaFile(const std::string& BaseDir);
  void CompareFolders();
  // Compares `target` with the source and gives the names of its changed and new files.
  std::vector<std::string> ListChangedFiles(const std::string& target, bool full);
  // Puts the report on the clipboard, or without `TestAppunti` prints it.
  void StampaProspetto(bool TestAppunti);

  std::int32_t CountOk = 0;
  std::int32_t CountChanged = 0;
  std::int32_t CountMissing = 0;
  std::int32_t CountNew = 0;

  Frame Frame3{*this, "Frame3"};
  Label Label_Sorg{*this, "Label_Sorg"};
  Button Pul_SfogliaSorg{*this, "Pul_SfogliaSorg", [this] { Pul_SfogliaSorg_Click(); }};
  Frame Frame1{*this, "Frame1"};
  Label Label_DirDest{*this, "Label_DirDest"};
  Button Pul_SfogliaDest{*this, "Pul_SfogliaDest", [this] { Pul_SfogliaDest_Click(); }};
  Frame Frame2{*this, "Frame2"};
  OptionButton Opt_Compact{*this, "Opt_Compact", "Frame2"};
  OptionButton Opt_Full{*this, "Opt_Full", "Frame2"};
  CheckBox Check_NotOk{*this, "Check_NotOk"};
  Button Pul_Compare{*this, "Pul_Compare", [this] { CompareFolders(); }};
  ListBox List_Prospetto{*this, "List_Prospetto"};
  Button Pul_Print{*this, "Pul_Print", [this] { StampaProspetto(false); }};
  Button Pul_Copy{*this, "Pul_Copy", [this] { StampaProspetto(true); }};
  Button Pul_Close{*this, "Pul_Close", [this] { Unload(); }};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};

 private:
  void Set_Caption_Texts() override;
  void Pul_SfogliaSorg_Click();
  void Pul_SfogliaDest_Click();
  // Asks for a folder that must hold the sub-folder of `needed`; empty when cancelled or refused.
  std::string ChooseFolder(std::int32_t title, std::int32_t needed, std::int32_t refused);
};

}  // namespace vardolin
