// The main window's part in playing: Pul_Play and the watcher's Timer1.

#include "archive/level_browser.h"
#include "archive/principale.h"
#include "foundation/program.h"
#include "play/game_watcher.h"
#include "play/play_level.h"

namespace vardolin {

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
