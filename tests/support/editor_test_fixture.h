#pragma once
// A program with its own home, the scripted Ui and a stand-in editor folder set as the
// program's editor folder.

#include "archive_fixture.h"
#include "editor_folder_fixture.h"
#include "environment.h"

namespace vardolin::testing {

struct EditorTest : ArchiveFixture {
  std::filesystem::path editor = Path("trle");
  explicit EditorTest(const EditorFolderOptions& options = {}) {
    BuildEditorFolder(editor, options);
    program.prefs.EditorFolder = editor.string();
  }
};

// Points $WINEPREFIX at a folder for the life of the object.
struct ScopedWinePrefix : ScopedEnv {
  explicit ScopedWinePrefix(const std::filesystem::path& prefix)
      : ScopedEnv("WINEPREFIX", prefix.string()) {}
};

}  // namespace vardolin::testing
