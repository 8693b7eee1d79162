// The zip layer against Info-ZIP's tools doing the same work in the same run.
//
//   extract   ExtractZip of a 200 MB zip of 40 files (20 of 5 MB that don't compress, 20 that
//             compress about 2:1), made by zip -r        vs unzip -o -q into an empty folder
//                                                          (goal <= 1)
//   list      ListZipEntries of a zip of 10,000 small files  vs unzip -Z1 (goal <= 1)
//   small     ExtractZip of a zip of 10,000 small files in one folder, as a level's files folder
//             holds them, into a tmpfs                    vs unzip -o -q into an empty folder
//                                                          (goal <= 1: the time grows with the
//                                                          entries, not with their square)
//   store     ReplaceStoredFiles of those 10,000 files, unpacked, into a level's store folder
//                                                          vs cp -r --preserve=timestamps
//                                                          (goal <= 1, as for small)
//   pack      ZipFolderToFile of the 40 files               vs zip -r -q (goal <= 1, and the
//                                                          counter size_vs_zip <= 1.01)
//
// The zip is written to a fresh name each time, since zip adds to one that stands.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <spawn.h>
#include <sys/statfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/program.h"
#include "intake/store_level.h"
#include "web/zip_layer.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

using bench::kFileSize;
using bench::kFilesPerKind;
constexpr int kSmallEntries = 10000;

struct Bench : bench::ProgramBench<> {
  fs::path level, level_zip, small_zip, flat, flat_zip;

  Bench() {
    level = root / "level";
    for (int i = 0; i < 2 * kFilesPerKind; ++i) {
      const bool random = i < kFilesPerKind;
      bench::Write(level / ("room" + std::to_string(i) + (random ? ".tr4" : ".wad")),
                   bench::ReferenceFileBytes(i));
    }
    level_zip = root / "level.zip";
    if (!bench::Run({"zip", "-r", "-q", level_zip.string(), "."}, level)) std::abort();

    const fs::path small = root / "small";
    for (int i = 0; i < kSmallEntries; ++i)
      bench::Write(
          small / ("dir" + std::to_string(i / 500)) / ("file" + std::to_string(i) + ".txt"),
          "entry " + std::to_string(i));
    small_zip = root / "small.zip";
    if (!bench::Run({"zip", "-r", "-q", small_zip.string(), "."}, small)) std::abort();

    flat = root / "flat";
    for (int i = 0; i < kSmallEntries; ++i)
      bench::Write(flat / ("file" + std::to_string(i) + ".txt"), "entry " + std::to_string(i));
    flat_zip = root / "flat.zip";
    if (!bench::Run({"zip", "-r", "-q", flat_zip.string(), "."}, flat)) std::abort();
  }
  fs::path Fresh(const char* name) {
    fs::path p = root / name;
    std::error_code ec;
    fs::remove_all(p, ec);
    return p;
  }
};

Bench& TheBench() {
  static Bench bench;
  return bench;
}

double Seconds(const std::function<bool()>& body, benchmark::State& state) {
  auto start = Clock::now();
  if (!body()) state.SkipWithError("the operation failed");
  return std::chrono::duration<double>(Clock::now() - start).count();
}

void Label(benchmark::State& state, const char* reference) {
  if (reference) state.SetLabel(std::string("vs:") + reference);
}

void BM_ExtractZip(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    fs::path target = b.Fresh("extract");
    state.SetIterationTime(Seconds(
        [&] { return ExtractZip(b.program, b.level_zip, target, nullptr, true, false); }, state));
  }
  Label(state, "BM_UnzipO");
}

void BM_UnzipO(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    fs::path target = b.Fresh("extract");
    state.SetIterationTime(Seconds(
        [&] {
          return bench::Run({"unzip", "-o", "-q", b.level_zip.string(), "-d", target.string()});
        },
        state));
  }
  Label(state, nullptr);
}

