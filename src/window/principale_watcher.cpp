// What the watcher does for savegames and screenshots while a common game runs: the hot keys,
// the full slots and the screenshot on the clipboard; and after a media launch, the pictures it
// left behind. Each step reads the active level from the marker, not the chooser: the user may
// browse other levels while playing.

#include <cstdint>

#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/processes.h"
#include "foundation/services/strings.h"
#include "play/active_level.h"
#include "play/game_launch.h"
#include "savegames/capture.h"
#include "savegames/capture_source.h"
#include "savegames/savegame_sets.h"
#include "savegames/text_ids.h"
#include "window/principale.h"
#include "window/principale_levels.h"
#include "window/principale_savegames.h"

namespace vardolin {
namespace {

constexpr int kKeyF9 = 120;
constexpr int kKeyF11 = 122;
// The game has fifteen slots; the watcher acts on exactly that many, not on more, since more
// means files the game didn't write.
constexpr std::size_t kGameSlots = 15;

bool SlotsAreFull(Program& program) {
  const std::string folder = Trim(program.prefs.EditorFolder);
  if (folder.empty()) return false;
  return ListFiles(folder, program.GetText(text::WatcherSavegamePattern)).size() == kGameSlots;
}

void ArchiveActiveSlots(Program& program, std::int32_t count) {
  ArchiveSlotSavegames(program, GetActiveLevelCode(program), count);
}

}  // namespace

void Principale::WireWatcherSteps() {
  Watcher.f9_archive = [this] {
    Program& p = program();
    if (!IsKeyCombinationDown(p.platform(), kKeyF9)) return;
    Beep(p, 200, 150);
    ArchiveActiveSlots(p, static_cast<std::int32_t>(kGameSlots));
    AggiornaDatiLivello(*this, p.FirstShotShown);
  };
  Watcher.f11_restore = [this] {
    Program& p = program();
    if (!IsKeyCombinationDown(p.platform(), kKeyF11)) return;
    Beep(p, 200, 150);
    RestoreArchivedSavegames(p, GetActiveLevelCode(p));
    AggiornaDatiLivello(*this, p.FirstShotShown);
  };
  Watcher.full_slots = [this] {
    Program& p = program();
    if (!p.prefs.ArchiveSavegames || !SlotsAreFull(p)) return;
    ArchiveActiveSlots(p, p.prefs.SavegamesToArchive);
    Beep(p, 300, 100);
    Beep(p, 100, 150);
    AggiornaDatiLivello(*this, p.FirstShotShown);
  };
  Watcher.screenshot = [this] {
    Program& p = program();
    WatchScreenCapture(p, p.GameProcess, PrintScreen);
  };
  Watcher.collect_media_shots = [this] {
    Program& p = program();
    CollectMediaShots(p);
    if (p.prefs.ArchiveSavegames && SlotsAreFull(p)) {
      ArchiveActiveSlots(p, p.prefs.SavegamesToArchive);
      AggiornaDatiLivello(*this, p.FirstShotShown);
    }
  };
  Joystick.ArchivedSaves = &List_SaveGameArchiviati;
  Joystick.RestoreSaveGame = [this] { Pul_RestoreSaveGame.Click(); };
}

}  // namespace vardolin
