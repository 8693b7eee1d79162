// The equal-level check. One new level against an archive of 10,000 levels with stored lists is
// set against reading the same 10,000 list files with nothing but the file system (goal: at most
// twice that). The check of a whole archive (the Tools menu's) runs over 500 to 2,000 levels
// against the same plain reading of their lists: a flat ratio shows it grows with the archive,
// not with its square.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "archive/level_store.h"
#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/program.h"
#include "foundation/texts/text_catalogue.h"
#include "intake/equal_levels.h"
#include "intake/level_file_list.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

// The menu tells its finds and its end; nobody reads them here.
class QuietUi : public bench::SilentUi {
 public:
  int AskUser(const std::string&, int, const std::string&) override { return msg::kYes; }
};

struct Archive : bench::ProgramBench<QuietUi> {
  std::vector<fs::path> lists;
  fs::path incoming = root / "incoming";

  // Each level holds three level files; two levels in a hundred share one with each other.
  explicit Archive(int levels) {
    PrepareHomeAndTexts();
    program.catalogue.header.MainDir = program.catalogue.header.SecondaryDir =
        (root / "archive").string();
    for (int i = 0; i < levels; ++i) {
      LevelRecord r;
      r.Code = i;
      r.Name = "Level " + std::to_string(i);
      program.catalogue.levels.push_back(r);
      fs::create_directories(GetLevelFolder(program, i, false));
      const int shared = i / 2 * 2 % 100 == 0 ? 1 : i;
      WriteLevelFileList(program, i,
                         {{"level" + std::to_string(shared) + ".tr4", 45000, 1000 + shared},
                          {"title.tr4", 45000, 2000 + i},
                          {"extra.tr4", 45000, 3000 + i}});
      lists.push_back(LevelFileListPath(program, i));
    }
    program.catalogue.header.LevelCount = levels;
    fs::create_directories(incoming);
    for (const char* name : {"karnak.tr4", "title.tr4", "coastal.tr4"})
      bench::Write(incoming / name, std::string(123, 'x'));
  }
};

Archive& ArchiveOf(int levels) {
  static std::map<int, std::unique_ptr<Archive>> made;
  auto& archive = made[levels];
  if (!archive) archive = std::make_unique<Archive>(levels);
  return *archive;
}

void BM_FindEqualLevel(benchmark::State& state) {
  Archive& a = ArchiveOf(static_cast<int>(state.range(0)));
  const auto index = static_cast<std::int32_t>(a.program.catalogue.levels.size());
  for (auto _ : state) {
    std::string file;
    if (FindEqualLevel(a.program, a.incoming, index, nullptr, file, false, false) != -1)
      state.SkipWithError("a new level was found equal");
  }
  state.SetLabel("vs:BM_ReadListFiles");
}

void BM_CheckWholeArchive(benchmark::State& state) {
  Archive& a = ArchiveOf(static_cast<int>(state.range(0)));
  int finds = 0;
  for (auto _ : state) finds = CheckEqualLevelsInArchive(a.program);
  state.counters["finds"] = finds;
  state.SetLabel("vs:BM_ReadListFiles");
}

// The reference: each list file opened, read whole and closed.
void BM_ReadListFiles(benchmark::State& state) {
  Archive& a = ArchiveOf(static_cast<int>(state.range(0)));
  char buffer[4096];
  for (auto _ : state)
    for (const fs::path& list : a.lists) {
      const int fd = ::open(list.c_str(), O_RDONLY);
      if (fd < 0 || ::read(fd, buffer, sizeof buffer) <= 0) state.SkipWithError("read failed");
      ::close(fd);
      benchmark::DoNotOptimize(buffer);
    }
  state.SetLabel("vs:");
}

BENCHMARK(BM_FindEqualLevel)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_CheckWholeArchive)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_ReadListFiles)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace vardolin

BENCHMARK_MAIN();
