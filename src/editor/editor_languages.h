#pragma once
// The languages the level editor comes in: for each, the files of its splash, script texts and
// manual, and the names of its desktop menu entries, as the editor's own setup names them.

#include <string>
#include <vector>

namespace vardolin {

struct EditorLanguage {
  const char* splash;
  const char* language_data;
  const char* manual;
  const char* menu_folder;
  const char* documentation_folder;
  const char* tools_folder;
  const char* web_links_folder;
  const char* game_shortcut;
  const char* setup_shortcut;
  const char* manual_shortcut;
  const char* room_editor_shortcut;
  const char* converter_shortcut;
};

// Rows in the order of Dialog_InstallaTrle's language list; index 0 is the default.
const std::vector<EditorLanguage>& EditorLanguages();
// The row of `index`, row 0 for an index out of range.
const EditorLanguage& EditorLanguageRow(int index);

}  // namespace vardolin
