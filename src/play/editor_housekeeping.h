#pragma once
// Keeping the editor folder in order between levels: sweeping what isn't the editor's own out of
// its root, and fetching the editor's basic, script and language files back from its backup.
// Activation runs these as a level leaves; they serve anyone who needs a tidy folder.

#include <string>
#include <vector>

namespace vardolin {

class Program;
class SetAside;

// The 13 names that stay in the root of the editor folder when it is cleaned.
const std::vector<std::string>& EditorStandardNames();
// Deletes from the root what isn't the editor's own, removes the folders levels bring, then
// RestoreEditorBasics. Under a restore (`aside` given) what goes is set aside unless the backup
// holds it as it is, and the game's savegame slots stay: the restore can't tell whose they are.
void CleanEditorFolder(Program& program, SetAside* aside = nullptr);
// Copies the editor's basic files back from the backup, then PruneSavegames.
void RestoreEditorBasics(Program& program);
// Deletes savegame files whose slot the game can't have (it has 0 to 14).
void PruneSavegames(Program& program);
// Sees to it that the script file and a language file stand in the editor folder, taking them
// from the backup when missing.
void FixScriptFiles(Program& program);

}  // namespace vardolin
