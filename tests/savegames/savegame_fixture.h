#pragma once
// A program with an editor folder and an archive of four levels on disk, for the savegame store
// tests. No marker stands in the editor folder, so level 0 is the active one and its slots are the
// editor folder; every other level keeps its slots in its play folder.

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "archive/level_store.h"
#include "archive_fixture.h"
#include "savegame_bytes.h"
#include "savegames/savegame_header.h"
#include "savegames/savegame_store.h"

namespace vardolin::testing {

// One savegame as the tests know it: its bytes and its note ("" for none).
struct SavedGame {
  std::string bytes, note;
  auto operator<=>(const SavedGame&) const = default;
};

struct SavegameFixture : ArchiveFixture {
  SavegameFixture() {
    std::filesystem::create_directories(Path("trle"));
    program.prefs.EditorFolder = Path("trle").string();
    program.catalogue = SampleCatalogue(4, Path("archive").string());
  }

  // Writes savegame.<slot> with `number` as save number and, when given, its note.
  std::filesystem::path Put(const std::filesystem::path& folder, int slot, int number,
                            const std::string& note = {}, unsigned salt = 0) {
    const auto path = folder / ("savegame." + std::to_string(slot));
    WriteBytes(path, GameSavegameBytes(number, "Level " + std::to_string(number), salt, 200));
    if (!note.empty()) WriteBytes(SavegameNoteFile(program, path), note);
    return path;
  }
  // Fills slots 0.. with the given save numbers, each with the note "n<number>".
  void Fill(const std::filesystem::path& folder, const std::vector<int>& numbers) {
    for (std::size_t i = 0; i < numbers.size(); ++i)
      Put(folder, static_cast<int>(i), numbers[i], "n" + std::to_string(numbers[i]));
  }
  int Number(const std::filesystem::path& savegame) {
    std::string title;
    return ReadSavegameHeader(program, savegame, title);
  }
  // Save numbers by slot number, checking on the way that each note names its savegame's number.
  std::vector<int> Numbers(const std::filesystem::path& folder) {
    std::vector<std::pair<int, int>> bySlot;
    for (const auto& file : ListSavegames(program, folder)) {
      const int number = Number(file);
      const std::string note = ReadFile(SavegameNoteFile(program, file));
      if (!note.empty()) {
        EXPECT_EQ(note, "n" + std::to_string(number)) << file;
      }
      bySlot.emplace_back(SlotNumberOf(file.string()), number);
    }
    std::sort(bySlot.begin(), bySlot.end());
    std::vector<int> out;
    for (std::size_t i = 0; i < bySlot.size(); ++i) {
      EXPECT_EQ(bySlot[i].first, static_cast<int>(i)) << "gap in " << folder;
      out.push_back(bySlot[i].second);
    }
    return out;
  }
  std::filesystem::path SlotsOf(std::int32_t code) { return SlotFolder(program, code); }
  std::filesystem::path Set(std::int32_t code, int k) { return ArchiveSetFolder(program, code, k); }

  // Every savegame under the folders with its note, as a sorted list.
  std::vector<SavedGame> Everything(std::int32_t code) {
    auto files = ListSavegames(program, SlotsOf(code));
    for (const auto& file : ListArchivedSavegames(program, code)) files.push_back(file);
    std::vector<SavedGame> out;
    for (const auto& file : files)
      out.push_back({ReadFile(file), ReadFile(SavegameNoteFile(program, file))});
    std::sort(out.begin(), out.end());
    return out;
  }
  std::set<SavedGame> Distinct(std::int32_t code) {
    const auto all = Everything(code);
    return {all.begin(), all.end()};
  }
};

}  // namespace vardolin::testing
