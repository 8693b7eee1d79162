// One tick of the game watcher with a live stand-in game and 2,000 files in the editor folder.
// The tick runs on the user-interface thread every CheckTenths x 100 ms, down to 100 ms, so its
// CPU time must stay under 1% of a core at that interval: under 1 ms per tick. The tick is
// measured as it will run with the full-slots step behind it (the savegame pattern listed in the
// editor folder, the one listing a live tick makes), and bare, with no step behind it. The
// reference, in the same run, is the least that listing can cost: opendir/readdir of the same
// folder, comparing each name's first nine characters without regard to case.
//
// Counter core_pct_at_100ms: CPU time per tick as a share of one core at the 100 ms interval.
// The stand-in game is found through $VARDOLIN_STANDINS, else beside this program's folder.

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <strings.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

#include "foundation/platform/linux_platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "play/game_watcher.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

constexpr int kFiles = 2000;
constexpr double kIntervalSeconds = 0.1;

class SilentUi : public Ui {
 public:
  int AskUser(const std::string&, int, const std::string&) override { return msg::kOk; }
  std::string AskInput(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
  std::string AskFolder(const std::string&, const std::string&) override { return {}; }
  std::string AskOpenFile(const FileRequest&) override { return {}; }
  std::string AskSaveFile(const FileRequest&) override { return {}; }
  void ShowModal(Form&) override {}
  void ShowModeless(Form&) override {}
  void DoEvents() override {}
  void SetClipboardText(const std::string&) override {}
  std::string ClipboardText() override { return {}; }
};

fs::path StandinGame() {
  const char* env = std::getenv("VARDOLIN_STANDINS");
  if (env && *env) return fs::path(env) / "standin_game";
  return fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "standins" /
         "standin_game";
}

double ThreadCpuSeconds() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// The editor folder with 2,000 files, 14 of them savegames, and the stand-in game running in it.
struct LiveGame {
  fs::path folder;
  SilentUi ui;
  LinuxPlatform platform;
  Program program;
  bool ok = false;

  LiveGame()
      : folder(fs::temp_directory_path() / ("vardolin-bench-watch-" + std::to_string(getpid()))),
        program(folder / "home", ui, platform) {
    fs::create_directories(folder / "trle");
    for (int i = 0; i < kFiles; ++i) {
      const std::string name =
          i < 14 ? "savegame." + std::to_string(i) : "file_" + std::to_string(i) + ".dat";
      std::ofstream(folder / "trle" / name) << name;
    }
    program.prefs.EditorFolder = (folder / "trle").string();
    auto game = platform.Start({StandinGame(), {}, folder / "trle", false});
    if (!game) return;
    program.GameProcess = *game;
    program.GameRunning = true;
    ok = true;
  }
  ~LiveGame() {
    platform.End(program.GameProcess);
    std::error_code ec;
    fs::remove_all(folder, ec);
  }
};

LiveGame& Game() {
  static LiveGame game;
  return game;
}

void ReportCpu(benchmark::State& state, double cpu_seconds) {
  const double per_tick = cpu_seconds / static_cast<double>(state.iterations());
  state.counters["core_pct_at_100ms"] = per_tick / kIntervalSeconds * 100.0;
}

void Tick(benchmark::State& state, const WatcherSteps& steps) {
  LiveGame& game = Game();
  if (!game.ok) {
    state.SkipWithError("the stand-in game didn't start; set VARDOLIN_STANDINS");
    return;
  }
  const double start = ThreadCpuSeconds();
  for (auto _ : state) {
    WatchEvent event = WatchGame(game.program, steps);
    if (event != WatchEvent::CommonAlive) {
      state.SkipWithError("the stand-in game ended during the run");
      return;
    }
    benchmark::DoNotOptimize(event);
  }
  ReportCpu(state, ThreadCpuSeconds() - start);
}

void BM_ListReference(benchmark::State& state) {
  LiveGame& game = Game();
  const std::string folder = game.program.prefs.EditorFolder;
  const double start = ThreadCpuSeconds();
  for (auto _ : state) {
    int count = 0;
    if (DIR* dir = opendir(folder.c_str())) {
      while (dirent* entry = readdir(dir))
        if (strncasecmp(entry->d_name, "savegame.", 9) == 0) ++count;
      closedir(dir);
    }
    benchmark::DoNotOptimize(count);
  }
  ReportCpu(state, ThreadCpuSeconds() - start);
}

void BM_WatcherTick(benchmark::State& state) {
  LiveGame& game = Game();
  WatcherSteps steps;
  int full = 0;
  steps.full_slots = [&] {
    if (ListFiles(game.program.prefs.EditorFolder, "savegame.*").size() == 15) ++full;
  };
  Tick(state, steps);
  state.SetLabel("vs:BM_ListReference");
}

void BM_WatcherTickBare(benchmark::State& state) {
  Tick(state, WatcherSteps{});
  state.SetLabel("vs:BM_ListReference");
}

BENCHMARK(BM_ListReference)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WatcherTick)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WatcherTickBare)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vardolin

BENCHMARK_MAIN();
