#pragma once
// A program with its own home, the scripted Ui and a stand-in editor folder set as the
// program's editor folder.

#include <cstdlib>
#include <string>

#include "../archive/archive_fixture.h"
#include "editor_folder_fixture.h"

namespace vardolin::testing {

struct EditorTest : ArchiveFixture {
  explicit EditorTest(const EditorFolderOptions& options = {}) : editor(options) {
    program.prefs.EditorFolder = editor.path().string();
  }
  EditorFolderFixture editor;
};

// Points $WINEPREFIX at a folder for the life of the object, giving back what stood before.
class ScopedWinePrefix {
 public:
  explicit ScopedWinePrefix(const std::filesystem::path& prefix) {
    if (const char* old = std::getenv("WINEPREFIX")) old_ = old, had_ = true;
    setenv("WINEPREFIX", prefix.c_str(), 1);
  }
  ~ScopedWinePrefix() {
    if (had_)
      setenv("WINEPREFIX", old_.c_str(), 1);
    else
      unsetenv("WINEPREFIX");
  }

 private:
  std::string old_;
  bool had_ = false;
};

}  // namespace vardolin::testing
