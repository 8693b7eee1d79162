// The header reader and the names built from a savegame's path: the game's files as it writes
// them, and the damaged ones a crash of the game leaves.
#include <gtest/gtest.h>

#include "archive/text_ids.h"
#include "foundation/services/files.h"
#include "foundation/services/wildcard.h"
#include "savegame_fixture.h"
#include "savegames/text_ids.h"

namespace vardolin {
namespace {

using testing::GameSavegameBytes;

std::string WithNumberAt75(std::string head, int number) {
  head.resize(75, ' ');
  return head + static_cast<char>(number & 0xFF) + static_cast<char>((number >> 8) & 0xFF);
}

TEST(SavegameHeader, ReadsTitleAndSaveNumberAndTellsASavegame) {
  struct Case {
    const char* what;
    std::string bytes;
    bool readable;
    std::string title;
    int number;
    bool game;  // taken in by an import
  } cases[] = {
      {"as the game writes it", GameSavegameBytes(12, "The Tomb"), true, "The Tomb", 12, true},
      {"title ends at the first comma", WithNumberAt75("Karnak, part 2,", 3), true, "Karnak", 3,
       true},
      {"title ends at a line end", WithNumberAt75("  Cairo  \r\nrest", 4), true, "Cairo", 4, true},
      {"title without an end runs to 75 bytes", WithNumberAt75(std::string(80, 'x'), 5), true,
       std::string(75, 'x'), 5, false},
      {"negative save number", GameSavegameBytes(-2, "Odd"), true, "Odd", -2, false},
      {"ANSI title becomes UTF-8", WithNumberAt75("Caf\xE9,", 7), true, "Caf\xC3\xA9", 7, true},
      {"control bytes in the title", WithNumberAt75("ab\1cd,", 3), true, "ab\1cd", 3, false},
      {"no title", WithNumberAt75(",", 3), true, "", 3, false},
      {"empty file", "", false, "", 0, false},
      {"short file", std::string(40, 'a'), false, "", 0, false},
      {"one byte short of the number", WithNumberAt75("T,", 9).substr(0, 76), false, "", 0, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const SavegameHeader header = ParseSavegameHeader(c.bytes);
    EXPECT_EQ(header.readable, c.readable);
    EXPECT_EQ(header.title, c.title);
    EXPECT_EQ(header.save_number, c.number);
    EXPECT_EQ(IsGameSavegame(c.bytes), c.game);
  }
}

struct StoreNames : ::testing::Test, testing::SavegameFixture {};

TEST_F(StoreNames, SlotNumbersAndNotes) {
  struct Slot {
    const char* path;
    int slot;
  } slots[] = {{"/a/savegame.14", 14}, {"/a/SAVEGAME.7", 7},           {"/a/savegame.x", 0},
               {"/a.b/savegame", 0},   {"/a/savegame.99999999999", 0}, {"/a/b.c.12", 12}};
  for (const Slot& s : slots) EXPECT_EQ(SlotNumberOf(s.path), s.slot) << s.path;

  const auto note = SavegameNoteFile(program, "/x/play/savegame.12");
  EXPECT_EQ(note.parent_path(), "/x/play");
  // A note must not look like a savegame to either listing.
  EXPECT_EQ(note.filename().string().find(program.GetText(text::ArchivedSavegameMark)),
            std::string::npos);
  EXPECT_FALSE(WildcardMatch(note.filename().string(), "savegame.*"));
}

}  // namespace
}  // namespace vardolin
