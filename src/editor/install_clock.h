#pragma once
// The time estimate of the editor install: the unpacking and the audio take minutes and report
// nothing, so the bar moves by elapsed time against the total expected from the stages done.

#include <array>
#include <chrono>
#include <string>

namespace vardolin {

class Program;
class ProgressBar;
class Timer;

class InstallClock {
 public:
  // `timer`, when given, moves `bar` every 500 ms once started.
  InstallClock(Program& program, ProgressBar& bar, Timer* timer);
  void Start();
  void Stop();
  // The end of stage 0 to 3: the expected total becomes the whole package's work over the work
  // done by then, times the time gone.
  void Tick(int stage);
  // Asks the message Yes/No with the clock stopped, so that the question's time doesn't count.
  // True when the user answered No (give up).
  bool Ask(const std::string& message);
  // What Timer1 does: the bar by elapsed time against the expected total.
  void ShowProgress();

 private:
  using Clock = std::chrono::steady_clock;
  double ElapsedMs() const;
  Program& program_;
  ProgressBar& bar_;
  Timer* timer_;
  Clock::time_point start_ = Clock::now();
  std::array<double, 4> stage_ms_{};
  double expected_ms_ = 0;
};

}  // namespace vardolin
