// The screenshot menu on real files: adding, deleting and free names.

#include <gtest/gtest.h>

#include "archive/catalogue_ops.h"
#include "foundation/pictures/bmp_codec.h"
#include "savegames/shot_list.h"
#include "savegames/shot_store.h"
#include "shot_fixture.h"
#include "window/principale_shots_menu.h"

namespace vardolin::testing {
namespace {

TEST(ShotStore, NextShotFileNameCountsPastTakenNames) {
  struct Case {
    const char* title;
    std::vector<const char*> taken;
    const char *extension, *expected;
  } cases[] = {
      {"  My level  ", {"1) My level.jpg", "2) My level.jpg"}, "", "3) My level.jpg"},
      {"My level", {"1) my level.JPG"}, "", "2) My level.jpg"},
      {"My level", {"1) My level.jpg"}, ".bmp", "1) My level.bmp"},
      {"What? Now", {}, "", "1) What  Now.jpg"},
      {"a/b\\c<d>e:f|g\"h", {}, ".jpg", "1) a b c d e f g h.jpg"},
  };
  for (const Case& c : cases) {
    ShotFixture f;
    f.program.catalogue.levels[1].Name = c.title;
    for (const char* name : c.taken) f.Shot(name, 0);
    EXPECT_EQ(NextShotFileName(f.program, 1, c.extension), f.ShotDir() / c.expected) << c.title;
  }
}

TEST(ShotMenu, AddingAFileWhoseNameIsTakenAndAnsweringNoStoresItUnderAFreeName) {
  ShotFixture f;
  f.Shots(3);
  f.Shot("pic.bmp", 1);
  f.ChooseMyLevel();
  const auto source = f.dir / "elsewhere" / "pic.bmp";
  WritePicture(source);
  f.ui.OpenFile(source.string()).Answer(msg::kNo, "pic.bmp").Answer(msg::kOk, "'1) My level.bmp'");
  AddScreenshot(*f.main);
  const auto stored = f.ShotDir() / "1) My level.bmp";
  ASSERT_TRUE(std::filesystem::exists(stored));
  // Dated now, it sorts last and its pair is shown.
  EXPECT_EQ(f.main->Shots.current, 4);
  EXPECT_EQ(f.Shown(f.main->Image1), "1) My level.bmp");

  // Yes replaces the file of that name.
  WritePicture(source, 30, 20);
  f.ui.OpenFile(source.string()).Answer(msg::kYes, "pic.bmp");
  AddScreenshot(*f.main);
  Bitmap replaced;
  ASSERT_EQ(ReadPictureFile(f.ShotDir() / "pic.bmp", replaced), PictureResult::Ok);
  EXPECT_EQ(replaced.width, 30);
  EXPECT_EQ(f.main->Shots.shots.Count(), 5);
}

TEST(ShotMenu, DeletingAShot) {
  struct Case {
    const char* what;
    int shots, select;  // with no shots, in the base level
    bool asked;         // or an error comes
    int count_after, current_after;
  } cases[] = {
      {"the last of five goes back a pair", 5, 0, true, 4, 2},
      {"the second of the last pair of six keeps it", 6, 1, true, 5, 4},
      {"no shot beside the last of five", 5, 1, false, 5, 4},
      {"the base level's no-image picture", 0, 0, false, 0, -2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ShotFixture f;
    f.Shots(c.shots);
    RefreshLevelList(*f.main);
    if (c.shots) {
      f.ChooseMyLevel();
      PageShots(*f.main, ShotPage::Last);
    }
    SelectShotImage(*f.main, c.select);
    f.program.catalogue.levels[1].UserSize = 100000;
    const int at = GetSelectedShotIndex(*f.main);
    const auto path = c.asked ? f.main->Shots.shots[at].path : std::filesystem::path();
    const int length = c.asked ? static_cast<int>(std::filesystem::file_size(path)) : 0;
    f.ui.Answer(c.asked ? msg::kYes : msg::kOk,
                c.asked ? "\"" + path.string() + "\"" : "no screenshot to delete");
    DeleteShot(*f.main);
    EXPECT_EQ(f.main->Shots.shots.Count(), c.count_after);
    EXPECT_EQ(f.main->Shots.current, c.current_after);
    EXPECT_FALSE(c.asked && std::filesystem::exists(path));
    EXPECT_EQ(f.program.catalogue.levels[1].UserSize, 100000 - length);
  }
}

}  // namespace
}  // namespace vardolin::testing
