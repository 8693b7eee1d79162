// Dialog_Resize driven as the user drives it, on real picture files.

#include <gtest/gtest.h>

#include "foundation/pictures/bmp_codec.h"
#include "foundation/pictures/jpeg_codec.h"
#include "savegames/dialog_resize.h"
#include "shot_fixture.h"

namespace vardolin::testing {
namespace {

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
    EXPECT_EQ(std::pair(back.width, back.height), std::pair(160, 120));
    if (c.jpeg) sizes[c.quality_row == 0 ? 0 : 1] = bytes.size();
  }
  EXPECT_GE(sizes[0], sizes[1]) << "quality 90 is no smaller than quality 20";
}

}  // namespace
}  // namespace vardolin::testing
