#pragma once
// The clock of the loops that watch an outside program in long steps (the converter's minute
// between two looks). A port, so that a test runs a minute in milliseconds and the program's
// rules about minutes still hold.

#include <chrono>

#include "foundation/ports/platform.h"

namespace vardolin {

class WatchClock {
 public:
  virtual ~WatchClock() = default;
  // Waits at most `period` for the process to end.
  virtual WaitResult WaitFor(Platform& platform, Process& process,
                             std::chrono::milliseconds period) = 0;
};

// The clock of the real world: a period is as long as it says.
class RealWatchClock : public WatchClock {
 public:
  WaitResult WaitFor(Platform& platform, Process& process,
                     std::chrono::milliseconds period) override {
    return platform.Wait(process, period);
  }
};

}  // namespace vardolin
