#include "play_commands.h"

#include <chrono>
#include <ostream>
#include <thread>

#include "archive/catalogue_ops.h"
#include "archive/editor_backup.h"
#include "catalogue_commands.h"
#include "foundation/ports/platform.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/strings.h"
#include "play/game_watcher.h"
#include "play/play_level.h"

namespace vardolin {

int CmdPlay(Program& program, std::int32_t code, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err) || !LevelKnown(program, code, err)) return 1;
  const int index = FindLevelIndex(program.catalogue, code);
  const std::string editor = Trim(program.prefs.EditorFolder);
  if (editor.empty() || !FolderExists(editor)) {
    err << "vardolin-cli: the settings " << SettingsFilePath(program)
        << " name no editor folder that stands; run vardolin-cli setup (or start vardolin) first\n";
    return 1;
  }
  // Without the editor's own files kept aside, the level that leaves couldn't give them back.
  if (!BackupComplete(program)) {
    err << "vardolin-cli: the editor's files have no backup yet in "
        << EditorBackupFolder(program).string()
        << "; run vardolin-cli setup (or start vardolin) first\n";
    return 1;
  }
  const std::string name = Trim(program.catalogue.levels[index].Name);
  if (PlayLevel(program, code) != PlayResult::Started) {
    err << "vardolin-cli: the level " << code << " could not be played; "
        << LogPath(program).string() << " tells the steps\n";
    return 1;
  }
  out << "playing " << code << " \"" << name << "\" from " << editor << "\n" << std::flush;
  // No keys, joystick or clipboard here: the watcher only waits for the end.
  const Process watched = program.MediaPlay ? program.MediaProcess : program.GameProcess;
  const int interval = program.MediaPlay ? kMediaTickMs : CommonTickMs(program);
  const WatcherSteps steps;
  for (;;) {
    WatchGame(program, steps);
    if (!program.GameRunning) break;
    std::this_thread::sleep_for(std::chrono::milliseconds(interval > 0 ? interval : 100));
  }
  out << "the game ended with exit code " << program.platform().ExitCode(watched)
      << "; the level stays in the editor folder\n";
  return 0;
}

}  // namespace vardolin
