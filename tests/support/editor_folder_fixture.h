#pragma once
// A stand-in Tomb Raider Level Editor folder: the folder layout and file names of a real
// install (the ones the program's texts name), each file a few bytes that tell its name. For
// start-up tests, the editor and backup tests, and the demo home.

#include <filesystem>
#include <string>

namespace vardolin::testing {

struct EditorFolderOptions {
  // tomb4.exe in the folder (a level's installer may have taken it away).
  bool with_game = true;
  // data\title.tr4, the title level; with no *.tr4 in data the folder isn't an installed editor.
  bool with_title_level = true;
  // tom2pc.exe and winroomedit.exe: the two files that make a folder the editor's.
  bool with_compiler = true;
  bool with_room_editor = true;
};

// The bytes the stand-in file of that relative path holds.
std::string EditorFileContent(const std::string& relative);

// Builds the folder (and its parents) at `folder`; false when something couldn't be written.
bool BuildEditorFolder(const std::filesystem::path& folder,
                       const EditorFolderOptions& options = {});

}  // namespace vardolin::testing
