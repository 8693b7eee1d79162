// Loading and saving catalogues of 1,000 to 100,000 levels. The cost per level must stay flat;
// each figure is set against plain file input and output of the same bytes in the same run:
// reading the file for a load, writing it with fsync for a save (a save is made durable too).

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "archive/catalogue_file.h"
#include "bench_data.h"
#include "bench_program.h"
#include "foundation/catalogue_records.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

struct Bench : bench::ProgramBench<> {
  fs::path file = root / "bench.vdc";

  explicit Bench(int levels) {
    program.prefs.AutoSave = false;
    program.catalogue.header.MainDir = root.string();
    program.catalogue.header.SecondaryDir = root.string();
    for (int i = 0; i < levels; ++i) {
      LevelRecord r;
      r.Code = i;
      r.Name = "Level number " + std::to_string(i);
      r.AuthorName = "Some author";
      r.AuthorEmails = "author@example.org";
      r.MoreInfoFile = "readme.txt";
      r.FilesSize = 12'345'678;
      program.catalogue.levels.push_back(std::move(r));
    }
    SaveCatalogueFile(program, file);
  }
};

void PerLevel(benchmark::State& state, const char* reference) {
  state.counters["ns_per_level"] = benchmark::Counter(
      static_cast<double>(state.range(0)) * 1e-9,
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(546 + 1634 * state.range(0)));
  state.SetLabel(std::string("vs:") + reference);
}

void BM_LoadCatalogue(benchmark::State& state) {
  Bench b(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    b.program.CatalogueDirty = false;
    if (!LoadCatalogueFile(b.program, b.file)) state.SkipWithError("load failed");
  }
  PerLevel(state, "BM_ReadFile");
}

void BM_SaveCatalogue(benchmark::State& state) {
  Bench b(static_cast<int>(state.range(0)));
  for (auto _ : state)
    if (!SaveCatalogueFile(b.program, b.file)) state.SkipWithError("save failed");
  PerLevel(state, "BM_WriteFileFsync");
}

// The references: the same bytes in and out with nothing but the file system.
void BM_ReadFile(benchmark::State& state) {
  Bench b(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::string bytes(static_cast<std::size_t>(fs::file_size(b.file)), '\0');
    int fd = ::open(b.file.c_str(), O_RDONLY);
    if (fd < 0 || ::read(fd, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
      state.SkipWithError("read failed");
    ::close(fd);
    benchmark::DoNotOptimize(bytes.data());
  }
  PerLevel(state, "");
}

void BM_WriteFileFsync(benchmark::State& state) {
  Bench b(static_cast<int>(state.range(0)));
  std::string bytes(546 + 1634 * static_cast<std::size_t>(state.range(0)), 'x');
  fs::path target = b.root / "plain.bin";
  for (auto _ : state) {
    int fd = ::open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0 || ::write(fd, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
      state.SkipWithError("write failed");
    ::fsync(fd);
    ::close(fd);
  }
  PerLevel(state, "");
}

#define LEVEL_COUNTS \
  ->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MinTime(0.3)->UseRealTime()
BENCHMARK(BM_LoadCatalogue) LEVEL_COUNTS;
BENCHMARK(BM_ReadFile) LEVEL_COUNTS;
BENCHMARK(BM_SaveCatalogue) LEVEL_COUNTS;
BENCHMARK(BM_WriteFileFsync) LEVEL_COUNTS;

}  // namespace
}  // namespace vardolin

BENCHMARK_MAIN();
