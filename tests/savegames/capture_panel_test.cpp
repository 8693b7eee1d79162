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
};

TEST_F(CapturePanelTest, ThePanelFollowsToTheNewestPair) {
  Shots(2);  // s0.jpg and s1.jpg, taken long ago
  Bitmap picture = Bitmap::Make(16, 12);
  for (auto& byte : picture.pixels) byte = 200;
  const std::tuple<int, const char*, const char*> steps[] = {
      {2, "1) My level.jpg", "no_image.jpg"},
      {2, "1) My level.jpg", "2) My level.jpg"},
      {4, "3) My level.jpg", "no_image.jpg"},
  };
  for (const auto& [first_shown, left, right] : steps) {
    ui.SetClipboardImage(picture);
    ASSERT_EQ(TakeClipboardShot(program, Process{}), ClipboardShot::Stored);
    EXPECT_EQ(main->Shots.current, first_shown);
    EXPECT_EQ(Shown(main->Image1), left);
    EXPECT_EQ(Shown(main->Image2), right);
  }
}

}  // namespace
}  // namespace vardolin
