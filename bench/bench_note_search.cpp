// The note search (Ctrl+F) over a level with 5,000 archived savegames that all have a note, the
// text found only in the last row's note so that every note is read: against grep -ril over the
// same note files (goal <= 2). Both run in turns in each iteration.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "archive/level_store.h"
#include "bench_archive.h"
#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/program.h"
#include "foundation/texts/text_catalogue.h"
#include "savegames/savegame_store.h"
#include "window/principale.h"
#include "window/principale_levels.h"
#include "window/principale_savegames.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

constexpr int kSavegames = 5000;
constexpr int kSavegamesPerSet = 15;
constexpr const char* kNeedle = "Golden Mask";

struct Bench : bench::ProgramBench<> {
  std::vector<std::string> grep = {"grep", "-ril", "--", kNeedle};

  Bench() {
    bench::PrepareOneLevelProgram(program, root);
    const fs::path level = GetLevelFolder(program, 1, false);
    for (int i = 0; i < kSavegames; ++i) {
      const fs::path set = level / "savegames" / std::to_string(i / kSavegamesPerSet + 1);
      fs::create_directories(set);
      const fs::path savegame = set / ("savegame." + std::to_string(i % kSavegamesPerSet));
      std::string bytes = "My level, part " + std::to_string(i) + ",";
      bytes.resize(75, ' ');
      bytes += std::string(2, static_cast<char>(i % 100));
      bench::Write(savegame, bytes);
      const fs::path note = SavegameNoteFile(program, savegame);
      bench::Write(note, "Reached the hall of pillars with " + std::to_string(i % 40) +
                             " medipacks; the lever in the east room is still untouched.");
      grep.push_back(note.string());
    }
  }
};

void BM_FindSavegameNote(benchmark::State& state) {
  static Bench b;
  Principale main(b.program);
  RefreshLevelList(main);
  main.Combo_Livelli.SetListIndex(main.Combo_Livelli.FindData(1));
  ListBox& list = main.List_SaveGameArchiviati;
  if (list.ListCount() != kSavegames) return state.SkipWithError("savegames not listed");
  const int last = list.ListCount() - 1;
  const fs::path found = main.Savegames.archived[static_cast<std::size_t>(list.ItemData(last))];
  bench::Write(SavegameNoteFile(b.program, found), std::string("Found the ") + kNeedle);
  main.Savegames.search_text = "golden mask";
  bench::MeasurePair(state, "grep -ril",
                     {[&] {
                        list.SetListIndex(-1);
                        return true;
                      },
                      [&] {
                        FindSavegameNote(main, 1, 0);
                        return list.ListIndex() == last;
                      }},
                     {[] { return true; }, [&] { return bench::Run(b.grep); }});
}

BENCHMARK(BM_FindSavegameNote)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);

}  // namespace
}  // namespace vardolin

BENCHMARK_MAIN();
