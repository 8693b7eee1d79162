#pragma once
// Asks for a folder: a list of the machine's drives (mount points), the sub-folders of the
// folder in view, and a field to name a new sub-folder. After the modal show the caller reads
// ExitValue and Path.

#include <filesystem>
#include <string>
#include <vector>

#include "foundation/forms/form.h"
#include "foundation/ports/platform.h"

namespace vardolin {

class Dialog_GetDir : public Form {
 public:
  explicit Dialog_GetDir(Program& program);
  // Starts from `start`. A missing folder starts from the nearest folder above it that stands,
  // its missing name typed in, so that Ok makes it; an empty one from the user's home. A title,
  // when given, replaces the default caption.
  void ImpostaValori(const std::string& start, const std::string& title = {});
  const std::filesystem::path& FolderInView() const { return folder_; }
  // Shows another folder; false when it isn't a readable folder.
  bool EnterFolder(const std::filesystem::path& folder);

  bool ExitValue = false;
  std::string Path;

  ComboBox Drive1{*this, "Drive1", false, [this] { Drive1_Change(); }};
  ListBox Dir1{*this, "Dir1"};
  Label Label_Folder{*this, "Label_Folder"};
  TextBox Text_Path{*this, "Text_Path"};
  Button Pul_NuovaCartella{*this, "Pul_NuovaCartella", [this] { Pul_NuovaCartella_Click(); }};
  Button OKButton{*this, "OKButton", [this] { OKButton_Click(); }};
  Button CancelButton{*this, "CancelButton", [this] { CancelButton_Click(); }};

 private:
  void Set_Caption_Texts() override;
  void Drive1_Change();
  void Dir1_DblClick();
  void Pul_NuovaCartella_Click();
  void OKButton_Click();
  void CancelButton_Click();
  void FillDrives();
  // Goes to the folder typed into Text_Path (a name below the folder in view, or a whole path),
  // made when it isn't there; false when it can't be (said so).
  bool TakeTypedFolder();
  void SelectDriveOfFolder();

  std::filesystem::path folder_;
  std::vector<DriveInfo> drives_;
  std::string title_;
  bool syncing_ = false;
};

// The chosen folder as the program keeps paths: separators not doubled and no trailing one,
// but the root stays "/".
std::string NormalizeChosenFolder(const std::string& path);

}  // namespace vardolin
