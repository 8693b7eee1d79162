// Dialog_Resize and Dialog_ScreenShot driven as the user drives them, on real picture files.

#include <gtest/gtest.h>

#include "foundation/pictures/bmp_codec.h"
#include "foundation/pictures/jpeg_codec.h"
#include "savegames/dialog_resize.h"
#include "savegames/dialog_screen_shot.h"
#include "savegames/shot_picture.h"
#include "shot_fixture.h"
#include "window/principale_shots_menu.h"

namespace vardolin::testing {
namespace {

TEST(ShotPicture, StretchingFillsTheBoxWithoutKeepingTheRatio) {
  Bitmap source = Bitmap::Make(4, 2);
  // Left half black, right half white: the stretched picture keeps that split.
  for (int y = 0; y < 2; ++y)
    for (int x = 2; x < 4; ++x) std::fill_n(source.Pixel(x, y), 3, 255);
  struct Case {
    int width, height;
  } cases[] = {{4, 2}, {8, 8}, {2, 1}, {480, 360}};
  for (const Case& c : cases) {
    const Bitmap out = StretchBitmap(source, c.width, c.height);
    ASSERT_EQ(out.width, c.width);
    ASSERT_EQ(out.height, c.height);
    EXPECT_EQ(out.Pixel(0, 0)[0], 0) << c.width;
    EXPECT_EQ(out.Pixel(c.width - 1, c.height - 1)[0], 255) << c.width;
  }
  EXPECT_EQ(StretchBitmap(source, 4, 2).pixels, source.pixels);
  EXPECT_TRUE(StretchBitmap(Bitmap{}, 10, 10).Empty());
  EXPECT_TRUE(StretchBitmap(source, 0, 10).Empty());
}

TEST(DialogResize, SavingAsJpegOrBitmap) {
  struct Case {
    const char* name;
    int quality_row;
    bool jpeg;
  } cases[] = {{"small.jpg", 0, true}, {"small.JPG", 4, true}, {"small.bmp", 2, false}};
  std::uintmax_t sizes[2] = {};
  for (const Case& c : cases) {
    ShotFixture f;
    const auto shot = f.ShotDir() / "s.bmp";
    WritePicture(shot, 100, 50, 77);
    Dialog_Resize dialog(f.program);
    dialog.ImpostaValori(shot.string());
    dialog.Combo_Resize.SetListIndex(7);
    dialog.Combo_JpgQuality.SetListIndex(c.quality_row);
    const auto target = f.dir / c.name;
    f.ui.SaveFile(target.string()).Answer(msg::kOk, "\"" + target.string() + "\"");
    dialog.Load();
    dialog.Pul_Save.Click();
    EXPECT_FALSE(dialog.IsLoaded()) << c.name;
    EXPECT_EQ(f.ui.ClipboardText(), target.string());
    Bitmap back;
    const std::string bytes = ReadFile(target);
    ASSERT_EQ(c.jpeg ? ReadJpeg(bytes, back) : ReadBmp(bytes, back), PictureResult::Ok) << c.name;
    EXPECT_EQ(back.width, 160);
    EXPECT_EQ(back.height, 120);
    if (c.jpeg) sizes[c.quality_row == 0 ? 0 : 1] = bytes.size();
  }
  EXPECT_GE(sizes[0], sizes[1]) << "quality 90 is no smaller than quality 20";
}

TEST(DialogScreenShot, CaptionOnlyForAPictureThatLoads) {
  ShotFixture f;
  const auto good = f.ShotDir() / "good.jpg";
  WritePicture(good);
  const auto bad = f.dir.Write("bad.jpg", "not a picture");
  Dialog_ScreenShot zoom(f.program);
  EXPECT_TRUE(zoom.ImpostaValori(good.string()));
  EXPECT_EQ(zoom.Caption(), "Screenshot - " + good.string());
  EXPECT_FALSE(zoom.ImpostaValori(bad.string()));
  EXPECT_EQ(zoom.Caption(), "");
  EXPECT_EQ(zoom.Image1.Picture(), "");
}

TEST(ShotMenu, ResizeNeedsASelectedShot) {
  ShotFixture f;
  f.Shots(1);
  f.ChooseMyLevel();
  bool shown = false;
  f.ui.OnForm("Dialog_Resize", [&](Form& form) {
    shown = true;
    EXPECT_EQ(static_cast<Dialog_Resize&>(form).Painted().width, 320);
  });
  ResizeSelectedShot(*f.main);
  EXPECT_TRUE(shown);
  SelectShotImage(*f.main, 1);
  f.ui.Answer(msg::kOk, "resize");
  ResizeSelectedShot(*f.main);
}

}  // namespace
}  // namespace vardolin::testing
