// Where pictures come from on Linux: Print Screen (and so the joystick's capture buttons) grab
// the game's window (or the screen) onto the clipboard, and the same tick stores it.
#include "savegames/capture_source.h"

#include <gtest/gtest.h>

#include "capture_fixture.h"
#include "foundation/pictures/jpeg_codec.h"
#include "foundation/platform/virtual_keys.h"
#include "savegames/capture.h"

namespace vardolin {
namespace {

using testing::Plain;

constexpr int kGamePid = 5150;

struct SourceTest : ::testing::Test, testing::CaptureFixture {
  // What the one shot stored shows at its middle, by its red and blue; {-1, -1} for no shot.
  std::pair<int, int> StoredColour() {
    auto shots = testing::Snapshot(Shots());
    Bitmap read;
    if (shots.size() != 1 || ReadJpeg(shots.begin()->second, read) != PictureResult::Ok)
      return {-1, -1};
    const std::uint8_t* px = read.Pixel(read.width / 2, read.height / 2);
    return {px[0] / 50, px[2] / 50};
  }
};

TEST_F(SourceTest, ThePictureTakenIsTheGamesWindowWhereItCanBeHad) {
  struct Case {
    const char* what;
    bool window_listed, window_grabbable, display;
    std::pair<int, int> colour;
  };
  const Case cases[] = {
      {"the game's window", true, true, true, {4, 0}},
      {"a window that can't be grabbed", true, false, true, {0, 4}},
      {"no window of the game", false, false, true, {0, 4}},
      {"no display at all", false, false, false, {-1, -1}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    std::filesystem::remove_all(Shots());
    platform.windows = {{0x200, "Terminal", 1, true}};
    platform.window_pictures.clear();
    if (c.window_listed) platform.windows.push_back({0x300, "Tomb Raider", kGamePid, true});
    if (c.window_grabbable) platform.window_pictures[0x300] = Plain(64, 48, 220, 20, 20);
    platform.screen = c.display ? Plain(80, 60, 10, 10, 220) : Bitmap{};
    PrintScreenKey key;
    platform.keys_down[vk::kSnapshot] = true;
    WatchScreenCapture(program, Process{kGamePid}, key);
    EXPECT_EQ(StoredColour(), c.colour);
    EXPECT_FALSE(ui.ClipboardHasImage()) << "taken and cleared in the same tick";
    // Held on into the next tick: no second shot.
    WatchScreenCapture(program, Process{kGamePid}, key);
    EXPECT_LE(ShotNames().size(), 1u);
  }
}

}  // namespace
}  // namespace vardolin
