#pragma once
// Dialog_SetupCd: the choice between a full setup of a CD archive on hard disk (every level's
// files copied) and a compact one (only the levels' own folders: the files stay on their CD and
// are fetched when the level is played), and the folder that takes it.

#include <cstdint>
#include <string>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_SetupCd : public Form {
 public:
  explicit Dialog_SetupCd(Program& program);
  // Shows the room each kind needs, from the open catalogue's totals.
  void ImpostaValori();

  bool FullSetup = false;
  std::string SetupFolder;
  bool SetupAccepted = false;

  Label Label_Titolo{*this, "Label_Titolo", "Select setup kind"};
  Label Label_Full{*this, "Label_Full", "Full setup"};
  Label Label_SizeFull{*this, "Label_SizeFull"};
  Label Label_Compact{*this, "Label_Compact", "Compact setup set"};
  Label Label_CompactSize{*this, "Label_CompactSize"};
  Label Label4{*this, "Label4",
               "If you chose compact setup you should insert level CD when you would change "
               "custom level to play"};
  Button Pul_Install{*this, "Pul_Install", "Install", [this] { Pul_Install_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Unload(); }};
  Button Pul_Help{*this, "Pul_Help", "Help", [this] { Pul_Help_Click(); }};

  // The back colour of the marked choice; the other one has the plain colour.
  static constexpr std::uint32_t kMarked = 0xFFE680;
  static constexpr std::uint32_t kPlain = 0xE0E0E0;

 private:
  void Set_Caption_Texts() override;
  // The clicked label takes the marked colour from the other one.
  void Choose(bool full);
  double RoomNeeded() const;
  void Pul_Install_Click();
  void Pul_Help_Click();
};

}  // namespace vardolin
