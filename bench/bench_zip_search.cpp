// The zip search by two words inside zips, over a tree of 20,000 files of which 2,000 are zips
// of 6 entries each (one zip in fifty holds an entry with both words): against find over the
// tree, unzip -Z1 of each zip and two greps (goal <= 0.5). Both run in turns in each iteration.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/program.h"
#include "intake/zip_search.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

constexpr int kFiles = 20000;
constexpr int kZips = 2000;
constexpr int kEntries = 6;
constexpr int kZipsFound = kZips / 50;

struct Bench : bench::ProgramBench<> {
  fs::path tree = root / "downloads";
  Bench() {
    const fs::path content = root / "content";
    for (int z = 0; z < kZips; ++z) {
      fs::remove_all(content);
      for (int e = 0; e < kEntries; ++e) {
        const bool hit = e == kEntries - 1 && z % (kZips / kZipsFound) == 0;
        bench::Write(content / ("data" + std::to_string(e)) /
                         (hit ? "Sunken Tomb of Echoes.tr4" : "room" + std::to_string(e) + ".tr4"),
                     "level " + std::to_string(z));
      }
      const fs::path zip =
          tree / ("site" + std::to_string(z % 40)) / ("package " + std::to_string(z) + ".zip");
      fs::create_directories(zip.parent_path());
      if (!ZipFolderToFile(program, content, zip, nullptr, true)) std::abort();
    }
    for (int f = kZips; f < kFiles; ++f)
      bench::Write(tree / ("site" + std::to_string(f % 40)) / ("notes" + std::to_string(f / 40)) /
                       ("readme " + std::to_string(f) + ".txt"),
                   "text");
  }
};

void BM_SearchInsideZips(benchmark::State& state) {
  static Bench b;
  ZipSearchQuery query = MakeZipSearchQuery(b.program);
  query.kind_extensions[0] = {".zip", ".rar"};
  query.zip_extension = ".zip";
  query.mode = ZipSearchQuery::Mode::ByName;
  query.words = {"sunken", "ECHOES"};
  query.inside_zips = true;
  const std::string reference =
      "find '" + b.tree.string() +
      "' -type f -name '*.zip' -print0 | xargs -0 -n1 unzip -Z1 | grep -i sunken | grep -ic "
      "echoes";
  bench::MeasurePair(
      state, "find + unzip -Z1 + grep",
      {[] { return true; },
       [&] { return SearchFolderTree(query, b.tree).size() == static_cast<size_t>(kZipsFound); }},
      {[] { return true; },
       [&] {
         return bench::Run({"sh", "-c", reference + " >/dev/null"});
       }});
}

BENCHMARK(BM_SearchInsideZips)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace vardolin
BENCHMARK_MAIN();
