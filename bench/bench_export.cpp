// Exporting the reference level (about 200 MB, stored packed as `.zl`) to a zip: ExportLevel
// expands the files and packs them with the level info file, against what the same work costs
// with the tools: pigz -d of gzip copies of the same files, then zip -q (goal <= 1).
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
#include "intake/export_level.h"
#include "web/zlib_tool.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using bench::kFilesPerKind;

struct Bench : bench::ProgramBench<> {
  fs::path gz = root / "gz";

  Bench() {
    PrepareHomeAndTexts();
    Catalogue& c = program.catalogue;
    c.header.MainDir = c.header.SecondaryDir = (root / "archive").string();
    c.header.CompressFiles = true;
    c.levels.push_back(LevelRecord{});
    LevelRecord level;
    level.Code = 1;
    level.Name = "Reference level";
    c.levels.push_back(level);
    const fs::path files = GetLevelFilesFolder(program, 1, false);
    fs::create_directories(files);
    fs::create_directories(gz);
    for (int i = 0; i < 2 * kFilesPerKind; ++i) {
      const std::string name = bench::ReferenceFileName(i);
      bench::Write(root / "plain" / name, bench::ReferenceFileBytes(i));
      if (PackFile(root / "plain" / name, files / (name + ".zl")) != ZlResult::Ok) std::abort();
      fs::rename(root / "plain" / name, gz / name);
    }
    std::vector<std::string> args = {"pigz", "-9", "-p", "2"};
    for (auto& e : fs::directory_iterator(gz)) args.push_back(e.path().string());
    if (!bench::Run(args)) std::abort();
  }
  // The zip of the run before goes first: the export asks before it replaces a file.
  bool CleanOurs() {
    std::error_code ec;
    fs::remove(root / "ours.zip", ec);
    return !ec;
  }
  bool ExportOurs() {
    const fs::path zip = root / "ours.zip";
    return ExportLevel(program, 1, {zip, false}) == zip;
  }
  // The tools expand beside their gzip copies (-k keeps them), and zip takes the expanded files.
  bool ExportWithTools() {
    std::vector<std::string> args = {"pigz", "-d", "-k", "-f", "-p", "2"};
    std::vector<std::string> zip = {"zip", "-q", "-j", (root / "theirs.zip").string()};
    for (auto& e : fs::directory_iterator(gz)) {
      args.push_back(e.path().string());
      zip.push_back((gz / e.path().stem()).string());
    }
    return bench::Run(args) && bench::Run(zip);
  }
  void CleanTools() {
    std::error_code ec;
    fs::remove(root / "theirs.zip", ec);
    for (auto& e : fs::directory_iterator(gz))
      if (e.path().extension() != ".gz") fs::remove(e.path(), ec);
  }
};

void BM_ExportPackedLevel(benchmark::State& state) {
  static Bench b;
  bench::MeasurePair(state, "pigz-d+zip",
                     {[&] { return b.CleanOurs(); }, [&] { return b.ExportOurs(); }},
                     {[&] {
                        b.CleanTools();
                        return true;
                      },
                      [&] { return b.ExportWithTools(); }});
}

BENCHMARK(BM_ExportPackedLevel)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace vardolin

BENCHMARK_MAIN();
