// Packing and expanding a level's files into `.zl` files, against pigz on the same files in
// the same run: `pigz -9 -p 2 -k` and `pigz -d -k`, one child process per file, as the
// program handles one file at a time. The reference level is 20 files of 5 MB that don't
// compress (as a .tr4 full of packed textures) and 20 that compress about 2:1.
//
// Prints each figure as a ratio ours / pigz: time (goal <= 1) and packed size (goal <= 1.01).

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "bench_data.h"
#include "bench_tools.h"
#include "web/zlib_tool.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

using vardolin::bench::kFileSize;
using vardolin::bench::kFilesPerKind;

enum Kind { kRandom, kCompressible };
const char* kKindName[] = {"random", "compressible"};

struct ReferenceLevel {
  fs::path root;
  std::vector<fs::path> files[2];  // in root/src
  ReferenceLevel() {
    char tmpl[] = "/tmp/vardolin-bench-zl-XXXXXX";
    root = ::mkdtemp(tmpl);
    for (const char* sub : {"src", "ours", "pigz"}) fs::create_directories(root / sub);
    for (int kind : {kRandom, kCompressible}) {
      for (int i = 0; i < kFilesPerKind; ++i) {
        fs::path p = root / "src" / (std::string(kKindName[kind]) + std::to_string(i) + ".tr4");
        std::string bytes = kind == kRandom
                                ? vardolin::bench::RandomBytes(kFileSize, 1000 + i)
                                : vardolin::bench::CompressibleBytes(kFileSize, 2000 + i);
        std::ofstream(p, std::ios::binary).write(bytes.data(), bytes.size());
        files[kind].push_back(p);
      }
    }
  }
  ~ReferenceLevel() {
    std::error_code ec;
    fs::remove_all(root, ec);
  }
  fs::path Ours(const fs::path& src, const char* ext) const {
    return root / "ours" / (src.filename().string() + ext);
  }
  fs::path Pigz(const fs::path& src, const char* ext) const {
    return root / "pigz" / (src.filename().string() + ext);
  }
};

ReferenceLevel& Level() {
  static ReferenceLevel level;
  return level;
}

// Seconds per run and output bytes, by figure name ("pack/ours/random").
std::map<std::string, double> g_seconds;
std::map<std::string, std::uintmax_t> g_bytes;

// Times ours and the reference in turns within each iteration, alternating which goes first,
// so that load from elsewhere on the machine falls on both alike. The benchmark's own time
// is ours; the label names the reference and the counters give its time and the ratio, as
// bench/compare reads them.
void MeasurePair(benchmark::State& state, const std::string& op, int kind, const char* tool,
                 const std::function<bool()>& ours, const std::function<bool()>& reference,
                 const std::function<void()>& after_reference = {}) {
  double total_ours = 0, total_ref = 0;
  bool ok = true;
  int turn = 0;
  for (auto _ : state) {
    double t_ours, t_ref;
    if (turn++ % 2 == 0) {
      t_ours = vardolin::bench::Seconds(ours, ok);
      t_ref = vardolin::bench::Seconds(reference, ok);
    } else {
      t_ref = vardolin::bench::Seconds(reference, ok);
      t_ours = vardolin::bench::Seconds(ours, ok);
    }
    if (after_reference) after_reference();
    if (!ok) {
      state.SkipWithError("a file failed");
      return;
    }
    state.SetIterationTime(t_ours);
    total_ours += t_ours;
    total_ref += t_ref;
  }
  state.SetBytesProcessed(state.iterations() * kFilesPerKind * kFileSize);
  state.SetLabel(std::string("vs:") + tool);
  state.counters["reference_ms"] = 1000 * total_ref / state.iterations();
  state.counters["ratio"] = total_ours / total_ref;
  g_seconds[op + "/ours/" + kKindName[kind]] = total_ours / state.iterations();
  g_seconds[op + "/pigz/" + kKindName[kind]] = total_ref / state.iterations();
}

std::uintmax_t SizeOf(const std::vector<fs::path>& files) {
  std::uintmax_t n = 0;
  for (auto& f : files) n += fs::file_size(f);
  return n;
}

