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
// Every figure starts from the same state: the base level in the editor folder, or the level in
// it for `leave`; setting that state up is not timed.

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
#include <random>
#include <string>
#include <vector>

#include "foundation/catalogue_records.h"
#include "archive/level_store.h"
#include "bench_data.h"
#include "bench_ports.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/program_home.h"
#include "foundation/texts/text_catalogue.h"
#include "play/activation.h"
#include "web/zlib_tool.h"

extern char** environ;

namespace vardolin {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kFileSize = 5 * 1000 * 1000;
constexpr int kFilesPerKind = 20;
constexpr std::int32_t kPlainLevel = 1;
constexpr std::int32_t kPackedLevel = 2;

void Write(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

bool Run(std::vector<std::string> args) {
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  pid_t pid;
  if (posix_spawnp(&pid, argv[0], nullptr, nullptr, argv.data(), environ) != 0) return false;
  int status = 0;
  return waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// An editor folder with its backup and an archive holding the reference level twice: plain as
// level 1, packed into `.zl` files as level 2. The level's title.tr4, script.dat and english.dat
// replace the editor's files of those names, as most levels do.
struct Bench {
  fs::path root;
  bench::SilentUi ui;
  bench::NoPlatform platform;
  Program program;
  fs::path editor, backup, plain_files, packed_files, gz_files;
  std::vector<std::string> names;

  Bench() : root(MakeRoot()), program(root / "home", ui, platform) {
    editor = root / "trle";
    backup = root / "home/backup_trle";
    for (const char* sub : {"data", "audio", "graphics/wads", "script"})
      fs::create_directories(editor / sub);
    for (const char* file :
         {"tomb4.exe", "tom2pc.exe", "winroomedit.exe", "script.exe", "script.dat", "english.dat",
          "load.bmp", "data/title.tr4", "data/tut1.tr4", "audio/044.wav", "graphics/wads/tut1.wad"})
      Write(editor / file, bench::RandomBytes(200000, 7));
    fs::create_directories(backup.parent_path());
    fs::copy(editor, backup, fs::copy_options::recursive);

    // The program's own texts name the folders and files the activation works with.
    if (!PrepareHome(program.Home()) || !LoadLanguage(program)) std::abort();
    program.prefs.EditorFolder = editor.string();
    program.prefs.FullBackupDone = true;
    program.BackupFolder = backup.string();
    program.catalogue.header.MainDir = (root / "archive").string();
    program.catalogue.header.SecondaryDir = (root / "archive").string();
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
      const bool random = i < kFilesPerKind;
      std::string name = i == 0       ? "title.tr4"
                         : i == 1     ? "script.dat"
                         : i == 2     ? "english.dat"
                         : i % 4 == 3 ? "track" + std::to_string(i) + ".wav"
                                      : "room" + std::to_string(i) + ".tr4";
      names.push_back(name);
      Write(plain_files / name, random ? bench::RandomBytes(kFileSize, 100 + i)
                                       : bench::CompressibleBytes(kFileSize, 200 + i));
      fs::create_directories(packed_files);
      if (PackFile(plain_files / name, packed_files / (name + ".zl")) != ZlResult::Ok ||
          !Run({"pigz", "-9", "-k", "-f", (plain_files / name).string()}))
        std::abort();
      fs::rename(plain_files / (name + ".gz"), gz_files / (name + ".gz"));
    }
  }
  ~Bench() {
    std::error_code ec;
    fs::remove_all(root, ec);
  }
  static fs::path MakeRoot() {
    std::string tmpl = (fs::temp_directory_path() / "vardolin-bench-activation-XXXXXX").string();
    if (!mkdtemp(tmpl.data())) std::abort();
    return tmpl;
  }
  // Where the reference tools write: an empty folder each time.
  fs::path FreshTarget() {
    fs::path target = root / "target";
    std::error_code ec;
    fs::remove_all(target, ec);
    fs::create_directories(target);
    return target;
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

void Figure(benchmark::State& state, const char* reference) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * 2 * kFilesPerKind *
                          static_cast<std::int64_t>(kFileSize));
  if (reference) state.SetLabel(std::string("vs:") + reference);
}

void BM_ActivatePlain(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    if (!SetLevelInTrle(b.program, 0)) state.SkipWithError("back to the base level failed");
    state.SetIterationTime(Seconds([&] { return SetLevelInTrle(b.program, kPlainLevel); }, state));
  }
  SetLevelInTrle(b.program, 0);
  Figure(state, "BM_CpR");
}

void BM_CpR(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    const fs::path target = b.FreshTarget() / "files";
    state.SetIterationTime(Seconds(
        [&] {
          return Run({"cp", "-r", b.plain_files.string(), target.string()});
        },
        state));
  }
  Figure(state, nullptr);
}

void BM_ActivatePacked(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    if (!SetLevelInTrle(b.program, 0)) state.SkipWithError("back to the base level failed");
    state.SetIterationTime(Seconds([&] { return SetLevelInTrle(b.program, kPackedLevel); }, state));
  }
  SetLevelInTrle(b.program, 0);
  Figure(state, "BM_PigzD");
}

void BM_PigzD(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    const fs::path target = b.FreshTarget();
    for (const std::string& name : b.names)
      fs::copy_file(b.gz_files / (name + ".gz"), target / (name + ".gz"));
    state.SetIterationTime(Seconds(
        [&] {
          for (const std::string& name : b.names)
            if (!Run({"pigz", "-d", "-f", (target / (name + ".gz")).string()})) return false;
          return true;
        },
        state));
  }
  Figure(state, nullptr);
}

void BM_LeaveLevel(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    if (!SetLevelInTrle(b.program, kPlainLevel)) state.SkipWithError("activation failed");
    state.SetIterationTime(
        Seconds([&] { return RemoveCurrentLevel(b.program, 0) == kPlainLevel; }, state));
  }
  SetLevelInTrle(b.program, 0);
  Figure(state, "BM_RmCp");
}

// The same files in a folder of their own, removed with rm -r; the three files they replaced
// copied back from the backup with one cp per target folder.
void BM_RmCp(benchmark::State& state) {
  Bench& b = TheBench();
  for (auto _ : state) {
    const fs::path target = b.FreshTarget();
    const fs::path level = target / "level";
    fs::copy(b.plain_files, level, fs::copy_options::recursive);
    fs::create_directories(target / "editor/data");
    state.SetIterationTime(Seconds(
        [&] {
          return Run({"rm", "-r", level.string()}) &&
                 Run({"cp", (b.backup / "data/title.tr4").string(),
                      (target / "editor/data").string()}) &&
                 Run({"cp", (b.backup / "script.dat").string(), (b.backup / "english.dat").string(),
                      (target / "editor").string()});
        },
        state));
  }
  Figure(state, nullptr);
}

#define FIGURE ->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5)
BENCHMARK(BM_ActivatePlain) FIGURE;
BENCHMARK(BM_CpR) FIGURE;
BENCHMARK(BM_ActivatePacked) FIGURE;
BENCHMARK(BM_PigzD) FIGURE;
BENCHMARK(BM_LeaveLevel) FIGURE;
BENCHMARK(BM_RmCp) FIGURE;

}  // namespace
}  // namespace vardolin

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  vardolin::TheBench();  // the reference level is made before any timing
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
