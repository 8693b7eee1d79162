#include <gtest/gtest.h>

#include "savegame_panel_fixture.h"

namespace vardolin {
namespace {

using testing::SavegamePanelFixture;
namespace fs = std::filesystem;

TEST(SavegamePanel, ListsTheChosenLevelsSlotsAndArchiveSets) {
  struct Case {
    std::int32_t code;
    std::vector<std::int16_t> slots, set1, set2;
    std::vector<int> archived_rows;  // save numbers, in the list's order
  };
  const Case cases[] = {
      {1, {5, 9, 7}, {3, 1}, {2}, {1, 2, 3}},
      {0, {4}, {12, 10}, {}, {10, 12}},  // the active level: its slots are the editor folder's
      {2, {}, {}, {}, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.code);
    SavegamePanelFixture f;
    f.FillSlots(c.code, c.slots);
    f.FillSet(c.code, 1, c.set1);
    f.FillSet(c.code, 2, c.set2);
    testing::WriteBytes(ArchiveRoot(f.program, c.code) / "readme.txt", "not a savegame");
    f.ChooseLevel(c.code);
    const ListBox& slots = f.main->List_SaveGameTomb;
    EXPECT_EQ(slots.ListCount(), static_cast<int>(c.slots.size()));
    for (int row = 0; row < slots.ListCount(); ++row)
      EXPECT_EQ(c.slots[slots.ItemData(row)], f.Numbers(slots)[row]) << "item data is the slot";
    EXPECT_EQ(f.Numbers(f.main->List_SaveGameArchiviati), c.archived_rows);
  }
}

TEST(SavegamePanel, SelectionComesFromOneListAndShowsItsNote) {
  SavegamePanelFixture f;
  const auto slots = f.FillSlots(1, {5, 9});
  const auto set = f.FillSet(1, 1, {1, 3});
  f.WriteNote(slots[1], "slot note");
  f.WriteNote(set[0], "archived note");
  f.ChooseLevel(1);
  ListBox& tomb = f.main->List_SaveGameTomb;
  ListBox& archive = f.main->List_SaveGameArchiviati;
  struct Case {
    ListBox* list;
    int row;
    fs::path path;
    std::string note;
  };
  const Case cases[] = {
      {&tomb, tomb.FindData(1), slots[1], "slot note"},
      {&archive, 0, set[0], "archived note"},
      {&tomb, tomb.FindData(0), slots[0], ""},
  };
  for (const Case& c : cases) {
    c.list->SetListIndex(c.row);
    ListBox& other = c.list == &tomb ? archive : tomb;
    EXPECT_EQ(other.ListIndex(), -1) << "a click in one list clears the other";
    int index = -2;
    bool archived = c.list == &tomb;
    EXPECT_EQ(fs::canonical(GetSelectedSavegame(*f.main, &index, &archived)), c.path);
    EXPECT_EQ(index, c.row);
    EXPECT_EQ(archived, c.list == &archive);
    EXPECT_EQ(f.main->Text_NoteSaveGame.Text(), c.note);
  }
  f.ChooseLevel(2);
  EXPECT_EQ(f.main->Text_NoteSaveGame.Text(), "") << "another level clears the panel";
}

TEST(SavegamePanel, RestoringOneArchivedSavegameKeepsThePairOnShow) {
  SavegamePanelFixture f;
  f.FillSlots(1, {7});
  f.FillSet(1, 1, {1, 2});
  fs::create_directories(ShotFolder(f.program, 1));
  for (const char* shot : {"a.jpg", "b.jpg", "c.jpg"})
    fs::copy_file(f.Path("home/no_image.jpg"), ShotFolder(f.program, 1) / shot);
  f.ChooseLevel(1);
  f.main->Pul_DopoScreenShot.Click();
  f.main->List_SaveGameArchiviati.SetListIndex(1);
  f.main->Pul_RestoreSaveGame.Click();
  EXPECT_EQ(f.SlotNumbers(SlotFolder(f.program, 1)), (std::vector<int>{2, 7}));
  EXPECT_EQ(f.Numbers(f.main->List_SaveGameArchiviati), (std::vector<int>{1, 2}));
  EXPECT_EQ(f.main->List_SaveGameArchiviati.ListIndex(), 1) << "kept";
  EXPECT_EQ(f.main->Shots.current, 2) << "the pair on show stays";
}

// The picture beside a selected savegame is the screenshot of its time; choosing another one
// through the panel's button makes that one the savegame's picture from then on.
TEST(SavegamePanel, ThePictureFollowsTheSavegamesTimeAndTheChoice) {
  SavegamePanelFixture f;
  f.program.prefs.AssociationMinutes = 10;
  const auto set = f.FillSet(1, 1, {1});
  const fs::path shots = ShotFolder(f.program, 1);
  const auto at = [](int minutes) {
    return fs::file_time_type::clock::now() - std::chrono::hours(24) +
           std::chrono::minutes(minutes);
  };
  fs::last_write_time(set[0], at(0));
  fs::create_directories(shots);
  for (const auto& [name, minutes] : {std::pair{"near.jpg", 9}, std::pair{"far.jpg", 40}}) {
    fs::copy_file(f.Path("home/no_image.jpg"), shots / name);
    fs::last_write_time(shots / name, at(minutes));
  }
  f.ChooseLevel(1);
  f.main->List_SaveGameArchiviati.SetListIndex(0);
  EXPECT_EQ(fs::path(f.main->Image_SaveGame.Picture()).filename(), "near.jpg");

  f.ui.OpenFile((shots / "far.jpg").string());
  f.main->Pul_ChangeScreenshot.Click();
  EXPECT_EQ(fs::path(f.main->Image_SaveGame.Picture()).filename(), "far.jpg");
  const auto gap = fs::last_write_time(shots / "far.jpg") - fs::last_write_time(set[0]);
  EXPECT_LT(std::chrono::abs(gap), std::chrono::seconds(1)) << "the chosen picture takes its date";
}

}  // namespace
}  // namespace vardolin
