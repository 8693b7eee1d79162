// The audio converter against the Debian tools on the same files in the same run:
// - an MP3 of 3 minutes (128 kbit/s stereo) to the game's 4-bit wave, against madplay to a wave
//   followed by `sox -e ms-adpcm` (goal: ratio <= 1.05);
// - a 16-bit wave of 3 minutes to MP3 at 128 kbit/s, against `lame -b 128` alone (goal <= 1.05);
// - the MP3 length estimate over 1,000 files, as time per file.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "audio/dialog_converti_mp3.h"
#include "audio/mp3_duration.h"
#include "audio/wave_header.h"
#include "bench_data.h"
#include "bench_ports.h"
#include "bench_tools.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/texts/text_catalogue.h"

namespace {

namespace fs = std::filesystem;
using vardolin::bench::Run;

struct Setup {
  vardolin::bench::ScratchFolder scratch;
  fs::path root = scratch.path();
  vardolin::bench::SilentUi ui;
  vardolin::LinuxPlatform platform;
  vardolin::Program program{root / "home", ui, platform};
  fs::path wave = root / "music.wav";
  fs::path mp3 = root / "music.mp3";
  std::vector<fs::path> many;
  bool ok = true;

  Setup() {
    fs::create_directories(root / "home");
    vardolin::ReadTextFile(program, fs::path(VARDOLIN_SOURCE_DIR) / "resources" / "english.trc",
                           program.texts.EnglishTexts);
    // Three minutes of something like music: two voices that move, over a little noise.
    ok = Run({"sox",     "-n",          "-r",    "44100", "-c",   "2",       "-b",
              "16",      wave.string(), "synth", "180",   "sine", "220-880", "sine",
              "330-660", "pinknoise",   "remix", "1,3",   "2,3",  "vol",     "0.3"}) &&
         Run({"lame", "--quiet", "-b", "128", wave.string(), mp3.string()});
    fs::create_directories(root / "many");
    const std::string head = vardolin::ReadWholeFile(mp3).substr(0, 65536);
    for (int i = 0; i < 1000; ++i) {
      // Tags of growing length before the frames, as tagged files have.
      many.push_back(root / "many" / (std::to_string(i) + ".mp3"));
      vardolin::bench::Write(many.back(), "ID3" + std::string(i * 16, '\x01') + head);
    }
  }
};

Setup& TheSetup() {
  static Setup setup;
  return setup;
}

// Both sides run only on a set-up that made its files.
void MeasurePair(benchmark::State& state, const char* tool, const std::function<bool()>& ours,
                 const std::function<bool()>& reference) {
  const auto ready = [] { return TheSetup().ok; };
  vardolin::bench::MeasurePair(state, tool, {ready, ours}, {ready, reference});
}

void Mp3ToGameWave(benchmark::State& state) {
  Setup& s = TheSetup();
  const fs::path out = s.root / "ours4";
  fs::create_directories(out);
  const std::string ref = (s.root / "ref.wav").string();
  const std::string ref4 = (s.root / "ref4.wav").string();
  MeasurePair(
      state, "madplay+sox",
      [&] {
        std::string why;
        return vardolin::RunAudioConversion(s.program, {s.mp3}, out, vardolin::wave_kind::kMusic,
                                            why);
      },
      [&] {
        return Run({"madplay", "-Q", "-o", "wave:" + ref, s.mp3.string()}) &&
               Run({"sox", ref, "-e", "ms-adpcm", ref4});
      });
}

void WaveToMp3(benchmark::State& state) {
  Setup& s = TheSetup();
  const fs::path out = s.root / "ours5";
  fs::create_directories(out);
  s.program.encoder = {128, 2, 0};
  MeasurePair(
      state, "lame",
      [&] {
        std::string why;
        return vardolin::RunAudioConversion(s.program, {s.wave}, out, vardolin::wave_kind::kMp3,
                                            why);
      },
      [&] {
        return Run(
            {"lame", "--quiet", "-b", "128", s.wave.string(), (s.root / "ref.mp3").string()});
      });
}

void Mp3Duration(benchmark::State& state) {
  Setup& s = TheSetup();
  for (auto _ : state)
    for (const fs::path& file : s.many)
      benchmark::DoNotOptimize(vardolin::Mp3DurationSeconds(file));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(s.many.size()));
}

BENCHMARK(Mp3ToGameWave)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(4);
BENCHMARK(WaveToMp3)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(4);
BENCHMARK(Mp3Duration)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
