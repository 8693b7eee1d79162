// Refreshing the main window's panels (AggiornaDatiLivello) for a level with 200 to 2,000
// screenshots and 500 archived savegames. The screenshot list is rebuilt from file dates at
// every refresh, so its cost must grow in step with the files; each figure is set against a
// plain std::filesystem walk over the same folders, with the date of every file read, in the
// same run.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "archive/level_store.h"
#include "bench_archive.h"
#include "bench_data.h"
#include "bench_program.h"
#include "foundation/pictures/picture_file.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/texts/text_catalogue.h"
#include "window/principale.h"
#include "window/principale_levels.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

constexpr int kArchivedSavegames = 500;
constexpr int kSavegamesPerSet = 15;

// A home, an archive with the base level and one level holding `shots` screenshots (dated a
// second apart, JPEG and BMP mixed) and the archived savegames in sets of 15.
struct Bench : bench::ProgramBench<> {
  fs::path level;

  explicit Bench(int shots) {
    bench::PrepareOneLevelProgram(program, root);
    level = GetLevelFolder(program, 1, false);
    const fs::path shot_folder = level / "screenshots";
    fs::create_directories(shot_folder);
    Bitmap picture = Bitmap::Make(32, 24);
    WritePictureFile(root / "one.jpg", picture, 60);
    WritePictureFile(root / "one.bmp", picture);
    const auto start = std::chrono::system_clock::now() - std::chrono::hours(24 * 30);
    for (int i = 0; i < shots; ++i) {
      const bool bmp = i % 5 == 0;
      const fs::path shot =
          shot_folder / (std::to_string(i + 1) + ") My level" + (bmp ? ".bmp" : ".jpg"));
      fs::copy_file(root / (bmp ? "one.bmp" : "one.jpg"), shot);
      // Dates out of the listing's order, so that the sorted insertion does real work.
      SetFileDateTime(shot, start + std::chrono::seconds((i * 7919) % (shots * 3)));
    }
    for (int i = 0; i < kArchivedSavegames; ++i) {
      const fs::path set = level / "savegames" / std::to_string(i / kSavegamesPerSet + 1);
      fs::create_directories(set);
      std::FILE* f =
          std::fopen((set / ("savegame." + std::to_string(i % kSavegamesPerSet))).c_str(), "wb");
      std::fputs("My level,\n", f);
      std::fclose(f);
    }
  }
};

void PerShot(benchmark::State& state, const char* reference) {
  state.counters["ns_per_shot"] = benchmark::Counter(
      static_cast<double>(state.range(0)) * 1e-9,
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.SetLabel(std::string("vs:") + reference);
}

void BM_AggiornaDatiLivello(benchmark::State& state) {
  Bench b(static_cast<int>(state.range(0)));
  Principale main(b.program);
  RefreshLevelList(main);
  main.Combo_Livelli.SetListIndex(main.Combo_Livelli.FindData(1));
  if (main.Shots.shots.Count() != state.range(0)) state.SkipWithError("shots not listed");
  for (auto _ : state) AggiornaDatiLivello(main, 0);
  PerShot(state, "BM_WalkLevelFolders");
}

// The reference: every file of the shot folder and of the savegame sets found and its date
// read, with nothing of the program around it.
void BM_WalkLevelFolders(benchmark::State& state) {
  Bench b(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::size_t seen = 0;
    for (const fs::directory_entry& e : fs::directory_iterator(b.level / "screenshots")) {
      benchmark::DoNotOptimize(e.last_write_time());
      ++seen;
    }
    for (const fs::directory_entry& e : fs::recursive_directory_iterator(b.level / "savegames"))
      seen += e.is_regular_file();
    benchmark::DoNotOptimize(seen);
  }
  PerShot(state, "");
}

BENCHMARK(BM_AggiornaDatiLivello)
    ->Arg(200)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WalkLevelFolders)
    ->Arg(200)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vardolin

BENCHMARK_MAIN();
