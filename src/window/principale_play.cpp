// The main window's part in playing: Pul_Play, the watcher's Timer1, and what the window
// shows and asks while a game runs.

#include "archive/catalogue_ops.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "play/game_watcher.h"
#include "play/play_level.h"
#include "play/text_ids.h"
#include "window/principale.h"
#include "window/principale_levels.h"

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
  Pul_Play.SetHandler([this] {
    PlayChosenLevel(*this);
    ShowGameState();
  });
  Timer1.SetHandler([this] { Timer1_Timer(); });
}

void Principale::Timer1_Timer() {
  // The common game's end refreshes the panels on the last pair of screenshots, which the
  // watcher noted; after a media game the collection of its pictures does that.
  if (WatchGame(program(), Watcher) == WatchEvent::CommonEnded)
    AggiornaDatiLivello(*this, program().FirstShotShown);
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
  return AskUser(program(), program().GetText(text::CloseWhileGameRuns, {"\r\n", "\r\n\r\n"}),
                 msg::kYesNo | msg::kWarning) == msg::kYes;
}

}  // namespace vardolin
