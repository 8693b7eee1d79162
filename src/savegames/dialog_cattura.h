#pragma once
// Asks where a screenshot taken during play is to be saved, showing the picture. Whatever the
// answer, the game gets the screen back when the dialog closes. The caller reads SavedPath
// after the modal show.

#include <filesystem>
#include <string>

#include "foundation/forms/form.h"
#include "foundation/ports/platform.h"

namespace vardolin {

class Dialog_Cattura : public Form {
 public:
  explicit Dialog_Cattura(Program& program);
  // Shows the clipboard's picture, clears the result and keeps the shot folder.
  void ImpostaValori(const std::string& DirScreenShots);
  // Brings the game's window back to the front, maximised and active; false when it can't be
  // found on the desktop.
  bool RiattivaTombRaider();
  // The close box answers as Cancel does.
  bool QueryUnload() override;

  // The game that is given the screen back; set by the caller.
  Process GameProcess;
  // A name was chosen (whether saving there worked or not).
  bool ExitValue = false;
  // Where the picture was saved; empty when it wasn't.
  std::filesystem::path SavedPath;

  Image Image1{*this, "Image1"};
  CheckBox Check_AutoSave{*this, "Check_AutoSave", [this] { Check_AutoSave_Click(); }};
  Button Pul_Save{*this, "Pul_Save", "Save as ...", [this] { Pul_Save_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Pul_Cancel_Click(); }};

 private:
  void Set_Caption_Texts() override;
  void Check_AutoSave_Click();
  void Pul_Save_Click();
  void Pul_Cancel_Click();

  std::string folder_;
};

}  // namespace vardolin
