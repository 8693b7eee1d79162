// The screenshot list and panel of the main window: order by date, paging by pairs, the
// selected shot, and the tie between a savegame and a picture.

#include <gtest/gtest.h>

#include "savegames/shot_list.h"
#include "shot_fixture.h"
#include "window/principale_shots_menu.h"

namespace vardolin::testing {
namespace {

using std::chrono::milliseconds;

TEST(ShotList, NearestShotWithinTheToleranceWins) {
  struct Case {
    const char* what;
    std::vector<int> shots;  // milliseconds after the epoch, as the savegame
    int savegame, minutes, expected;
  } cases[] = {
      {"10 minutes apart with 10 minutes tie", {0}, 600000, 10, 0},
      {"10 minutes and 1 second apart don't", {0}, 601000, 10, -1},
      {"fractions of a second don't count", {0}, 600900, 10, 0},
      {"shot after the savegame counts alike", {601000}, 1000, 10, 0},
      {"tolerance 0 refuses one second off", {100000}, 101000, 0, -1},
      {"the nearer of two", {0, 50000, 200000}, 60000, 10, 1},
      {"equal distances: the first in the list", {40000, 80000}, 60000, 10, 0},
      {"no shots", {}, 0, 10, -1},
  };
  for (const Case& c : cases) {
    ShotList list;
    for (std::size_t i = 0; i < c.shots.size(); ++i)
      list.InsertShotByDate("s" + std::to_string(i), ShotEpoch() + milliseconds(c.shots[i]));
    EXPECT_EQ(NearestShotWithin(list, ShotEpoch() + milliseconds(c.savegame), c.minutes),
              c.expected)
        << c.what;
  }
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
    SCOPED_TRACE(::testing::Message() << c.count << " shots, " << c.pages.size() << " pages");
    ShotFixture f;
    f.Shots(c.count);
    f.ChooseMyLevel();
    for (ShotPage page : c.pages) PageShots(*f.main, page);
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
