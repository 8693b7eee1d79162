#pragma once
// The program the window benchmarks work on: a home with the English texts and the no-image
// picture, an editor folder, and an archive of the base level and one level, "My level" (code 1).

#include <filesystem>

#include "archive/level_store.h"
#include "foundation/program.h"
#include "foundation/texts/text_catalogue.h"

namespace vardolin::bench {

inline void PrepareOneLevelProgram(Program& program, const std::filesystem::path& folder) {
  namespace fs = std::filesystem;
  fs::create_directories(folder / "home");
  fs::create_directories(folder / "trle");
  ReadTextFile(program, fs::path(VARDOLIN_SOURCE_DIR) / "resources" / "english.trc",
               program.texts.EnglishTexts);
  fs::copy_file(fs::path(VARDOLIN_SOURCE_DIR) / "resources" / "no_image.jpg",
                folder / "home" / "no_image.jpg", fs::copy_options::overwrite_existing);
  program.prefs.AutoSave = false;
  program.prefs.EditorFolder = (folder / "trle").string();
  Catalogue& c = program.catalogue;
  c.header.MainDir = c.header.SecondaryDir = (folder / "archive").string();
  for (int code : {0, 1}) {
    LevelRecord r;
    r.Code = code;
    r.Name = code ? "My level" : "Base";
    c.levels.push_back(r);
    fs::create_directories(GetLevelFolder(program, code, false) / "screenshots");
  }
  c.header.LevelCount = 2;
}

}  // namespace vardolin::bench
