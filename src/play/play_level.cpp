#include "play/play_level.h"

#include <filesystem>
#include <string>

#include "archive/level_store.h"
#include "foundation/dialogs/ask.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "play/activation.h"
#include "play/game_launch.h"
#include "play/game_watcher.h"
#include "play/text_ids.h"
#include "web/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

void SetWatchInterval(Program& program, int milliseconds) {
  if (program.main.timer1) program.main.timer1->SetInterval(milliseconds);
}

// A media level is played through the player the program's folder gives the editor folder. The
// stored level tells whether it is one (its media files may be packed), so that a level that
// can't be played is found out before anything moves into the editor folder.
bool MediaPlayerLacking(Program& program, std::int32_t code) {
  const std::string player = ExtractFileName(program.GetText(text::MediaPlayerPath));
  if (FileExists(program.Home() / player) || FileExists(MediaPlayerPath(program))) return false;
  const fs::path files =
      JoinFragment(GetLevelFolder(program, code, false), program.GetText(text::PlayFilesFolder));
  const std::string pattern = WithoutLeadingSeparators(program.GetText(text::MediaLevelPattern));
  return !ListFiles(files, pattern).empty() ||
         !ListFiles(files, pattern + program.GetText(text::PackedSuffix)).empty();
}

void TellMediaPlayerMissing(Program& program) {
  AskUser(program,
          program.GetText(
              text::MediaPlayerMissing,
              {ExtractFileName(program.GetText(text::MediaPlayerPath)), program.Home().string()}),
          msg::kWarning);
}

PlayResult PlayMedia(Program& program) {
  WriteLog(program, "Level use media files");
  PrepareMediaPlay(program);
  SetWatchInterval(program, kMediaTickMs);
  program.MediaPlay = true;
  const fs::path player = MediaPlayerPath(program);
  WriteLog(program, "Verify for presence of play_the_game.exe at: " + player.string());
  if (!FileExists(player)) {
    WriteLog(program, "Missing playthegame.exe");
    TellMediaPlayerMissing(program);
    return PlayResult::PlayerMissing;
  }
  const std::string command_line = program.GetText(text::MediaPlayerCommandLine);
  WriteLog(program, "Launch play_the_game.exe with command line: " + command_line);
  if (!LaunchMediaPlayer(program, command_line)) {
    WriteLog(program, "Error launching playthegame");
    AskUser(program, program.GetText(text::MediaPlayerNotStarted) + player.string(), msg::kError);
    return PlayResult::NotStarted;
  }
  program.GameRunning = true;
  return PlayResult::Started;
}

PlayResult PlayCommon(Program& program) {
  program.MediaPlay = false;
  SetWatchInterval(program, CommonTickMs(program));
  WriteLog(program, "Common level (non media files)");
  if (!LaunchGame(program, "")) {
    AskUser(program, program.GetText(text::GameNotStarted), msg::kError);
    return PlayResult::NotStarted;
  }
  program.GameRunning = true;
  return PlayResult::Started;
}

}  // namespace

PlayResult PlayLevel(Program& program, std::int32_t code) {
  ResetLog(program);
  if (MediaPlayerLacking(program, code)) {
    WriteLog(program, "Missing playthegame.exe");
    TellMediaPlayerMissing(program);
    return PlayResult::PlayerMissing;
  }
  WriteLog(program, "SetLevelInTrle()");
  if (!SetLevelInTrle(program, code)) {
    AskUser(program, program.GetText(text::PlayLevelNotSet), msg::kError);
    return PlayResult::LevelNotSet;
  }
  fs::path editor;
  return IsMediaLevel(program, editor) ? PlayMedia(program) : PlayCommon(program);
}

}  // namespace vardolin
