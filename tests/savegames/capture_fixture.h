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

inline void Paint(Bitmap& bitmap, int x, int y, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  std::uint8_t* px = bitmap.Pixel(x, y);
  px[0] = r;
  px[1] = g;
  px[2] = b;
}

// A picture of one colour.
inline Bitmap Plain(int w, int h, std::uint8_t r, std::uint8_t g, std::uint8_t b,
                    int channels = 3) {
  Bitmap bitmap = Bitmap::Make(w, h, channels);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) Paint(bitmap, x, y, r, g, b);
  return bitmap;
}

// Black on the middle row and column, coloured in the four quarters between them.
inline Bitmap BlackCross(int w, int h) {
  Bitmap bitmap = Plain(w, h, 200, 40, 40);
  for (int x = 0; x < w; ++x) Paint(bitmap, x, h / 2, 0, 0, 0);
  for (int y = 0; y < h; ++y) Paint(bitmap, w / 2, y, 0, 0, 0);
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
  int Index(std::int32_t code) const { return FindLevelIndex(program.catalogue, code); }
  std::filesystem::path Shots(std::int32_t code = kPlayed) {
    return ShotFolder(program, Index(code), text::ShotFolderCapture);
  }
  // The shot files of a level, by name.
  std::vector<std::string> ShotNames(std::int32_t code = kPlayed) {
    return Names(Snapshot(Shots(code)));
  }
};

}  // namespace vardolin::testing
