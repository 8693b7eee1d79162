#pragma once
// A program with an archive on disk, an editor folder whose marker names the level being
// played, and pictures to put on the clipboard as the desktop would.

#include <filesystem>
#include <string>

#include "archive/catalogue_ops.h"
#include "foundation/pictures/picture_file.h"
#include "play/active_level.h"
#include "play/text_ids.h"
#include "savegames/shot_store.h"
#include "savegames/text_ids.h"
#include "store_fixture.h"

namespace vardolin::testing {

// A picture of one colour.
inline Bitmap Plain(int w, int h, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  Bitmap bitmap = Bitmap::Make(w, h, 3);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) {
      std::uint8_t* px = bitmap.Pixel(x, y);
      px[0] = r, px[1] = g, px[2] = b;
    }
  return bitmap;
}

struct CaptureFixture : StoreFixture {
  std::filesystem::path editor = Path("trle");
  static constexpr std::int32_t kPlayed = 2;

  CaptureFixture() {
    std::filesystem::create_directories(editor);
    program.prefs.EditorFolder = editor.string();
    program.prefs.PromptCapture = false;
    program.prefs.AutoSave = false;  // the catalogue stays in memory, changed
    program.prefs.VerifyImage = true;
    program.catalogue.levels[kPlayed].Name = "Valley of the Kings";
    std::filesystem::create_directories(GetLevelFolder(program, kPlayed, false));
    MarkActive(program, kPlayed);
  }
  std::filesystem::path Shots() {
    return ShotFolder(program, FindLevelIndex(program.catalogue, kPlayed), text::ShotFolderCapture);
  }
  std::vector<std::string> ShotNames() { return Names(Snapshot(Shots())); }
};

}  // namespace vardolin::testing
