// Adding the reference level, packed as one zip of 200 MB, as a new level of an archive that
// keeps its files packed: AddLevel with the package, Done, the files unpacked and stored as
// `.zl`, against what the same work costs with the tools: unzip into an empty folder, then
// pigz -9 -p 2 of every file (goal <= 1).
//
// Each iteration runs ours and the reference in turn, so that both see the same machine; the
// figures are the medians of the pairs.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "archive/level_store.h"
#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/program.h"
#include "foundation/texts/text_catalogue.h"
#include "intake/add_level.h"
#include "intake/dialog_new_level.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using bench::kFilesPerKind;

struct Bench : bench::ProgramBench<> {
  fs::path zip;

  Bench() {
    const fs::path level = root / "level";
    for (int i = 0; i < 2 * kFilesPerKind; ++i)
      bench::Write(level / bench::ReferenceFileName(i), bench::ReferenceFileBytes(i));
    zip = root / "level.zip";
    if (!bench::Run({"zip", "-r", "-q", zip.string(), "."}, level)) std::abort();
    PrepareHomeAndTexts();
    program.prefs.LastArchive = (root / "archive/levels.vdc").string();
    program.prefs.CheckEqualLevels = false;
    Catalogue& c = program.catalogue;
    c.header.MainDir = c.header.SecondaryDir = (root / "archive").string();
    c.header.CompressFiles = true;
    c.levels.push_back(LevelRecord{});
    fs::create_directories(root / "archive");
  }
  bool AddOurs() {
    const auto code =
        AddLevel(program, zip.string(), [&](Dialog_NewLevel& d) { d.Pul_Ok.Click(); });
    if (!code) return false;
    // The next iteration adds the same package again into a clean store.
    std::error_code ec;
    fs::remove_all(GetLevelFolder(program, *code, false), ec);
    program.catalogue.levels.resize(1);
    return true;
  }
  bool AddWithTools() {
    const fs::path target = root / "tools";
    std::error_code ec;
    fs::remove_all(target, ec);
    if (!bench::Run({"unzip", "-o", "-q", zip.string(), "-d", target.string()})) return false;
    std::vector<std::string> args = {"pigz", "-9", "-p", "2"};
    for (auto& e : fs::directory_iterator(target)) args.push_back(e.path().string());
    return bench::Run(args);
  }
};

void BM_AddPackedLevel(benchmark::State& state) {
  static Bench b;
  bench::MeasurePair(state, "unzip+pigz", {[] { return true; }, [&] { return b.AddOurs(); }},
                     {[] { return true; }, [&] { return b.AddWithTools(); }});
}

BENCHMARK(BM_AddPackedLevel)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace vardolin

BENCHMARK_MAIN();
