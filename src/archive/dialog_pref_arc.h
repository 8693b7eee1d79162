#pragma once
// The archive's properties: what the catalogue holds and where, and how its level files are
// stored. Edits the open catalogue's header; a change of the storage flags asks whether the
// whole store is to be converted, which the caller does after the modal show.

#include "foundation/catalogue_records.h"
#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_PrefArc : public Form {
 public:
  explicit Dialog_PrefArc(Program& program);
  // Takes a copy of the header to put back on Cancel and fills the controls.
  void ImpostaValori(const CatalogueHeader& header);
  // Set when the user changed a storage flag and agreed to convert the store.
  bool ConvertStore = false;
  // The header as it was when the dialog opened.
  const CatalogueHeader& SavedHeader() const { return saved_; }

  Frame Frame1{*this, "Frame1", " Archive references "};
  Label Label1{*this, "Label1", "Levels ="};
  Label Label_Levels{*this, "Label_Levels"};
  Label Label2{*this, "Label2", "Full path"};
  Label Label_FullPath{*this, "Label_FullPath"};
  Label Label3{*this, "Label3", "Tot CD= "};
  Label Label_TotCd{*this, "Label_TotCd"};
  Label Label4{*this, "Label4", "On CD= "};
  Label Label_OnCd{*this, "Label_OnCd"};
  Label Label7{*this, "Label7", "Folder size"};
  Label Label_FolderSize{*this, "Label_FolderSize"};
  Label Label5{*this, "Label5", "Size on CD"};
  Label Label_SizeCd{*this, "Label_SizeCd"};
  Label Label6{*this, "Label6", "Size on HD"};
  Label Label_SizeHd{*this, "Label_SizeHd"};
  Label Label8{*this, "Label8", "Main folder"};
  Label Label_MainDir{*this, "Label_MainDir"};
  Button Pul_SfogliaMainDir{*this, "Pul_SfogliaMainDir", "Browse",
                            [this] { Pul_SfogliaMainDir_Click(); }};
  Label Label9{*this, "Label9", "Secondary folder"};
  Label Label_SecondaryDir{*this, "Label_SecondaryDir"};
  Button Pul_SfogliaSecDir{*this, "Pul_SfogliaSecDir", "Browse",
                           [this] { Pul_SfogliaSecDir_Click(); }};

  Frame Frame2{*this, "Frame2", " Compression settings "};
  CheckBox Check_Compresso{*this, "Check_Compresso", [this] { Check_Compresso_Click(); }};
  CheckBox Check_WavInMp3{*this, "Check_WavInMp3", [this] { Check_WavInMp3_Click(); }};

  Button Pul_Ok{*this, "Pul_Ok", "OK", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};
  Button Pul_Help{*this, "Pul_Help", "Help", [this] { Pul_Help_Click(); }};

 private:
  void Set_Caption_Texts() override;
  bool BrowseArchiveFolder(std::int32_t title, std::int32_t pattern, std::int32_t error,
                           std::string& folder, Label& shown);
  void Pul_SfogliaMainDir_Click();
  void Pul_SfogliaSecDir_Click();
  void Check_Compresso_Click();
  void Check_WavInMp3_Click();
  void Pul_Ok_Click();
  void Pul_Cancel_Click();
  void Pul_Help_Click();

  CatalogueHeader saved_;
  bool filling_ = false;
};

}  // namespace vardolin
