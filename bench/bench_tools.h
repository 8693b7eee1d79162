#pragma once
// What the benchmarks share to set up and to run their reference tools.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

extern char** environ;

namespace vardolin::bench {

inline void Write(const std::filesystem::path& path, const std::string& bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// Runs a tool (looked up on PATH) in `dir`, its output thrown away; true when it exits with 0.
inline bool Run(std::vector<std::string> args, const std::filesystem::path& dir = {}) {
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  if (!dir.empty()) posix_spawn_file_actions_addchdir_np(&actions, dir.c_str());
  pid_t pid;
  const int started = posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (started != 0) return false;
  int status = 0;
  return waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Wall-clock seconds of one run of `body`; `ok` turns false when it fails.
inline double Seconds(const std::function<bool()>& body, bool& ok) {
  const auto start = std::chrono::steady_clock::now();
  ok = body() && ok;
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  const std::size_t n = v.size();
  return n == 0 ? 0 : n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

// One side of a figure: `prepare` sets up its starting state untimed, `body` is timed.
struct Side {
  std::function<bool()> prepare, body;
};

// Ours and the reference in turns within each iteration, alternating which goes first, so that
// load from elsewhere on the machine falls on both alike. Before each timed part the disk is
// synced: neither side then pays for writing back what the other (or the set-up) left dirty,
// and both read the same files from a warm cache. The figure's time is ours; the counters give
// the reference's median time and the median of the per-iteration ratios, which bench/compare
// prints.
inline void MeasurePair(benchmark::State& state, const char* reference, const Side& ours,
                        const Side& ref) {
  std::vector<double> ours_s, ref_s, ratios;
  bool ok = true;
  int turn = 0;
  auto run = [&](const Side& side) {
    ok = side.prepare() && ok;
    ::sync();
    return Seconds(side.body, ok);
  };
  for (auto _ : state) {
    double t_ours, t_ref;
    if (turn++ % 2 == 0) {
      t_ours = run(ours);
      t_ref = run(ref);
    } else {
      t_ref = run(ref);
      t_ours = run(ours);
    }
    if (!ok) {
      state.SkipWithError("the operation failed");
      return;
    }
    state.SetIterationTime(t_ours);
    ours_s.push_back(t_ours);
    ref_s.push_back(t_ref);
    ratios.push_back(t_ref > 0 ? t_ours / t_ref : 0);
  }
  state.SetLabel(std::string("vs:") + reference);
  state.counters["median_ms"] = 1000 * Median(ours_s);
  state.counters["reference_ms"] = 1000 * Median(ref_s);
  state.counters["ratio"] = Median(ratios);
}

}  // namespace vardolin::bench
