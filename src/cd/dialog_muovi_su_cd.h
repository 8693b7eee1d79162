#pragma once
// Dialog_MuoviSuCd: moves the levels of the archive that still lie on hard disk onto level CDs,
// with the program's installer, the level editor and a folder of the user's beside them if
// asked. A level put on a CD gets its CdNumber; a copy of the catalogue rides on the first CD.
//
// Without a CD writer (or when the user picks the image row of Combo_Unita) every planned CD is
// written as an ISO image file into a folder the user chooses, checked, and remembered for its CD
// number; everything else is the same, so the levels get their CdNumber just as well.
//
// After the modal show the caller reads the catalogue's OnCd: set when the moved levels' files
// are to leave the hard disk (RemoveMovedLevels).

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "cd/burn_engine.h"
#include "cd/cd_plan.h"
#include "foundation/catalogue_records.h"
#include "foundation/forms/form.h"

namespace vardolin {

// Combo_Unita's item data of the row that writes image files instead of burning.
inline constexpr std::int64_t kImageFilesRow = -1;
// Combo_Speed: 32 rows of 2, 4 ... 64; the row index + 1 times 2 is the speed.
inline constexpr int kSpeedRows = 32;

class Dialog_MuoviSuCd : public Form {
 public:
  explicit Dialog_MuoviSuCd(Program& program);
  // Before the form is shown: looks for writers, fills the controls, takes the copies that a
  // cancel or a failure goes back to, and measures the levels to move. False when the form
  // can't be used.
  bool PrepareForm();
  // The run itself; true when every CD (or image) was made.
  bool MakeCds();
  // One CD from the engine's list: the image first when `use_iso`, retries at half the speed.
  bool BurnOneCd(bool use_iso, const std::string& letter, int number);

  // Puts the base level into the editor folder, so that the editor goes on the CD clean. Given
  // by the caller (activation lies above the CD work); without it the editor can't go on a CD.
  std::function<bool(Program&)> MakeEditorClean;
  // Set when a run made every CD; the form then unloads.
  bool Made = false;
  // The folder of the images. Empty: asked at the start of an image run.
  std::string ImageFolder;
  // The plans of the last run, and the images it wrote.
  const std::vector<CdPlan>& Plans() const { return plans_; }
  const std::vector<std::string>& ImagesMade() const { return images_; }
  BurnEngine& Engine() { return engine_; }
  bool ImageMode() const;

  Frame Frame_Comandi{*this, "Frame_Comandi", "What goes on the CDs"};
  Label Label_Unita{*this, "Label_Unita", "CD writer"};
  ComboBox Combo_Unita{*this, "Combo_Unita", false, [this] { Combo_Unita_Click(); }};
  Label Label_Lettera{*this, "Label_Lettera", "Drive"};
  ComboBox Combo_Lettera{*this, "Combo_Lettera"};
  Label Label_Mb{*this, "Label_Mb", "Capacity"};
  ComboBox Combo_Mb{*this, "Combo_Mb"};
  Label Label_Speed{*this, "Label_Speed", "Speed"};
  ComboBox Combo_Speed{*this, "Combo_Speed"};
  CheckBox Check_Archivio{*this, "Check_Archivio"};
  CheckBox Check_CreaImage{*this, "Check_CreaImage"};
  CheckBox Check_Vardolin{*this, "Check_Vardolin"};
  CheckBox Check_Trle{*this, "Check_Trle"};
  CheckBox Check_EncloseFolder{*this, "Check_EncloseFolder",
                               [this] { Check_EncloseFolder_Click(); }};
  Label Label_Folder{*this, "Label_Folder"};
  Button Pul_SfogliaFolder{*this, "Pul_SfogliaFolder", "Browse",
                           [this] { Pul_SfogliaFolder_Click(); }};
  Button Pul_Start{*this, "Pul_Start", "Start", [this] { Pul_Start_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};
  Button Pul_Help{*this, "Pul_Help", "Help", [this] { Pul_Help_Click(); }};
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};

  bool QueryUnload() override { return false; }

 private:
  void Set_Caption_Texts() override;
  void Combo_Unita_Click();
  void Check_EncloseFolder_Click();
  void Pul_SfogliaFolder_Click();
  void Pul_Start_Click();
  void Pul_Cancel_Click();
  void Pul_Help_Click();
  void SetRunning(bool running);
  void PutSavedCopyBack();

  // Steps of MakeCds.
  bool ChooseInstaller(const std::filesystem::path& temp, std::vector<std::string>& files);
  bool AddSharedItems(const std::vector<std::string>& installer, const std::filesystem::path& start,
                      const std::filesystem::path& catalogue_copy);
  bool AddFolderToCd(const std::string& folder);
  bool MakeOneCd(bool use_iso, const std::string& letter, int number, const CdPlan* plan);
  bool WriteImage(int number, const CdPlan* plan);
  bool Failed(std::int32_t text_id);
  std::string CapacityText() const;

  BurnEngine engine_;
  Catalogue saved_;
  std::string saved_last_archive_;
  LevelsToMove levels_;
  bool running_ = false;
  std::vector<CdPlan> plans_;
  std::vector<std::string> images_;
};

// The text of the start file of a level CD: which of the editor, the installer and the
// catalogue copy it holds, one line each, CR LF at the ends.
std::string LevelCdStartFile(const Program& program, bool editor, bool installer,
                             const std::string& catalogue_file_name);

}  // namespace vardolin
