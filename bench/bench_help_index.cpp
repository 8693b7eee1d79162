// Dialog_Indice on a 5 MB manual (the shipped one repeated): reading it and building both lists
// of titles, goal under 100 ms; against grep -oE of the bracketed titles of the same file.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "web/dialog_indice.h"
#include "web/dialog_testo.h"

namespace vardolin {
namespace {

constexpr std::size_t kManualBytes = 5 * 1024 * 1024;

struct Bench : bench::ProgramBench<> {
  Bench() {
    PrepareHomeAndTexts();
    const std::string one = ReadWholeFile(HelpFilePath(program));
    if (one.empty()) std::abort();
    std::string big;
    while (big.size() < kManualBytes) big += one;
    bench::Write(HelpFilePath(program), big);
  }
};

void BM_HelpIndex(benchmark::State& state) {
  static Bench b;
  Dialog_Indice index(b.program);
  const std::string manual = HelpFilePath(b.program).string();
  bench::MeasurePair(
      state, "grep -oE titles",
      {[] { return true; },
       [&] {
         index.ImpostaValori();
         return index.List_Indice.ListCount() > 1000;
       }},
      {[] { return true; },
       [&] {
         return bench::Run(
             {"sh", "-c", "grep -oE '\\[[^]]*\\]|\\{[^}]*\\}' '" + manual + "' >/dev/null"});
       }});
}

BENCHMARK(BM_HelpIndex)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);

}  // namespace
}  // namespace vardolin
BENCHMARK_MAIN();
