// The main window's part in playing: Pul_Play and the watcher's Timer1.

#include "window/principale_levels.h"
#include "window/principale.h"
#include "foundation/program.h"
#include "play/game_watcher.h"
#include "play/play_level.h"
#include "play/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"

namespace vardolin {

void PlayChosenLevel(Principale& main) {
  Program& program = main.program();
  const std::optional<std::int32_t> code = main.ChosenLevelCode();
  if (!code) {
    AskUser(program, program.GetText(text::PlayNoLevelChosen), msg::kError);
    return;
  }
  PlayLevel(program, *code);
}

void Principale::WirePlay() {
  Pul_Play.SetHandler([this] { PlayChosenLevel(*this); });
  Timer1.SetHandler([this] { Timer1_Timer(); });
}

void Principale::Timer1_Timer() {
  // The common game's end refreshes the panels on the last pair of screenshots, which the
  // watcher noted; after a media game the collection of its pictures does that.
  if (WatchGame(program(), Watcher) == WatchEvent::CommonEnded)
    AggiornaDatiLivello(*this, program().FirstShotShown);
}

}  // namespace vardolin