// A folder of its own for each timed run, all removed only once the timing is over. ext4
// without a journal, as on the machine these figures come from, passes over every inode freed
// in the last minutes when it places a new one, so a run that followed the removal of 10,000
// files paid for that search, by chance more on one side than the other.
struct FreshFolders {
  fs::path base;
  fs::path now;
  int made = 0;
  explicit FreshFolders(fs::path b) : base(std::move(b)) {}
  bool Next() {
    now = base.string() + "-" + std::to_string(made++);
    return true;
  }
  ~FreshFolders() {
    std::error_code ec;
    for (int i = 0; i < made; ++i) fs::remove_all(base.string() + "-" + std::to_string(i), ec);
  }
};

// The small files are unpacked into memory (see ScratchFolder): on this disk each of the 10,000
// new files cost the search above, an unpacking 3.7 s after an earlier run and 0.35 s before it.
// In turns with unzip.
void BM_ExtractSmallZip(benchmark::State& state) {
  Bench& b = TheBench();
  const bench::ScratchFolder memory(true);
  FreshFolders ours(memory.path() / "small-ours"), theirs(memory.path() / "small-unzip");
  bench::MeasurePair(
      state, "unzip",
      {[&] { return ours.Next(); },
       [&] { return ExtractZip(b.program, b.flat_zip, ours.now, nullptr, true, false); }},
      {[&] { return theirs.Next(); },
       [&] {
         return bench::Run({"unzip", "-o", "-q", b.flat_zip.string(), "-d", theirs.now.string()});
       }});
}

// What the small zip holds, stored as a level's files: in turns with cp, as above.
void BM_StoreSmallFiles(benchmark::State& state) {
  Bench& b = TheBench();
  FreshFolders ours(b.root / "store-ours"), theirs(b.root / "store-cp");
  bench::MeasurePair(state, "cp",
                     {[&] { return ours.Next(); },
                      [&] { return ReplaceStoredFiles(b.program, b.flat, ours.now); }},
                     {[&] { return theirs.Next(); },
                      [&] {
                        return bench::Run({"cp", "-r", "--preserve=timestamps", b.flat.string(),
                                           theirs.now.string()});
                      }});
}

void BM_ListZipEntries(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    state.SetIterationTime(Seconds(
        [&] {
          std::int32_t count = 0;
          ListZipEntries(b.small_zip, count, true);
          return count == kSmallEntries;
        },
        state));
  }
  Label(state, "BM_UnzipZ1");
}

void BM_UnzipZ1(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state)
    state.SetIterationTime(Seconds(
        [&] {
          return bench::Run({"unzip", "-Z1", b.small_zip.string()});
        },
        state));
  Label(state, nullptr);
}

void BM_ZipFolderToFile(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    fs::path zip = b.Fresh("ours.zip");
    state.SetIterationTime(
        Seconds([&] { return ZipFolderToFile(b.program, b.level, zip, nullptr, false); }, state));
  }
  fs::path theirs = b.root / "theirs.zip";
  if (fs::exists(theirs))
    state.counters["size_vs_zip"] = static_cast<double>(fs::file_size(b.root / "ours.zip")) /
                                    static_cast<double>(fs::file_size(theirs));
  Label(state, "BM_ZipRQ");
}

void BM_ZipRQ(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    fs::path zip = b.Fresh("theirs.zip");
    state.SetIterationTime(Seconds(
        [&] {
          return bench::Run({"zip", "-r", "-q", zip.string(), "."}, b.level);
        },
        state));
  }
  Label(state, nullptr);
}

#define FIGURE ->UseManualTime()->Unit(benchmark::kMillisecond)
BENCHMARK(BM_UnzipO) FIGURE->Iterations(5);
BENCHMARK(BM_ExtractZip) FIGURE->Iterations(5);
BENCHMARK(BM_ExtractSmallZip) FIGURE->Iterations(6);
BENCHMARK(BM_StoreSmallFiles) FIGURE->Iterations(6);
BENCHMARK(BM_UnzipZ1) FIGURE->Iterations(20);
BENCHMARK(BM_ListZipEntries) FIGURE->Iterations(20);
BENCHMARK(BM_ZipRQ) FIGURE->Iterations(3);
BENCHMARK(BM_ZipFolderToFile) FIGURE->Iterations(3);

}  // namespace
}  // namespace vardolin

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  vardolin::TheBench();  // the zips are made before any timing
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
