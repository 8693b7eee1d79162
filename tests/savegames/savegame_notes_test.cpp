#include <gtest/gtest.h>

#include "savegame_panel_fixture.h"

namespace vardolin {
namespace {

constexpr int kCtrl = 2;

TEST(SavegameNotes, SearchKeysWalkRoundTheArchivedNotes) {
  struct Case {
    std::string search_text;
    int start_row, key;
    std::string typed;  // answer to Ctrl+F's question; empty: not asked
    int expected_row;
    bool not_found;
  };
  const Case cases[] = {
      {"", -1, 'F', "key", 0, false},
      {"key", 2, 'F', "KEY", 0, false},  // Ctrl+F starts at the top
      {"key", 2, 'N', "", 0, false},
      {"key", 0, 'P', "", 2, false},
      {"here", 2, 'N', "", 2, true},    // found only in the current row
      {"", 1, 'P', "", 1, false},       // no search text: Ctrl+P does nothing
      {"", 3, 'N', "found", 0, false},  // no search text: Ctrl+N asks as Ctrl+F
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(1, static_cast<char>(c.key)) + " " + c.search_text);
    testing::SavegamePanelFixture f;
    // Archived rows 0 to 3; the last has no note.
    const auto set = f.FillSet(1, 1, {1, 2, 3, 4});
    const char* notes[] = {"key found", "nothing", "the KEY here"};
    for (int i : {0, 1, 2}) f.WriteNote(set[i], notes[i]);
    f.ChooseLevel(1);
    f.main->Savegames.search_text = c.search_text;
    f.main->List_SaveGameArchiviati.SetListIndex(c.start_row);
    if (!c.typed.empty()) f.ui.Input(c.typed, f.program.GetText(text::FindNotePrompt));
    if (c.not_found) f.ui.Answer(msg::kOk, f.program.GetText(text::FindNoteNotFound));
    f.main->KeyDown(c.key, kCtrl);
    EXPECT_EQ(f.main->List_SaveGameArchiviati.ListIndex(), c.expected_row);
  }
}

// The savegames in the slots are searched first, then the archived ones, round again; a row
// found in one list takes the selection from the other.
TEST(SavegameNotes, TheSearchTakesInTheSavegamesInTheSlots) {
  testing::SavegamePanelFixture f;
  f.WriteNote(f.FillSlots(1, {1, 2})[1], "the key in slot 2");
  f.WriteNote(f.FillSet(1, 1, {1})[0], "an archived key");
  f.ChooseLevel(1);
  f.ui.Input("key");
  const std::tuple<char, int, int> steps[] = {{'F', 1, -1}, {'N', -1, 0}, {'N', 1, -1}};
  for (const auto& [key, slot_row, archived_row] : steps) {
    f.main->KeyDown(key, kCtrl);
    EXPECT_EQ(f.main->List_SaveGameTomb.ListIndex(), slot_row) << key;
    EXPECT_EQ(f.main->List_SaveGameArchiviati.ListIndex(), archived_row) << key;
  }
}

}  // namespace
}  // namespace vardolin
