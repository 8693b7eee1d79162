// Making the CD image of the reference level (about 200 MB): cw_CreateIso writes the item lists
// and runs genisoimage, reading its text as it comes, against genisoimage run by hand with the
// same options and lists, its text thrown away (goal <= 1.05).
//
// Each iteration runs ours and the reference in turn, so that both see the same machine; the
// figures are the medians of the pairs.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "cd/burn_engine.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using bench::kFilesPerKind;

struct Bench : bench::ProgramBench<> {
  BurnEngine engine{program};
  fs::path level = root / "store" / "LEVEL_0001";

  Bench() {
    fs::create_directories(program.Home());
    for (int i = 0; i < 2 * kFilesPerKind; ++i)
      bench::Write(level / "data" / bench::ReferenceFileName(i), bench::ReferenceFileBytes(i));
    engine.IsoPath = (root / "ours.iso").string();
    if (!engine.BurnCommand(cw_AddItem, "Arc1/LEVEL_0001/=" + level.string())) std::abort();
    // The reference reads the lists the engine writes, so both make the same image.
    if (!engine.BurnCommand(cw_CreateIso)) std::abort();
  }
  bool CreateOurs() { return engine.BurnCommand(cw_CreateIso); }
  bool CreateByHand() {
    const fs::path home = program.Home();
    return bench::Run({"sh", "-c",
                       "GENISOIMAGERC=\"$0/mkiso.src\" exec genisoimage -gui -J -R -exclude-list "
                       "\"$0/list_no.txt\" -path-list "
                       "\"$0/list_yes.txt\" -m .. -o \"$1\" -graft-points 2>/dev/null",
                       home.string(), (root / "theirs.iso").string()},
                      home);
  }
  bool Clean() {
    std::error_code ec;
    fs::remove(root / "ours.iso", ec);
    fs::remove(root / "theirs.iso", ec);
    return true;
  }
};

void BM_CreateIsoOfLevel(benchmark::State& state) {
  static Bench b;
  bench::MeasurePair(state, "genisoimage",
                     {[&] { return b.Clean(); }, [&] { return b.CreateOurs(); }},
                     {[&] { return b.Clean(); }, [&] { return b.CreateByHand(); }});
}

BENCHMARK(BM_CreateIsoOfLevel)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);

}  // namespace
}  // namespace vardolin

BENCHMARK_MAIN();
