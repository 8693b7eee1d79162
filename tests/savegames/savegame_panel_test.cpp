#include <gtest/gtest.h>

#include <algorithm>

#include "savegame_panel_fixture.h"

namespace vardolin {
namespace {

using testing::SavegamePanelFixture;
namespace fs = std::filesystem;

std::vector<int> Sorted(std::vector<int> v) {
  std::sort(v.begin(), v.end());
  return v;
}

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
    EXPECT_EQ(Sorted(f.Numbers(slots)), Sorted({c.slots.begin(), c.slots.end()}));
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
    bool archived;
    std::string note;
  };
  const Case cases[] = {
      {&tomb, tomb.FindData(1), slots[1], false, "slot note"},
      {&archive, 0, set[0], true, "archived note"},
      {&tomb, tomb.FindData(0), slots[0], false, ""},
      {&archive, 1, set[1], true, ""},
  };
  for (const Case& c : cases) {
    c.list->SetListIndex(c.row);
    ListBox& other = c.list == &tomb ? archive : tomb;
    EXPECT_EQ(other.ListIndex(), -1) << "a click in one list clears the other";
    int index = -2;
    bool archived = !c.archived;
    EXPECT_EQ(fs::canonical(GetSelectedSavegame(*f.main, &index, &archived)), c.path);
    EXPECT_EQ(index, c.row);
    EXPECT_EQ(archived, c.archived);
    EXPECT_EQ(f.main->Text_NoteSaveGame.Text(), c.note);
  }
  archive.SetListIndex(-1);
  f.ui.Answer(msg::kOk, f.program.GetText(text::SavegameNoneSelected));
  EXPECT_TRUE(GetSelectedSavegame(*f.main).empty());
  f.ChooseLevel(2);
  EXPECT_EQ(f.main->Text_NoteSaveGame.Text(), "") << "another level clears the panel";
}

TEST(SavegamePanel, ArchivingAndRestoringRefreshTheLists) {
  SavegamePanelFixture f;
  f.FillSlots(1, {4, 5, 6});
  f.ChooseLevel(1);
  f.main->Pul_ArchiviaSavegames.Click();
  EXPECT_EQ(f.Numbers(f.main->List_SaveGameTomb), (std::vector<int>{6}));
  EXPECT_EQ(f.Numbers(f.main->List_SaveGameArchiviati), (std::vector<int>{4, 5, 6}));

  f.ui.Answer(msg::kOk, f.program.GetText(text::RestoreSavegamesDone));
  f.main->mnu_RestoreSavegames.Click();
  EXPECT_EQ(f.Numbers(f.main->List_SaveGameTomb).size(), 3u);
  EXPECT_EQ(f.Numbers(f.main->List_SaveGameArchiviati), (std::vector<int>{}));

  f.ui.Answer(msg::kOk, f.program.GetText(text::ArchiveSavegamesDone));
  f.main->mnu_BackupSavegame.Click();
  EXPECT_EQ(f.Numbers(f.main->List_SaveGameTomb), (std::vector<int>{6}));
  EXPECT_EQ(f.SlotNumbers(SlotFolder(f.program, 1)), (std::vector<int>{6}));
}

}  // namespace
}  // namespace vardolin
