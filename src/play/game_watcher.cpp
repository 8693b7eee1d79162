#include "play/game_watcher.h"

#include <algorithm>
#include <chrono>

#include "foundation/ports/platform.h"
#include "foundation/program.h"

namespace vardolin {

namespace {

// A wait of no time that doesn't find the process running counts as its end: a process we can
// no longer wait on (never started, already reaped elsewhere) would otherwise be watched forever.
bool Ended(Program& program, Process& process) {
  if (!process.Valid()) return true;
  return program.platform().Wait(process, std::chrono::milliseconds{0}) != WaitResult::TimedOut;
}

void Run(const std::function<void()>& step) {
  if (step) step();
}

}  // namespace

int CommonTickMs(const Program& program) {
  return program.prefs.CheckTenths * 100;
}

std::int32_t LastPairIndex(std::int32_t shot_count) {
  std::int32_t index = shot_count - 1;
  if (index % 2 != 0) index -= 1;
  return std::max<std::int32_t>(index, 0);
}

WatchEvent WatchGame(Program& program, const WatcherSteps& steps) {
  if (!program.GameRunning) return WatchEvent::Idle;
  if (program.MediaPlay) {
    if (!Ended(program, program.MediaProcess)) return WatchEvent::MediaAlive;
    Run(steps.collect_media_shots);
    program.GameRunning = false;
    return WatchEvent::MediaEnded;
  }
  if (Ended(program, program.GameProcess)) {
    program.GameRunning = false;
    program.GameProcess = {};
    program.FirstShotShown = LastPairIndex(program.ShotCount);
    return WatchEvent::CommonEnded;
  }
  Run(steps.joystick);
  Run(steps.f9_archive);
  Run(steps.f11_restore);
  Run(steps.full_slots);
  Run(steps.screenshot);
  return WatchEvent::CommonAlive;
}

}  // namespace vardolin
