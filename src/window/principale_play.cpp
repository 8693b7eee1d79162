// The main window's part in playing: Pul_Play, the watcher's Timer1, and what the window
// shows and asks while a game runs.

#include "archive/catalogue_ops.h"
#include "archive/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "play/active_level.h"
#include "play/game_watcher.h"
#include "play/play_level.h"
#include "play/text_ids.h"
#include "savegames/replaced_notes.h"
#include "savegames/savegame_store.h"
#include "window/principale.h"
#include "window/principale_levels.h"
#include "window/principale_next_step.h"
#include "window/principale_savegames.h"

namespace vardolin {

void PlayChosenLevel(Principale& main) {
  Program& program = main.program();
  const std::optional<std::int32_t> code = main.ChosenLevelCode();
  if (!code) {
    // A new user without a level learns what to do before there is one to choose.
    const std::string next = NextStepText(program, FindNextStep(program));
    AskUser(program,
            program.GetText(text::PlayNoLevelChosen) + (next.empty() ? "" : "\r\n\r\n" + next),
            next.empty() ? msg::kError : msg::kInformation);
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
  Program& p = program();
  // What the game saved since the last tick loses the note of the savegame it replaced; the
  // tick's own steps move savegames with their notes, so the slots are read again after them.
  const std::int32_t active = p.GameRunning ? GetActiveLevelCode(p) : 0;
  if (p.GameRunning && SetAsideReplacedNotes(p, active, slot_times_) > 0)
    ShowSelectedSavegame(*this);
  // The common game's end refreshes the panels on the last pair of screenshots, which the
  // watcher noted; after a media game the collection of its pictures does that.
  if (WatchGame(p, Watcher) == WatchEvent::CommonEnded)
    AggiornaDatiLivello(*this, p.FirstShotShown);
  slot_times_ = p.GameRunning ? ReadSlotWriteTimes(p, SlotFolder(p, active)) : SlotWriteTimes();
  // Whoever started or saw the end of a game, the window says so within a tick.
  if (game_shown_ != program().GameRunning) ShowGameState();
}

void Principale::ShowGameState() {
  game_shown_ = program().GameRunning;
  // A second press (a double click) would only be refused: Play waits for the game's end.
  Pul_Play.SetEnabled(!game_shown_);
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
