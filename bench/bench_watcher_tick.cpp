// One tick of the game watcher with a live stand-in game and 2,000 files in the editor folder.
// The tick runs on the user-interface thread every CheckTenths x 100 ms, down to 100 ms, so its
// CPU time must stay under 1% of a core at that interval: under 1 ms per tick. The tick is
// measured as it will run with the full-slots step behind it (the savegame pattern listed in the
// editor folder, the one listing a live tick makes), and bare, with no step behind it. The
// reference, in the same run, is the least that listing can cost: opendir/readdir of the same
// folder, comparing each name's first nine characters without regard to case.
//
//
// The tick with the main window's own steps behind it (keys, joystick, full slots, clipboard):
// 15 savegames in the editor folder, which the full-slots step lists and leaves alone
// (ArchiveSavegames off), and a 1280 x 720 coloured picture on the clipboard at every tick, which
// the clipboard step stores as the active level's shot (deleted outside the timing), without and
// with the black test (VerifyImage). A tick that finds a picture is a one-off during play, so
// its CPU time is told as ms_per_picture_tick besides the share of a core.
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

#include "archive/level_store.h"
#include "bench_archive.h"
#include "bench_ports.h"
#include "foundation/pictures/bitmap.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/texts/text_catalogue.h"
#include "play/active_level.h"
#include "play/game_watcher.h"
#include "play/text_ids.h"
#include "window/principale.h"

namespace vardolin {
namespace {
namespace fs = std::filesystem;

constexpr int kFiles = 2000;
constexpr double kIntervalSeconds = 0.1;

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
  bench::SilentUi ui;
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

// A clipboard that always holds the same coloured picture: clearing it does nothing, so every
// tick finds it.
class PictureUi : public bench::SilentUi {
 public:
  PictureUi() : picture_(Bitmap::Make(1280, 720)) {
    for (int y = 0; y < picture_.height; ++y)
      for (int x = 0; x < picture_.width; ++x) {
        std::uint8_t* p = picture_.Pixel(x, y);
        p[0] = static_cast<std::uint8_t>(x);
        p[1] = static_cast<std::uint8_t>(y);
        p[2] = static_cast<std::uint8_t>(x ^ y);
      }
  }
  bool ClipboardHasImage() override { return true; }
  bool ClipboardImage(Bitmap& out) override {
    out = picture_;
    return true;
  }

 private:
  Bitmap picture_;
};

// The editor folder with 2,000 files, 15 of them savegames, level 1 standing in it, the stand-in
// game running there and the main window over it all.
struct LiveWindow {
  fs::path folder;
  PictureUi ui;
  LinuxPlatform platform;
  Program program;
  std::unique_ptr<Principale> main;
  fs::path shots;
  bool ok = false;

  LiveWindow()
      : folder(fs::temp_directory_path() / ("vardolin-bench-window-" + std::to_string(getpid()))),
        program(folder / "home", ui, platform) {
    const fs::path trle = folder / "trle";
    bench::PrepareOneLevelProgram(program, folder);
    for (int i = 0; i < kFiles; ++i) {
      const std::string name =
          i < 15 ? "savegame." + std::to_string(i) : "file_" + std::to_string(i) + ".dat";
      std::ofstream(trle / name) << name;
    }
    program.prefs.ArchiveSavegames = false;
    program.prefs.PromptCapture = false;
    program.prefs.Flags |= 1;  // no sound: the beeps would hold the tick for their length
    shots = GetLevelFolder(program, 1, false) / "screenshots";
    std::ofstream(ActiveLevelFilePath(program))
        << program.GetText(text::ActiveLevelCodeKey) << "0001#\r\n";
    main = std::make_unique<Principale>(program);
    auto game = platform.Start({StandinGame(), {}, trle, false});
    if (!game) return;
    program.GameProcess = *game;
    program.GameRunning = true;
    ok = GetActiveLevelCode(program) == 1;
  }
  ~LiveWindow() {
    platform.End(program.GameProcess);
    std::error_code ec;
    fs::remove_all(folder, ec);
  }
};

void LiveTick(benchmark::State& state, bool verify) {
  LiveWindow window;
  if (!window.ok) {
    state.SkipWithError("the stand-in game didn't start or no level is active");
    return;
  }
  window.program.prefs.VerifyImage = verify;
  double cpu = 0;
  for (auto _ : state) {
    const double start = ThreadCpuSeconds();
    WatchEvent event = WatchGame(window.program, window.main->Watcher);
    cpu += ThreadCpuSeconds() - start;
    state.PauseTiming();
    std::error_code ec;
    const bool stored = fs::remove(window.shots / "1) My level.jpg", ec);
    state.ResumeTiming();
    if (event != WatchEvent::CommonAlive || !stored) {
      state.SkipWithError("the game ended or the picture wasn't stored");
      return;
    }
  }
  ReportCpu(state, cpu);
  state.counters["ms_per_picture_tick"] = cpu / static_cast<double>(state.iterations()) * 1e3;
  state.SetLabel("vs:BM_ListReference");
}

void BM_WatcherTickPicture(benchmark::State& state) {
  LiveTick(state, false);
}
void BM_WatcherTickPictureVerified(benchmark::State& state) {
  LiveTick(state, true);
}

BENCHMARK(BM_ListReference)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WatcherTick)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WatcherTickBare)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WatcherTickPicture)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WatcherTickPictureVerified)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vardolin

BENCHMARK_MAIN();