void Pack(benchmark::State& state) {
  auto& level = Level();
  int kind = static_cast<int>(state.range(0));
  const auto& files = level.files[kind];
  MeasurePair(
      state, "pack", kind, "pigz -9 -p 2",
      [&] {
        for (auto& f : files)
          if (vardolin::PackFile(f, level.Ours(f, ".zl")) != vardolin::ZlResult::Ok) return false;
        return true;
      },
      [&] {
        for (auto& f : files)
          if (!vardolin::bench::Run({"pigz", "-9", "-p", "2", "-k", "-f", f.string()}))
            return false;
        return true;
      },
      [&] {
        for (auto& f : files) fs::rename(f.string() + ".gz", level.Pigz(f, ".gz"));
      });
  std::vector<fs::path> ours, ref;
  for (auto& f : files) {
    ours.push_back(level.Ours(f, ".zl"));
    ref.push_back(level.Pigz(f, ".gz"));
  }
  g_bytes[std::string("pack/ours/") + kKindName[kind]] = SizeOf(ours);
  g_bytes[std::string("pack/pigz/") + kKindName[kind]] = SizeOf(ref);
  state.counters["size_ratio"] = double(SizeOf(ours)) / double(SizeOf(ref));
}

void Expand(benchmark::State& state) {
  auto& level = Level();
  int kind = static_cast<int>(state.range(0));
  const auto& files = level.files[kind];
  MeasurePair(
      state, "expand", kind, "pigz -d",
      [&] {
        for (auto& f : files)
          if (vardolin::ExpandFile(level.Ours(f, ".zl"), level.Ours(f, "")) !=
              vardolin::ZlResult::Ok)
            return false;
        return true;
      },
      [&] {
        for (auto& f : files)
          if (!vardolin::bench::Run({"pigz", "-d", "-k", "-f", level.Pigz(f, ".gz").string()}))
            return false;
        return true;
      });
}

// What ZlibTool::Compress costs as the add-level flow uses it: the same packing, flushed to
// disk before the source is deleted. Shown for information; pigz does not flush.
void PackSynced(benchmark::State& state) {
  auto& level = Level();
  int kind = static_cast<int>(state.range(0));
  for (auto _ : state) {
    vardolin::ZlOptions options;
    options.sync = true;
    auto start = Clock::now();
    for (auto& f : level.files[kind])
      if (vardolin::PackFile(f, level.Ours(f, ".zl"), options) != vardolin::ZlResult::Ok)
        state.SkipWithError("a file failed");
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
  }
  state.SetBytesProcessed(state.iterations() * kFilesPerKind * kFileSize);
}

void Register() {
  for (int kind : {kRandom, kCompressible}) {
    std::string k = kKindName[kind];
    using Fn = void (*)(benchmark::State&);
    for (auto [name, fn] : {std::pair<const char*, Fn>{"pack/", Pack}, {"expand/", Expand}})
      benchmark::RegisterBenchmark((name + k).c_str(), fn)
          ->Arg(kind)
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond)
          ->Iterations(4);
  }
  for (int kind : {kRandom, kCompressible})
    benchmark::RegisterBenchmark((std::string("pack-synced/") + kKindName[kind]).c_str(),
                                 PackSynced)
        ->Arg(kind)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
}

void PrintRatios() {
  auto sum = [](std::map<std::string, double>& m, const std::string& prefix) {
    double s = 0;
    for (const char* k : kKindName) s += m[prefix + k];
    return s;
  };
  std::printf("\nratios ours / pigz (time: goal <= 1.00; size: goal <= 1.01)\n");
  for (const char* op : {"pack", "expand"}) {
    for (const char* k : kKindName) {
      double ours = g_seconds[std::string(op) + "/ours/" + k];
      double ref = g_seconds[std::string(op) + "/pigz/" + k];
      if (ref > 0) std::printf("  %-6s %-13s time %.3f\n", op, k, ours / ref);
    }
    double ours = sum(g_seconds, std::string(op) + "/ours/");
    double ref = sum(g_seconds, std::string(op) + "/pigz/");
    if (ref > 0) std::printf("  %-6s %-13s time %.3f\n", op, "whole level", ours / ref);
  }
  std::uintmax_t ours = 0, ref = 0;
  for (const char* k : kKindName) {
    std::uintmax_t o = g_bytes[std::string("pack/ours/") + k];
    std::uintmax_t r = g_bytes[std::string("pack/pigz/") + k];
    if (r) std::printf("  packed size %-13s %.4f\n", k, double(o) / double(r));
    ours += o;
    ref += r;
  }
  if (ref) std::printf("  packed size %-13s %.4f\n", "whole level", double(ours) / double(ref));
}

}  // namespace

int main(int argc, char** argv) {
  Register();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  Level();  // generate the files before any timing
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  PrintRatios();
  return 0;
}
