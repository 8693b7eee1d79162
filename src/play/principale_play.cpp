// The main window's part in playing: Pul_Play, the watcher's Timer1, and what the window
// shows and asks while a game runs.

#include "archive/archive_ask.h"
#include "archive/catalogue_ops.h"
#include "archive/level_browser.h"
#include "archive/principale.h"
#include "archive/text_ids.h"
#include "foundation/program.h"
#include "play/game_watcher.h"
#include "play/play_level.h"

namespace vardolin {

void Principale::WirePlay() {
  Pul_Play.SetHandler([this] {
    PlayChosenLevel(*this);
    ShowGameState();
  });
  Timer1.SetHandler([this] { Timer1_Timer(); });
}

void Principale::Timer1_Timer() {
  // The common game's end refreshes the panels on the last pair of screenshots; after a media
  // game the collection of its pictures does that.
  if (WatchGame(program(), Watcher) == WatchEvent::CommonEnded) AggiornaDatiLivello(*this);
  // Whoever started or saw the end of a game, the window says so within a tick.
  if (game_shown_ != program().GameRunning) ShowGameState();
}

void Principale::ShowGameState() {
  game_shown_ = program().GameRunning;
  UpdateMainTitle(program());
  Label_Info.SetCaption(game_shown_ ? program().GetText(text::GameRunningStatus) : std::string());
}

bool Principale::QueryUnload() {
  // Closing ends the watching, not the game: what it saves from then on stays in its slots.
  if (!program().GameRunning) return true;
  return ArchiveAsk(program(), program().GetText(text::CloseWhileGameRuns, {"\r\n", "\r\n\r\n"}),
                    msg::kYesNo | msg::kWarning) == msg::kYes;
}

}  // namespace vardolin
