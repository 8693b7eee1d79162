// The screenshot list and panel of the main window: order by date, paging by pairs, the
// selected shot, and the tie between a savegame and a picture.

#include <gtest/gtest.h>

#include "savegames/shot_list.h"
#include "shot_fixture.h"
#include "window/principale_shots_menu.h"

namespace vardolin::testing {
namespace {

using std::chrono::seconds;

TEST(ShotList, NearestShotWithinTheToleranceWins) {
  struct Case {
    const char* what;
    std::vector<int> shots;  // seconds after the epoch
    int savegame, minutes, expected;
  } cases[] = {
      {"10 minutes apart with 10 minutes tie", {0}, 600, 10, 0},
      {"10 minutes and 1 second apart don't", {0}, 601, 10, -1},
      {"shot after the savegame counts alike", {601}, 1, 10, 0},
      {"tolerance 0 refuses one second off", {100}, 101, 0, -1},
      {"the nearer of two", {0, 50, 200}, 60, 10, 1},
      {"equal distances: the first in the list", {40, 80}, 60, 10, 0},
      {"no shots", {}, 0, 10, -1},
  };
  for (const Case& c : cases) {
    ShotList list;
    for (std::size_t i = 0; i < c.shots.size(); ++i)
      list.InsertShotByDate("s" + std::to_string(i), ShotEpoch() + seconds(c.shots[i]));
    EXPECT_EQ(NearestShotWithin(list, ShotEpoch() + seconds(c.savegame), c.minutes), c.expected)
        << c.what;
  }
  // Within one second the fractions don't count: 10:00.9 from 00:00.0 is still 10 minutes.
  ShotList list;
  list.InsertShotByDate("a", ShotEpoch());
  EXPECT_EQ(NearestShotWithin(list, ShotEpoch() + std::chrono::milliseconds(600900), 10), 0);
}

TEST(ShotPanel, ABmpAndAJpegOfOneDateListTheJpegFirst) {
  ShotFixture f;
  // The BMP is written first, so the folder's own order can't be what puts the JPEG ahead.
  f.Shot("b.bmp", 10);
  f.Shot("j.jpg", 10);
  f.Shot("old.bmp", 5);
  const ShotList shots = ListLevelShots(f.program, 1);
  ASSERT_EQ(shots.Count(), 3);
  EXPECT_EQ(shots[0].path.filename(), "old.bmp");
  EXPECT_EQ(shots[1].path.filename(), "j.jpg");
  EXPECT_EQ(shots[2].path.filename(), "b.bmp");
}

TEST(ShotPanel, PagingByPairs) {
  struct Case {
    int count;
    std::vector<ShotPage> pages;
    int current;
    const char *first, *second;
  } cases[] = {
      {5, {ShotPage::Last}, 4, "s4.jpg", "no_image.jpg"},
      {6, {ShotPage::Last}, 4, "s4.jpg", "s5.jpg"},
      {6, {ShotPage::Next, ShotPage::Next, ShotPage::Next}, 4, "s4.jpg", "s5.jpg"},
      {5, {ShotPage::Last, ShotPage::Previous}, 2, "s2.jpg", "s3.jpg"},
      {3, {ShotPage::Previous}, 0, "s0.jpg", "s1.jpg"},
      {1, {}, 0, "s0.jpg", "no_image.jpg"},
      {0, {ShotPage::Last, ShotPage::First, ShotPage::Next}, -2, "no_image.jpg", "no_image.jpg"},
  };
  for (const Case& c : cases) {
    ShotFixture f;
    f.Shots(c.count);
    f.ChooseMyLevel();
    for (ShotPage page : c.pages) PageShots(*f.main, page);
    SCOPED_TRACE(std::to_string(c.count) + " shots, " + std::to_string(c.pages.size()) + " pages");
    EXPECT_EQ(f.main->Shots.current, c.current);
    EXPECT_EQ(f.Shown(f.main->Image1), c.first);
    EXPECT_EQ(f.Shown(f.main->Image2), c.second);
    EXPECT_EQ(f.main->Label_InfoImage1.Caption(),
              c.current < 0 ? "" : std::filesystem::path(c.first).stem().string());
  }
}

TEST(ShotPanel, TheBaseLevelGetsItsNoImagePictureBackFromTheProgramsFolder) {
  ShotFixture f;
  std::filesystem::remove_all(f.Folder(0));
  f.ChooseMyLevel();
  EXPECT_TRUE(std::filesystem::exists(f.Folder(0) / "screenshots" / "no_image.jpg"));
  EXPECT_EQ(f.Shown(f.main->Image1), "no_image.jpg");
  // In the base level's own shot folder it is still no screenshot of that level.
  f.Choose("Base");
  EXPECT_EQ(f.Shown(f.main->Image1), "no_image.jpg");
  EXPECT_EQ(f.program.ShotCount, 0);
  EXPECT_EQ(f.main->Label_InfoImage1.Caption(), "");
  EXPECT_NE(f.main->Label_InfoDir.Caption().find("Screenshots: 0 "), std::string::npos)
      << f.main->Label_InfoDir.Caption();
}

}  // namespace
}  // namespace vardolin::testing
