#pragma once
// The main window over a small catalogue whose levels live in a real archive folder, with an
// editor folder beside it, for the tests of the level browser.

#include "archive/level_store.h"
#include "archive_fixture.h"
#include "foundation/services/paths.h"
#include "window/principale.h"
#include "window/principale_levels.h"

namespace vardolin::testing {

struct BrowserFixture : ArchiveFixture {
  std::filesystem::path archive = Path("archive");
  std::filesystem::path editor = Path("trle");
  std::unique_ptr<Principale> main;

  // Levels by name; their codes are 0, 1, 2 ... in this order and each gets its folder.
  explicit BrowserFixture(const std::vector<std::string>& names) {
    std::filesystem::create_directories(editor);
    program.prefs.EditorFolder = editor.string();
    program.prefs.AutoSave = false;
    StoreNamedLevels(program, archive, names);
    main = std::make_unique<Principale>(program);
  }

  std::filesystem::path Folder(std::int32_t code) { return GetLevelFolder(program, code, false); }
  void MarkActive(std::int32_t code) { testing::MarkActive(program, code); }
  void Choose(const std::string& text) {
    main->Combo_Livelli.SetListIndex(main->Combo_Livelli.FindText(text));
  }
};

}  // namespace vardolin::testing
