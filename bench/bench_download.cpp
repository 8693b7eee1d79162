// A download against curl fetching the same file in the same run.
//
//   DownloadToFile of 200 MB from a server on 127.0.0.1, through its window    vs curl -s -o
//   (goal <= 1.1)
//
// The server is the tests' own, serving from memory, so both sides read the same bytes at the
// same speed; the file goes to the same folder each time.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "../tests/support/local_http_server.h"
#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/forms/controls.h"
#include "foundation/forms/form.h"
#include "foundation/program.h"
#include "web/dialog_download.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBytes = 200u << 20;

// A front end that shows nothing but lets a window start its work, as the download window's
// first tick does.
class TickingUi : public bench::SilentUi {
 public:
  void ShowModal(Form& form) override { LoadAndTickTimers(form); }
};

struct Bench : bench::ProgramBench<TickingUi> {
  testing::LocalHttpServer server;
  std::string url;

  Bench() {
    std::string body(kBytes, '\0');
    for (std::size_t i = 0; i < body.size(); ++i)
      body[i] = static_cast<char>(i * 2654435761u >> 24);
    server.ServeFile("/level.zip", std::move(body));
    url = server.Url("/level.zip");
  }
  bool Fetched(const fs::path& file) {
    std::error_code ec;
    const bool whole = fs::file_size(file, ec) == kBytes && !ec;
    fs::remove(file, ec);
    return whole;
  }
};

Bench& TheBench() {
  static Bench bench;
  return bench;
}

void Report(benchmark::State& state, double seconds, bool ok, const char* reference) {
  if (!ok) state.SkipWithError("the download failed");
  state.SetIterationTime(seconds);
  if (reference) state.SetLabel(std::string("vs:") + reference);
}

void BM_DownloadToFile(benchmark::State& state) {
  Bench& b = TheBench();
  const fs::path file = b.root / "ours.zip";
  for (auto _ : state) {
    bool ok = true;
    const double s = bench::Seconds([&] { return DownloadToFile(b.program, b.url, file); }, ok);
    Report(state, s, ok && b.Fetched(file), "BM_CurlSO");
  }
}

void BM_CurlSO(benchmark::State& state) {
  Bench& b = TheBench();
  const fs::path file = b.root / "theirs.zip";
  for (auto _ : state) {
    bool ok = true;
    const double s = bench::Seconds(
        [&] {
          return bench::Run({"curl", "-s", "-o", file.string(), b.url});
        },
        ok);
    Report(state, s, ok && b.Fetched(file), nullptr);
  }
}

#define FIGURE ->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5)
BENCHMARK(BM_CurlSO) FIGURE;
BENCHMARK(BM_DownloadToFile) FIGURE;

}  // namespace
}  // namespace vardolin

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  vardolin::TheBench();  // the file is made before any timing
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
