// Where pictures come from on Linux: Print Screen and the joystick's capture buttons grab the
// game's window (or the screen) onto the clipboard, and the same tick stores it.
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
  const Bitmap screen = Plain(80, 60, 10, 10, 220);
  const Bitmap game_window = Plain(64, 48, 220, 20, 20);

  // What the shot stored this tick shows at its middle, by its red and blue.
  std::pair<int, int> StoredColour() {
    auto shots = testing::Snapshot(Shots());
    if (shots.size() != 1) return {-1, -1};
    Bitmap read;
    if (ReadJpeg(shots.begin()->second, read) != PictureResult::Ok) return {-1, -1};
    const std::uint8_t* px = read.Pixel(read.width / 2, read.height / 2);
    return {px[0] / 50, px[2] / 50};
  }
};

TEST_F(SourceTest, ThePictureTakenIsTheGamesWindowWhereItCanBeHad) {
  enum class Taken { GameWindow, Screen, Nothing };
  struct Case {
    const char* what;
    bool window_listed, window_grabbable, display;
    Taken taken;
  };
  const Case cases[] = {
      {"the game's window", true, true, true, Taken::GameWindow},
      {"a window that can't be grabbed", true, false, true, Taken::Screen},
      {"no window of the game", false, false, true, Taken::Screen},
      {"no display at all", false, false, false, Taken::Nothing},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    std::filesystem::remove_all(Shots());
    platform.windows.clear();
    platform.window_pictures.clear();
    platform.windows.push_back({0x200, "Terminal", 1, true});
    if (c.window_listed) platform.windows.push_back({0x300, "Tomb Raider", kGamePid, true});
    if (c.window_grabbable) platform.window_pictures[0x300] = game_window;
    platform.screen = c.display ? screen : Bitmap{};
    PrintScreenKey key;
    platform.keys_down[vk::kSnapshot] = true;
    WatchScreenCapture(program, Process{kGamePid}, key);
    switch (c.taken) {
      case Taken::GameWindow:
        EXPECT_EQ(StoredColour(), std::make_pair(4, 0));
        break;
      case Taken::Screen:
        EXPECT_EQ(StoredColour(), std::make_pair(0, 4));
        break;
      case Taken::Nothing:
        EXPECT_TRUE(ShotNames().empty());
        break;
    }
    EXPECT_FALSE(ui.ClipboardHasImage()) << "taken and cleared in the same tick";
    // Held on into the next tick: no second shot.
    WatchScreenCapture(program, Process{kGamePid}, key);
    EXPECT_LE(ShotNames().size(), 1u);
  }
}

TEST_F(SourceTest, TheJoystickButtonPutsThePictureOnTheClipboardForTheTick) {
  platform.screen = screen;
  EXPECT_TRUE(PressPrintScreen(program, Process{kGamePid}));
  EXPECT_TRUE(ui.ClipboardHasImage());
  EXPECT_EQ(TakeClipboardShot(program, Process{kGamePid}), ClipboardShot::Stored);
  EXPECT_EQ(ShotNames(), std::vector<std::string>{"1) Valley of the Kings.jpg"});
}

}  // namespace
}  // namespace vardolin
