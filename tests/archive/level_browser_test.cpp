#include <gtest/gtest.h>

#include "browser_fixture.h"
#include "cd/dialog_insert_cd.h"
#include "play/active_level.h"
#include "window/principale_levels.h"

namespace vardolin {
namespace {

using testing::BrowserFixture;
using testing::WriteBytes;
namespace fs = std::filesystem;

const std::vector<std::string> kNames = {"Base level", "Alpha Ruins", "beta Temple", "Gamma RUINS",
                                         "Zeta"};

TEST(LevelSearch, FindNextAndPreviousFollowTheTextOrTheList) {
  struct Case {
    int start;
    std::string text;
    SearchWay way;
    int expected;
    bool told;
  };
  // Rows: 0 Alpha Ruins, 1 Base level (*), 2 beta Temple, 3 Gamma RUINS, 4 Zeta.
  using enum SearchWay;
  const Case cases[] = {
      {3, "", FromTop, 0, false},       {0, "", Up, 0, false},
      {4, "ruins", FromTop, 0, false},  {4, " TEMPLE ", FromTop, 2, false},
      {0, "ruins", Down, 3, false},     {3, "RuInS", Up, 0, false},
      {2, "nothing", FromTop, 2, true}, {2, "(*)", Up, 1, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(&c - cases);
    BrowserFixture f(kNames);
    RefreshLevelList(*f.main);
    f.main->Combo_Livelli.SetListIndex(c.start);
    f.main->Text_Search.SetText(c.text);
    if (c.told) f.ui.Answer(msg::kOk, "No level name holds");
    Button& button = c.way == SearchWay::FromTop ? f.main->Pul_Search
                     : c.way == SearchWay::Down  ? f.main->Pul_Dopo
                                                 : f.main->Pul_Prima;
    button.Click();
    EXPECT_EQ(f.main->Combo_Livelli.ListIndex(), c.expected);
  }
}

TEST(LevelSummary, CountsShotsAndSavegamesFromTheDisk) {
  BrowserFixture f(kNames);
  const fs::path level = f.Folder(1);
  for (const char* shot : {"a.jpg", "b.JPG", "c.bmp", "notes.txt"})
    WriteBytes(level / "screenshots" / shot, "x");
  // Archived savegames lie in sets below the archive root, beside their note files.
  WriteBytes(level / "savegames" / "set1" / "savegame.3", "x");
  WriteBytes(level / "savegames" / "set2" / "savegame.7", "x");
  WriteBytes(level / "savegames" / "set2" / "note_7.txt", "x");
  // The active level's slots are the editor folder's, not its play folder's.
  WriteBytes(level / "play" / "savegame.0", "x");
  WriteBytes(level / "play" / "SAVEGAME.1", "x");
  WriteBytes(f.editor / "savegame.4", "x");
  f.MarkActive(1);
  RefreshLevelList(*f.main);
  f.main->Combo_Livelli.SetListIndex(f.main->Combo_Livelli.FindData(1));
  EXPECT_EQ(f.main->Label_InfoDir.Caption(),
            "Folder: \"" + level.string() +
                "\"\r\nScreenshots: 3     Savegames (archived + current): 2 + 1");
  EXPECT_EQ(f.main->Label_InfoLevel.Caption(), "note of 1");
}

TEST(MoreInfo, OpensTheFileAndCopiesItFromTheCdOnce) {
  BrowserFixture f(kNames);
  RefreshLevelList(*f.main);
  LevelRecord& cd_level = f.program.catalogue.levels[3];
  cd_level.CdNumber = 1;
  cd_level.MoreInfoFile = "Readme.HTM";
  // A CD in a drive keeps its levels one folder deep.
  const fs::path cd = f.Path("cdrom");
  WriteBytes(cd / "VARDO" / "LEVEL_0003" / "files" / "ruins.tr4", "tr4");
  WriteBytes(cd / "VARDO" / "LEVEL_0003" / "info" / "readme.htm", "<html>");
  WriteBytes(cd / "VARDO" / "LEVEL_0003" / "info" / "map.jpg", "jpg");
  WriteBytes(cd / "VARDO" / "LEVEL_0003" / "info" / "other.txt", "txt");
  f.platform.optical = {{"sr0", "/dev/sr0", "11:0"}};
  f.platform.optical_status["/dev/sr0"] = kCdStatusDiscOk;
  f.platform.mountinfo = "40 1 11:0 / " + cd.string() + " ro - iso9660 /dev/sr0 ro\n";
  InstallCdLevels(f.program);

  f.Choose("Gamma RUINS");
  f.main->Pul_MoreInfo.Click();
  EXPECT_EQ(f.platform.calls,
            (std::vector<std::string>{
                "status /dev/sr0",
                "open " + (cd / "VARDO" / "LEVEL_0003" / "info" / "readme.htm").string()}));
  // The page took its picture along, and nothing else.
  const fs::path copied = f.Folder(3) / "info";
  EXPECT_TRUE(fs::exists(copied / "readme.htm"));
  EXPECT_TRUE(fs::exists(copied / "map.jpg"));
  EXPECT_FALSE(fs::exists(copied / "other.txt"));

  // The next time the copy on hard disk is opened, even with the CD gone.
  f.platform.optical.clear();
  f.main->Pul_MoreInfo.Click();
  EXPECT_EQ(f.platform.calls.back(), "open " + (copied / "readme.htm").string());
}

}  // namespace
}  // namespace vardolin
