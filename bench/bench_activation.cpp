// Putting a level into the editor folder and taking it out, against the plain tools doing the
// same file work in the same run. The reference level is 40 files of 5 MB (200 MB): 20 that
// don't compress (a .tr4 full of packed textures) and 20 that compress about 2:1.
//
//   activate/plain    SetLevelInTrle of the level kept plain      vs cp -r of its files folder
//                                                                   into an empty folder (goal
//                                                                   <= 1.5)
//   activate/packed   SetLevelInTrle of the level kept as .zl      vs pigz -d of the same files,
//                                                                   one process per file (goal <=
//                                                                   1)
//   leave             RemoveCurrentLevel of the plain level        vs rm -r of its files and cp of
//                                                                   the replaced files back
//
// Each iteration times ours and the reference in turns (see MeasurePair). Ours starts from the
// base level in the editor folder, or from the level in it for `leave`; the reference from an
// empty folder. Setting that state up is not timed.

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "archive/level_store.h"
#include "bench_data.h"
#include "bench_program.h"
#include "bench_tools.h"
#include "foundation/catalogue_records.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/texts/text_catalogue.h"
#include "play/activation.h"
#include "web/zlib_tool.h"

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

using bench::kFileSize;
using bench::kFilesPerKind;
constexpr std::int32_t kPlainLevel = 1;
constexpr std::int32_t kPackedLevel = 2;

// An editor folder with its backup and an archive holding the reference level twice: plain as
// level 1, packed into `.zl` files as level 2. The level's title.tr4, script.dat and english.dat
// replace the editor's files of those names, as most levels do.
struct Bench : bench::ProgramBench<> {
  fs::path editor, backup, plain_files, packed_files, gz_files;
  std::vector<std::string> names;

  Bench() {
    editor = root / "trle";
    backup = root / "home/backup_trle";
    // The program's own texts name the folders and files the activation works with.
    PrepareEditorAndArchive(
        editor, backup,
        {"tomb4.exe", "tom2pc.exe", "winroomedit.exe", "script.exe", "script.dat", "english.dat",
         "load.bmp", "data/title.tr4", "data/tut1.tr4", "audio/044.wav", "graphics/wads/tut1.wad"});
    for (std::int32_t code : {0, kPlainLevel, kPackedLevel}) {
      LevelRecord r;
      r.Code = code;
      r.Name = "Level " + std::to_string(code);
      program.catalogue.levels.push_back(r);
    }
    plain_files = GetLevelFilesFolder(program, kPlainLevel, false);
    packed_files = GetLevelFilesFolder(program, kPackedLevel, false);
    gz_files = root / "gz";
    fs::create_directories(gz_files);
    for (int i = 0; i < 2 * kFilesPerKind; ++i) {
      const std::string name = bench::EditorLevelFileName(i);
      names.push_back(name);
      bench::Write(plain_files / name, bench::ReferenceFileBytes(i));
      fs::create_directories(packed_files);
      if (PackFile(plain_files / name, packed_files / (name + ".zl")) != ZlResult::Ok ||
          !bench::Run({"pigz", "-9", "-k", "-f", (plain_files / name).string()}))
        std::abort();
      fs::rename(plain_files / (name + ".gz"), gz_files / (name + ".gz"));
    }
  }
};

using bench::Side;

// bench::MeasurePair, with the reference level's bytes as the figure's throughput.
void MeasurePair(benchmark::State& state, const char* reference, const Side& ours,
                 const Side& ref) {
  bench::MeasurePair(state, reference, ours, ref);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * 2 * kFilesPerKind *
                          static_cast<std::int64_t>(kFileSize));
}

void BM_ActivatePlain(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  fs::path target;
  MeasurePair(state, "cp -r",
              {[&] { return SetLevelInTrle(b.program, 0); },
               [&] { return SetLevelInTrle(b.program, kPlainLevel); }},
              {[&] {
                 target = b.Fresh() / "files";
                 return true;
               },
               [&] {
                 return bench::Run({"cp", "-r", b.plain_files.string(), target.string()});
               }});
  SetLevelInTrle(b.program, 0);
}

void BM_ActivatePacked(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  fs::path target;
  MeasurePair(state, "pigz -d",
              {[&] { return SetLevelInTrle(b.program, 0); },
               [&] { return SetLevelInTrle(b.program, kPackedLevel); }},
              {[&] {
                 target = b.Fresh();
                 for (const std::string& name : b.names)
                   fs::copy_file(b.gz_files / (name + ".gz"), target / (name + ".gz"));
                 return true;
               },
               [&] {
                 for (const std::string& name : b.names)
                   if (!bench::Run({"pigz", "-d", "-f", (target / (name + ".gz")).string()}))
                     return false;
                 return true;
               }});
  SetLevelInTrle(b.program, 0);
}

// The reference: the same files in a folder of their own, removed with rm -r; the three files
// they replaced copied back from the backup with one cp per target folder.
void BM_LeaveLevel(benchmark::State& state) {
  Bench& b = bench::The<Bench>();
  fs::path target;
  MeasurePair(
      state, "rm -r, cp",
      {[&] { return SetLevelInTrle(b.program, kPlainLevel); },
       [&] { return RemoveCurrentLevel(b.program, 0) == kPlainLevel; }},
      {[&] {
         target = b.Fresh();
         fs::copy(b.plain_files, target / "level", fs::copy_options::recursive);
         fs::create_directories(target / "editor/data");
         return true;
       },
       [&] {
         return bench::Run({"rm", "-r", (target / "level").string()}) &&
                bench::Run({"cp", (b.backup / "data/title.tr4").string(),
                            (target / "editor/data").string()}) &&
                bench::Run({"cp", (b.backup / "script.dat").string(),
                            (b.backup / "english.dat").string(), (target / "editor").string()});
       }});
  SetLevelInTrle(b.program, 0);
}

#define FIGURE ->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(7)
BENCHMARK(BM_ActivatePlain) FIGURE;
BENCHMARK(BM_ActivatePacked) FIGURE;
BENCHMARK(BM_LeaveLevel) FIGURE;

}  // namespace
}  // namespace vardolin

int main(int argc, char** argv) {
  return vardolin::bench::Main<vardolin::Bench>(argc, argv);
}
