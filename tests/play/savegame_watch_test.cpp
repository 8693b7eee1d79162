// The watcher's savegame steps with a real stand-in game that saves until its slots are full,
// and F9 and F11 pressed while it runs: not one savegame may be lost on the way.
#include <gtest/gtest.h>

#include "play/active_level.h"
#include "play_fixture.h"
#include "savegame_bytes.h"
#include "savegames/savegame_store.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using testing::ReadFile;

constexpr int kF9 = 120;
constexpr int kF11 = 122;
using Beeps = std::vector<std::pair<int, int>>;

// The real processes of LinuxPlatform with held keys the test sets and a beep that is recorded.
class KeyFakePlatform : public LinuxPlatform {
 public:
  std::set<int> held;
  Beeps beeps;
  bool IsKeyDown(int virtual_key) override { return held.count(virtual_key) > 0; }
  void Beep(int frequency_hz, int milliseconds) override {
    beeps.emplace_back(frequency_hz, milliseconds);
  }
};

struct WatchFixture : testing::BasicPlayFixture<KeyFakePlatform> {
  int commands_sent = 0;

  WatchFixture() : BasicPlayFixture({"Base level", "Beta", "Gamma"}) {}

  // Sends lines to the game and waits until it has done them all.
  bool Tell(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    BasicPlayFixture::Tell(text);
    commands_sent += static_cast<int>(lines.size());
    return testing::WaitFor([&] {
      const std::string done = ReadFile(editor / "standin_done.txt");
      return std::count(done.begin(), done.end(), '\n') >= commands_sent;
    });
  }
};

std::vector<int> Range(int from, int to) {
  std::vector<int> numbers;
  for (int n = from; n <= to; ++n) numbers.push_back(n);
  return numbers;
}
std::vector<std::string> Saves(int from, int to) {
  std::vector<std::string> lines;
  for (int n : Range(from, to)) lines.push_back("save " + std::to_string(n) + " Beta");
  return lines;
}

// Save numbers by the savegame's whole content, so that a savegame is known wherever it went.
int SaveNumberOf(const fs::path& file) {
  const std::string bytes = ReadFile(file);
  for (int n = 0; n < kSavegameSlots; ++n)
    if (bytes == testing::GameSavegameBytes(n, "Beta")) return n;
  return -1;
}

// The slots, in slot order; a gap in the numbering shows as -2.
std::vector<int> SlotSaves(WatchFixture& f) {
  std::vector<int> saves;
  const std::size_t files = ListSavegames(f.program, f.editor).size();
  for (int slot = 0; saves.size() < files && slot < kSavegameSlots; ++slot) {
    const fs::path file = f.editor / ("savegame." + std::to_string(slot));
    saves.push_back(fs::exists(file) ? SaveNumberOf(file) : -2);
  }
  return saves;
}

// Each archive set of Beta that holds something, its save numbers in ascending order.
std::vector<std::vector<int>> ArchivedSaves(WatchFixture& f, std::int32_t code) {
  std::vector<std::vector<int>> sets;
  for (std::int32_t set = 1; set < NextArchiveSet(f.program, code); ++set) {
    std::vector<int> saves;
    for (const fs::path& file : ListSavegames(f.program, ArchiveSetFolder(f.program, code, set)))
      saves.push_back(SaveNumberOf(file));
    std::sort(saves.begin(), saves.end());
    if (!saves.empty()) sets.push_back(saves);
  }
  return sets;
}

TEST(SavegameWatch, FullSlotsF9AndF11MoveTheActiveLevelsSavegamesAndLoseNone) {
  WatchFixture f;
  f.program.prefs.ArchiveSavegames = true;
  f.program.prefs.SavegamesToArchive = 5;
  f.Choose("Beta");
  f.main->Pul_Play.Click();
  ASSERT_TRUE(f.program.GameRunning);
  ASSERT_TRUE(testing::WaitFor([&] { return fs::exists(f.editor / "standin_started.txt"); }));
  const std::int32_t beta = 1;
  ASSERT_EQ(GetActiveLevelCode(f.program), beta);
  // The user looks at another level while playing; the steps still act on the one played.
  f.Choose("Gamma");

  struct Case {
    const char* what;
    std::vector<std::string> game_does;
    std::set<int> keys;
    std::vector<int> slots;
    std::vector<std::vector<int>> sets;
    Beeps beeps;
  };
  const std::vector<Case> cases = {
      {"14 savegames leave the slots alone", Saves(0, 13), {}, Range(0, 13), {}, {}},
      {"the 15th fills them: the 5 oldest go to a set, the rest move down",
       Saves(14, 14),
       {},
       Range(5, 14),
       {Range(0, 4)},
       {{300, 100}, {100, 150}}},
      {"F9 archives the slots; the newest stays in slot 0",
       {},
       {kF9},
       {14},
       {Range(0, 4), Range(5, 14)},
       {{200, 150}}},
      {"F11 brings the newest set back into the free slots",
       {},
       {kF11},
       Range(5, 14),
       {Range(0, 4)},
       {{200, 150}}},
  };
  int written = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ASSERT_TRUE(f.Tell(c.game_does));
    f.platform.held = c.keys;
    f.platform.beeps.clear();
    f.main->Timer1.Tick();
    f.platform.held.clear();
    ASSERT_TRUE(f.program.GameRunning);
    EXPECT_EQ(SlotSaves(f), c.slots);
    const auto sets = ArchivedSaves(f, beta);
    EXPECT_EQ(sets, c.sets);
    EXPECT_EQ(f.platform.beeps, c.beeps);
    EXPECT_TRUE(ArchivedSaves(f, 2).empty()) << "nothing goes to the level being browsed";
    std::set<int> kept(c.slots.begin(), c.slots.end());
    for (const std::vector<int>& set : sets) kept.insert(set.begin(), set.end());
    written += static_cast<int>(c.game_does.size());
    EXPECT_EQ(kept.size(), static_cast<std::size_t>(written)) << "a savegame was lost";
  }

  f.EndGame();
  ASSERT_TRUE(f.TickUntilEnded());
}

}  // namespace
}  // namespace vardolin
