// The black test the watcher runs on every picture that turns up during play, against reading
// every pixel of the same picture in the same run. The test looks at the middle row and column
// only, so on a screen of w x h it should cost about (w + h) / (w x h) of the full scan: the
// goal is a ratio below 0.01 at 1920 x 1080 for a black picture, its worst case.

#include <benchmark/benchmark.h>

#include <algorithm>

#include "foundation/pictures/bitmap.h"
#include "savegames/capture.h"

namespace {

using vardolin::Bitmap;

Bitmap BlackScreen(int width, int height) {
  return Bitmap::Make(width, height, 3);
}

// The reference: whether any pixel of the whole picture is not black.
bool AnyColourAnywhere(const Bitmap& picture) {
  return std::any_of(picture.pixels.begin(), picture.pixels.end(),
                     [](std::uint8_t byte) { return byte != 0; });
}

void BM_FullScan(benchmark::State& state) {
  const Bitmap picture =
      BlackScreen(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  for (auto _ : state) benchmark::DoNotOptimize(AnyColourAnywhere(picture));
}

void BM_BlackTest(benchmark::State& state) {
  const Bitmap picture =
      BlackScreen(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  for (auto _ : state) benchmark::DoNotOptimize(vardolin::PictureHasColourOnCross(picture));
  state.SetLabel("vs:BM_FullScan");
}

BENCHMARK(BM_FullScan)->Args({640, 480})->Args({1920, 1080});
BENCHMARK(BM_BlackTest)->Args({640, 480})->Args({1920, 1080});

}  // namespace

BENCHMARK_MAIN();
