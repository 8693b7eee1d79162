#pragma once
// Dialog_InsertCd: asks for the CD that holds a level (or, given a CD number, for any CD of the
// archive). The CD may be a disc in one of the optical drives or an ISO image file of it; the
// image chosen for a CD is remembered, so the next request finds it without asking.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "cd/cd_drives.h"
#include "foundation/forms/form.h"

namespace vardolin {

// Where the CD was found: a disc mounted at `mount_point`, or the image file `image`, whose
// level folder is `folder_in_image`.
struct CdSource {
  std::string mount_point;
  std::filesystem::path image;
  std::string folder_in_image;
};

class Dialog_InsertCd : public Form {
 public:
  explicit Dialog_InsertCd(Program& program);
  // For the level at `index` of the table; `number` -1 asks for the level's own CD and looks
  // for the level on it, another number asks for that CD of the archive. False when the level
  // can't be asked for. With CdFound set afterwards the CD is there and the form need not show.
  bool ImpostaValori(int index, std::int32_t number);

  bool CdFound = false;
  CdSource Found;

  Label Label_Mex{*this, "Label_Mex", "Please, insert CD # 4"};
  Label Label1{*this, "Label1", "in drive :"};
  ComboBox Combo_Unita{*this, "Combo_Unita"};
  Button Pul_Ok{*this, "Pul_Ok", "Ok", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};
  Button Pul_Image{*this, "Pul_Image", "An image file...", [this] { Pul_Image_Click(); }};

 private:
  void Set_Caption_Texts() override;
  void Pul_Ok_Click();
  void Pul_Cancel_Click();
  void Pul_Image_Click();
  // MainDir takes the drive: the mount point followed by the archive's name.
  void PutDriveInMainDir(const std::string& mount_point);
  // The level's folder name as the CD holds it, in double quotes, for the messages.
  std::string QuotedLevelFolder() const;

  std::int32_t code_ = 0;
  std::int32_t number_ = 0;
  bool ordinary_ = true;
  std::string expected_folder_;
  std::vector<CdDrive> drives_;
};

// True when the level's CD stands in a drive (MainDir names it) or its image is known; shows
// Dialog_InsertCd when needed. A level with CdNumber 0 needs nothing. `where`, when given, gets
// the disc or the image.
bool RequestCdOfLevel(Program& program, int index, CdSource* where = nullptr);

// The level's folder on its CD, asking for the CD when needed. From an image, the level's files
// folder is fetched into a folder of the program's home that the next fetch empties, and
// CdFetchedCopy is set. Empty when the CD isn't given or the image can't be read (the user is
// told, naming it).
std::filesystem::path LevelFolderOnCd(Program& program, std::int32_t code);

// Lets the level store reach levels on CD through LevelFolderOnCd.
void InstallCdLevels(Program& program);

}  // namespace vardolin
