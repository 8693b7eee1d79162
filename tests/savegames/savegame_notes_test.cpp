#include <gtest/gtest.h>

#include "foundation/services/files.h"
#include "savegame_panel_fixture.h"
#include "web/dialog_input_testo.h"

namespace vardolin {
namespace {

using testing::SavegamePanelFixture;
namespace fs = std::filesystem;

constexpr int kCtrl = 2;

TEST(SavegameNotes, TheEditedNoteIsWrittenOrRemoved) {
  struct Case {
    std::string before;
    std::function<void(Dialog_InputTesto&)> act;
    bool note_file;
    std::string after;
  };
  auto type = [](std::string text) {
    return [text](Dialog_InputTesto& d) {
      d.Text1.SetText(text);
      d.Pul_Ok.Click();
    };
  };
  const Case cases[] = {
      {"", type("Boss beaten\r\nnext: the lever"), true, "Boss beaten\r\nnext: the lever"},
      {"old", type("   "), false, ""},
      {"old",
       [](Dialog_InputTesto& d) {
         d.Pul_Svuota.Click();
         d.Pul_Ok.Click();
       },
       false, ""},
      {"old", [](Dialog_InputTesto& d) { d.Pul_Annulla.Click(); }, true, "old"},
  };
  for (const Case& c : cases) {
    SavegamePanelFixture f;
    const auto set = f.FillSet(1, 1, {1});
    if (!c.before.empty()) f.WriteNote(set[0], c.before);
    f.ChooseLevel(1);
    f.main->List_SaveGameArchiviati.SetListIndex(0);
    std::string shown;
    f.ui.OnForm("Dialog_InputTesto", [&](Form& form) {
      auto& dialog = static_cast<Dialog_InputTesto&>(form);
      shown = dialog.Testo();
      c.act(dialog);
    });
    f.main->Text_NoteSaveGame.Click();
    EXPECT_EQ(shown, c.before);
    EXPECT_EQ(FileExists(SavegameNoteFile(f.program, set[0])), c.note_file);
    EXPECT_EQ(f.Note(set[0]), c.after);
  }
}

// Rows of the archived list and their notes: 0 "key found", 1 "nothing", 2 "the KEY here",
// 3 without a note.
struct SearchFixture : SavegamePanelFixture {
  SearchFixture() {
    const auto set = FillSet(1, 1, {1, 2, 3, 4});
    WriteNote(set[0], "key found");
    WriteNote(set[1], "nothing");
    WriteNote(set[2], "the KEY here");
    ChooseLevel(1);
  }
};

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
      {"key", 0, 'N', "", 2, false},
      {"key", 2, 'N', "", 0, false},
      {"key", 2, 'P', "", 0, false},
      {"key", 0, 'P', "", 2, false},
      {"key", -1, 'N', "", 0, false},
      {"here", 2, 'N', "", 2, true},  // found only in the current row
      {"absent", 1, 'P', "", 1, true},
      {"", 1, 'P', "", 1, false},       // no search text: Ctrl+P does nothing
      {"", 3, 'N', "found", 0, false},  // no search text: Ctrl+N asks as Ctrl+F
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(1, static_cast<char>(c.key)) + " " + c.search_text);
    SearchFixture f;
    f.main->Savegames.search_text = c.search_text;
    f.main->List_SaveGameArchiviati.SetListIndex(c.start_row);
    if (!c.typed.empty()) f.ui.Input(c.typed, f.program.GetText(text::FindNotePrompt));
    if (c.not_found) f.ui.Answer(msg::kOk, f.program.GetText(text::FindNoteNotFound));
    f.main->KeyDown(c.key, kCtrl);
    EXPECT_EQ(f.main->List_SaveGameArchiviati.ListIndex(), c.expected_row);
  }
}

TEST(SavegameNotes, SearchingAnEmptyListSaysSoAndPlainKeysDoNothing) {
  struct Case {
    std::string search_text;
    int key, shift;
    std::int32_t told;  // 0: nothing said
  };
  const Case cases[] = {
      {"", 'F', kCtrl, text::FindNoteEmptyList},
      {"x", 'N', kCtrl, text::FindNextNoteEmptyList},
      {"x", 'P', kCtrl, text::FindPreviousNoteEmptyList},
      {"", 'P', kCtrl, 0},
      {"x", 'F', 0, 0},
      {"x", 'N', kCtrl | 1, 0},
  };
  for (const Case& c : cases) {
    SavegamePanelFixture f;
    f.ChooseLevel(2);
    f.main->Savegames.search_text = c.search_text;
    if (c.told) f.ui.Answer(msg::kOk, f.program.GetText(c.told));
    f.main->KeyDown(c.key, c.shift);
  }
}

TEST(SavegameMenus, SaveAsCopiesTheSavegameUnlessAZipIsAsked) {
  struct Case {
    std::string chosen;  // relative to the test's folder; empty: cancelled
    bool copied, told;
  };
  const Case cases[] = {
      {"out/copy of save", true, false},
      {"", false, false},
      {"out/saves.ZIP", false, true},
  };
  for (const Case& c : cases) {
    SavegamePanelFixture f;
    const auto slots = f.FillSlots(1, {8});
    f.ChooseLevel(1);
    f.main->List_SaveGameTomb.SetListIndex(0);
    fs::create_directories(f.Path("out"));
    f.ui.SaveFile(c.chosen.empty() ? "" : f.Path(c.chosen).string());
    if (c.told) f.ui.Answer(msg::kOk, f.program.GetText(text::SaveSavegameZipLater));
    f.main->mnu_SalvaSavegame.Click();
    EXPECT_EQ(f.ui.Questions().front().text, "savegame.0") << "its own name is proposed";
    if (!c.chosen.empty())
      EXPECT_EQ(ReadWholeFile(f.Path(c.chosen)), c.copied ? ReadWholeFile(slots[0]) : "");
    EXPECT_TRUE(fs::exists(slots[0])) << "the savegame stays";
  }
}

TEST(SavegameMenus, PropertiesTellTheNoteTheFileAndThePicture) {
  SavegamePanelFixture f;
  const auto set = f.FillSet(1, 1, {1, 2});
  f.WriteNote(set[1], "n");
  f.ChooseLevel(1);
  for (int row : {0, 1}) {
    f.main->List_SaveGameArchiviati.SetListIndex(row);
    f.ui.Answer(msg::kOk, f.main->List_SaveGameArchiviati.SelectedText());
    f.main->mnu_PropertySavegame.Click();
    const std::string told = f.ui.Messages().back();
    EXPECT_NE(told.find(set[row].string()), std::string::npos);
    EXPECT_NE(told.find(f.program.GetText(text::SavegamePropertiesNoImage)), std::string::npos);
    const std::string note_part = row == 0
                                      ? f.program.GetText(text::SavegamePropertiesNoNote)
                                      : "\"" + SavegameNoteFile(f.program, set[1]).string() + "\"";
    EXPECT_NE(told.find(note_part), std::string::npos);
  }
}

}  // namespace
}  // namespace vardolin
