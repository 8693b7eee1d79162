#include "editor/setup_trle.h"

#include <chrono>
#include <string>
#include <thread>

#include "editor/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "play/game_launch.h"
#include "play/text_ids.h"

namespace vardolin {

bool SetupTrle(Program& program) {
  const std::string line = "\r\n";
  const std::string warning =
      program.GetText(text::SetupTrleWarning, {line, line, line, line, line + line});
  if (AskUser(program, warning, msg::kOkCancel) != msg::kOk) return false;
  if (!LaunchGame(program, program.GetText(text::SetupTrleParameter))) {
    AskUser(program, program.GetText(vardolin::text::GameNotStarted), msg::kError);
    return false;
  }
  // Whatever lay on the clipboard before would be taken for the setup's first screenshot.
  program.ui().SetClipboardText("");
  std::this_thread::sleep_for(std::chrono::milliseconds(kSetupSettleMs));
  program.GameRunning = true;
  return true;
}

}  // namespace vardolin
