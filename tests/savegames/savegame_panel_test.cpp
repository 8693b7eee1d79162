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
  SavegamePanelFixture f;
  EXPECT_EQ(SlotFolder(f.program, 0), fs::path(f.program.prefs.EditorFolder));
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

TEST(SavegamePanel, RightPressesOpenTheMenuThatFits) {
  struct Case {
    const char* control;
    int tomb_row, archive_row, button;
    const char* popped;
  };
  const Case cases[] = {
      {"List_SaveGameTomb", 0, -1, 2, "mnu_SaveGameHid2"},
      {"List_SaveGameArchiviati", -1, 0, 2, "mnu_SaveGameHid2"},
      {"List_SaveGameTomb", -1, -1, 2, ""},
      {"List_SaveGameTomb", 0, -1, 4, ""},
      {"Image_SaveGame", -1, 0, 2, "mnu_SaveGameHid"},
      {"Image_SaveGame", 0, -1, 2, "mnu_Edit"},
      {"Image_SaveGame", -1, -1, 2, "mnu_Edit"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.control);
    SavegamePanelFixture f;
    f.FillSlots(1, {5});
    f.FillSet(1, 1, {1});
    f.ChooseLevel(1);
    std::string popped;
    for (Menu* menu : {&f.main->mnu_SaveGameHid, &f.main->mnu_SaveGameHid2, &f.main->mnu_Edit})
      menu->Subscribe([&popped](Control& m, Change change) {
        if (change == Change::Popup) popped = m.Name();
      });
    f.main->List_SaveGameTomb.SetListIndex(c.tomb_row);
    f.main->List_SaveGameArchiviati.SetListIndex(c.archive_row);
    if (auto* list = f.main->Find<ListBox>(c.control))
      list->MouseDown(c.button);
    else
      f.main->Image_SaveGame.MouseDown(c.button);
    EXPECT_EQ(popped, c.popped);
  }
}

TEST(SavegamePanel, DeletingClosesTheGapAndKeepsTheArchivedSelection) {
  struct Case {
    bool archived;
    int row;  // slot number for a slot savegame, row for an archived one
    int answer;
    std::vector<int> slots, archived_rows;
    int selected_after;
  };
  const Case cases[] = {
      {false, 3, msg::kYes, {10, 11, 12, 14}, {1, 2, 3}, -1},
      {true, 2, msg::kYes, {10, 11, 12, 13, 14}, {1, 2}, 1},
      {true, 0, msg::kYes, {10, 11, 12, 13, 14}, {2, 3}, 0},
      {true, 1, msg::kNo, {10, 11, 12, 13, 14}, {1, 2, 3}, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.row);
    SavegamePanelFixture f;
    const auto slots = f.FillSlots(1, {10, 11, 12, 13, 14});
    for (const fs::path& slot : slots) f.WriteNote(slot, "note of " + slot.filename().string());
    f.FillSet(1, 1, {1, 2, 3});
    f.ChooseLevel(1);
    ListBox& list = c.archived ? f.main->List_SaveGameArchiviati : f.main->List_SaveGameTomb;
    list.SetListIndex(c.archived ? c.row : list.FindData(c.row));
    f.ui.Answer(c.answer, list.SelectedText() + "] ?");
    f.main->Pul_DeleteSavegame.Click();
    const fs::path folder = SlotFolder(f.program, 1);
    EXPECT_EQ(f.SlotNumbers(folder), c.slots);
    EXPECT_EQ(f.Numbers(f.main->List_SaveGameArchiviati), c.archived_rows);
    EXPECT_EQ(f.main->List_SaveGameArchiviati.ListIndex(), c.selected_after);
    if (!c.archived) EXPECT_EQ(f.Note(folder / "savegame.3"), "note of savegame.4");
  }
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

namespace vardolin {
namespace {

// The picture beside a selected savegame is the screenshot of its time; choosing another one
// through the panel's button makes that one the savegame's picture from then on.
TEST(SavegamePanel, ThePictureFollowsTheSavegamesTimeAndTheChoice) {
  testing::SavegamePanelFixture f;
  f.program.prefs.AssociationMinutes = 10;
  const auto set = f.FillSet(1, 1, {1});
  const fs::path shots = ShotFolder(f.program, 1);
  const auto at = [](int minutes) {
    return fs::file_time_type::clock::now() - std::chrono::hours(24) +
           std::chrono::minutes(minutes);
  };
  fs::last_write_time(set[0], at(0));
  const struct {
    const char* name;
    int minutes;
  } pictures[] = {{"near.jpg", 9}, {"far.jpg", 40}};
  fs::create_directories(shots);
  for (const auto& p : pictures) {
    fs::copy_file(f.Path("home/no_image.jpg"), shots / p.name);
    fs::last_write_time(shots / p.name, at(p.minutes));
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
