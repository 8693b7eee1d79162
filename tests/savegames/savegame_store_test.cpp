// Copying and moving single savegames: each note goes where its savegame goes, and nothing but
// the savegame asked for disappears. Deleting and renumbering are checked by the random test.
#include <gtest/gtest.h>

#include "foundation/services/files.h"
#include "savegame_fixture.h"
#include "savegames/savegame_files.h"

namespace vardolin {
namespace {

using testing::ReadFile;

struct SavegameStore : ::testing::Test, testing::SavegameFixture {};

TEST_F(SavegameStore, CopyAndMoveTakeTheNoteAlong) {
  struct Case {
    const char* what;
    bool source_note, destination_note, remove;
  } cases[] = {
      {"copy with note", true, false, false},
      {"move with note", true, false, true},
      {"copy without note over a savegame with one", false, true, false},
      {"move with note over a savegame with one", true, true, true},
      {"move without note", false, false, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const std::string round = std::to_string(&c - cases);
    const auto source = Put(Path("from" + round), 4, 40, c.source_note ? "source note" : "");
    const auto destination = Put(Path("to" + round), 9, 90, c.destination_note ? "old note" : "");
    const std::string bytes = ReadFile(source);
    ASSERT_TRUE(CopySavegame(program, source, destination, c.remove));
    EXPECT_EQ(ReadFile(destination), bytes);
    // Without a note of its own the source copies none: the destination's note stays.
    EXPECT_EQ(ReadFile(SavegameNoteFile(program, destination)), c.source_note        ? "source note"
                                                                : c.destination_note ? "old note"
                                                                                     : "");
    EXPECT_EQ(FileExists(destination.parent_path() / savegame_files::kPartialCopyName), false);
    EXPECT_EQ(FileExists(source), !c.remove);
    EXPECT_EQ(FileExists(SavegameNoteFile(program, source)), c.source_note && !c.remove);
  }
}

}  // namespace
}  // namespace vardolin
