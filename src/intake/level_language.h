#pragma once
// Forcing the player's own language file onto a level, and taking it back. The player's
// language is the language file in the saved copy of the editor folder; a level's language files
// are the `.dat` files beside its script. Setting keeps the level's own files under a suffix, so
// that restoring is a rename back.
//
// A level stored compressed keeps its files packed (`german.dat.zl`): a file's language name is
// its name without that packing suffix, and the file put in its place is always a plain one.

#include <cstdint>
#include <filesystem>
#include <string>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// True when the player's language can be set on the level in `folder` (its files folder);
// otherwise `message` tells why not. `my_language` gets the player's language file.
bool IsLevelLanguageOk(Program& program, const std::filesystem::path& folder, std::string& message,
                       std::filesystem::path& my_language);
// Renames the level's language files aside and puts the player's file under the name of the
// last of them; with `copy_to_editor` the editor folder gets it too (the level is the active
// one there). False with `message` telling why.
bool SetLevelLanguage(Program& program, const std::filesystem::path& folder, std::string& message,
                      bool copy_to_editor);
// Deletes the forced file and gives the level's own files their names back.
bool RestoreLevelLanguage(Program& program, const std::filesystem::path& folder,
                          std::string& message, bool copy_to_editor);
// True, after telling the user, when the saved copy of the editor folder is marked missing.
bool LanguageBackupMissing(Program& program);

// The two operations on the level with `code`, telling the user unless `silent`. The base
// level (code 0) is never changed, and a level kept on CD isn't restored.
bool SetLanguageOfLevel(Program& program, std::int32_t code, bool silent);
bool RestoreLanguageOfLevel(Program& program, std::int32_t code, bool silent);

// Sets (or restores) the language in every level on hard disk but the base level, silently,
// with the label and the bar following. The number of levels changed.
int ChangeLanguageOfAllLevels(Program& program, bool restore, Label* label, ProgressBar* bar);

}  // namespace vardolin
