// Captures seen from the main window: after each, the screenshot panel shows the newest pair of
// the level being played.
#include <gtest/gtest.h>

#include "savegames/capture.h"
#include "shot_fixture.h"

namespace vardolin {
namespace {

struct CapturePanelTest : ::testing::Test, testing::ShotFixture {
  CapturePanelTest() {
    program.prefs.PromptCapture = false;
    program.prefs.VerifyImage = true;
    MarkActive(1);
    RefreshLevelList(*main);
    SelectLevelByCode(*main, 1);  // "My level (*)", the one being played
  }
  void Capture(std::uint8_t shade) {
    Bitmap picture = Bitmap::Make(16, 12);
    for (auto& byte : picture.pixels) byte = shade;
    ui.SetClipboardImage(picture);
    ASSERT_EQ(TakeClipboardShot(program, Process{}), ClipboardShot::Stored);
  }
};

TEST_F(CapturePanelTest, ThePanelFollowsToTheNewestPair) {
  Shots(2);  // s0.jpg and s1.jpg, taken long ago
  struct Step {
    int first_shown;
    const char *left, *right;
  };
  const Step steps[] = {
      {2, "1) My level.jpg", "no_image.jpg"},
      {2, "1) My level.jpg", "2) My level.jpg"},
      {4, "3) My level.jpg", "no_image.jpg"},
  };
  for (const Step& s : steps) {
    Capture(200);
    EXPECT_EQ(main->Shots.current, s.first_shown);
    EXPECT_EQ(Shown(main->Image1), s.left);
    EXPECT_EQ(Shown(main->Image2), s.right);
  }
}

}  // namespace
}  // namespace vardolin
