#pragma once
// Helps a level whose sources (.tom) have no wad set of their own name: the user links a wad set
// of the editor or of the level to each source, or lets the readme tell which one it is.

#include <filesystem>
#include <string>
#include <vector>

#include "foundation/forms/form.h"

namespace vardolin {

// The readme analysis: for each source without a wad set, the wad set whose name stands near
// the source's name in the text, as "name." (see the rule in the .cpp). An empty answer for a
// source the text doesn't help with. `wad_sets` are base names.
std::vector<std::string> MatchWadSetsInText(const std::string& text,
                                            const std::vector<std::string>& sources,
                                            const std::vector<std::string>& wad_sets);

class Dialog_Assistant : public Form {
 public:
  explicit Dialog_Assistant(Program& program);

  void ImpostaValori(const std::filesystem::path& DirFileLivello);
  // True when it ended with every source's wad set there.
  bool ReportedDone = false;
  // Set when it closed before being shown: no source lacks its wad set.
  bool Closed = false;

  ListBox List_Readme{*this, "List_Readme"};
  Button Pul_ReadFile{*this, "Pul_ReadFile", "Read file ->", [this] { Pul_ReadFile_Click(); }};
  Button Pul_AutoAnalisi{*this, "Pul_AutoAnalisi", "Automatic analyse",
                         [this] { Pul_AutoAnalisi_Click(); }};
  Label Label1{*this, "Label1", "Convert this TOM file ->"};
  ComboBox Combo_Sorgenti{*this, "Combo_Sorgenti"};
  Label Label2{*this, "Label2", "Using these source files ->"};
  ComboBox Combo_WadsStandard{*this, "Combo_WadsStandard"};
  CheckBox Check_Essenziali{*this, "Check_Essenziali", [this] { FillLists(); }};
  Button Pul_Perform{*this, "Pul_Perform", "Perform now", [this] { Pul_Perform_Click(); }};
  Button Pul_Fatto{*this, "Pul_Fatto", "Done", [this] { Pul_Fatto_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};
  Button Pul_Help{*this, "Pul_Help", "Help", [this] { Pul_Help_Click(); }};

  // The close box is Cancel.
  bool QueryUnload() override;

 private:
  void Set_Caption_Texts() override;
  void FillLists();
  void Pul_ReadFile_Click();
  void Pul_AutoAnalisi_Click();
  void Pul_Perform_Click();
  void Pul_Fatto_Click();
  void Pul_Cancel_Click();
  void Pul_Help_Click();
  bool MayClose();

  std::filesystem::path folder_;
  std::vector<std::filesystem::path> documents_;
  bool changed_ = false;
  bool analysed_ = false;
  bool closing_ = false;
};

}  // namespace vardolin
