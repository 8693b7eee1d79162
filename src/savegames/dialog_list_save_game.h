#pragma once
// Dialog_ListSaveGame: the savegames to move, chosen from a list. It serves three uses: export
// of a level's savegames to a folder or a zip, sending them by mail, and import of the savegames
// of a folder into the level's slots.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "foundation/forms/form.h"

namespace vardolin {

class Dialog_ListSaveGame : public Form {
 public:
  explicit Dialog_ListSaveGame(Program& program);

  // Fills the list for the level with `code` (none: text 502). Exporting or sending, the list
  // holds the savegames of the level's slot folder (which `DirSource` becomes) and the
  // `archived` ones; importing, those of `DirSource` (none there: text 505). False, after
  // telling the user, when there is nothing to offer.
  bool ImpostaValori(std::optional<std::int32_t> code, std::string& DirSource, bool TestImportare,
                     bool TestSpedisci, const std::vector<std::filesystem::path>& archived = {});

  bool Importing = false;
  bool Sending = false;
  std::vector<std::filesystem::path> Files;
  std::filesystem::path SlotFolder;
  std::int32_t LevelCode = -1;
  // The user finished the dialog and its work was done.
  bool Confirmed = false;

  ListBox List_Shot{*this, "List_Shot"};
  Button Pul_SelezionaTutti{*this, "Pul_SelezionaTutti", "Select all",
                            [this] { Pul_SelezionaTutti_Click(); }};
  CheckBox Check_Elimina{*this, "Check_Elimina"};
  CheckBox Check_CreaFileZip{*this, "Check_CreaFileZip"};
  Label Label_Info{*this, "Label_Info"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Button Pul_Ok{*this, "Pul_Ok", "OK", [this] { Pul_Ok_Click(); }};
  Button Pul_Cancel{*this, "Pul_Cancel", "Cancel", [this] { Unload(); }};

 private:
  void Set_Caption_Texts() override;
  void Pul_SelezionaTutti_Click();
  void Pul_Ok_Click();
  void Import(const std::vector<std::filesystem::path>& chosen);
  void Export(const std::vector<std::filesystem::path>& chosen);
  void Send(const std::vector<std::filesystem::path>& chosen, const std::vector<int>& rows);
  void Finish(bool confirmed);
};

}  // namespace vardolin
