#include "editor/install_clock.h"

#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"

namespace vardolin {

namespace {
constexpr int kTickMs = 500;
}  // namespace

InstallClock::InstallClock(Program& program, ProgressBar& bar, Timer* timer)
    : program_(program), bar_(bar), timer_(timer) {
  if (!timer_) return;
  timer_->SetEnabled(false);
  timer_->SetInterval(kTickMs);
  timer_->SetHandler([this] { ShowProgress(); });
}

void InstallClock::Start() {
  start_ = Clock::now();
  if (timer_) timer_->SetEnabled(true);
}

void InstallClock::Stop() {
  if (timer_) timer_->SetEnabled(false);
}

double InstallClock::ElapsedMs() const {
  return std::chrono::duration<double, std::milli>(Clock::now() - start_).count();
}

void InstallClock::Tick(int stage) {
  const auto& sizes = program_.lists.EditorPackageSizes;
  if (stage < 0 || stage >= static_cast<int>(stage_ms_.size())) return;
  stage_ms_[stage] = ElapsedMs();
  // The lists are built at start-up; an install from the command line may come before.
  if (sizes.size() < 4 || sizes[stage] <= 0) {
    AskUser(program_, program_.GetText(text::InstallEstimateError) + "no package sizes",
            msg::kError);
    return;
  }
  expected_ms_ = static_cast<double>(sizes[3]) / sizes[stage] * stage_ms_[stage];
}

bool InstallClock::Ask(const std::string& message) {
  bool running = timer_ && timer_->Enabled();
  Stop();
  auto asked = Clock::now();
  bool give_up = AskUser(program_, message, msg::kYesNo) != msg::kYes;
  if (give_up) return true;
  start_ += Clock::now() - asked;
  if (running) timer_->SetEnabled(true);
  return false;
}

void InstallClock::ShowProgress() {
  if (expected_ms_ > 0) SetProgressPercent(bar_, expected_ms_, ElapsedMs());
}

}  // namespace vardolin
