#include "play/play_level.h"

#include <filesystem>
#include <string>

#include "archive/archive_ask.h"
#include "archive/principale.h"
#include "foundation/forms/controls.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "play/activation.h"
#include "play/game_launch.h"
#include "play/game_watcher.h"
#include "play/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

void SetWatchInterval(Program& program, int milliseconds) {
  if (program.main.timer1) program.main.timer1->SetInterval(milliseconds);
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
    ArchiveAsk(program,
               program.GetText(text::MediaPlayerMissing,
                               {ExtractFileName(program.GetText(text::MediaPlayerPath))}),
               msg::kWarning);
    return PlayResult::PlayerMissing;
  }
  const std::string command_line = program.GetText(text::MediaPlayerCommandLine);
  WriteLog(program, "Launch play_the_game.exe with command line: " + command_line);
  if (!LaunchMediaPlayer(program, command_line)) {
    WriteLog(program, "Error launching playthegame");
    ArchiveAsk(program, program.GetText(text::MediaPlayerNotStarted) + player.string(),
               msg::kError);
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
    ArchiveAsk(program, program.GetText(text::GameNotStarted), msg::kError);
    return PlayResult::NotStarted;
  }
  program.GameRunning = true;
  return PlayResult::Started;
}

}  // namespace

PlayResult PlayLevel(Program& program, std::int32_t code) {
  ResetLog(program);
  WriteLog(program, "SetLevelInTrle()");
  if (!SetLevelInTrle(program, code)) {
    ArchiveAsk(program, program.GetText(text::PlayLevelNotSet), msg::kError);
    return PlayResult::LevelNotSet;
  }
  fs::path editor;
  return IsMediaLevel(program, editor) ? PlayMedia(program) : PlayCommon(program);
}

void PlayChosenLevel(Principale& main) {
  Program& program = main.program();
  const int row = main.Combo_Livelli.ListIndex();
  if (row < 0) {
    ArchiveAsk(program, program.GetText(text::PlayNoLevelChosen), msg::kError);
    return;
  }
  PlayLevel(program, static_cast<std::int32_t>(main.Combo_Livelli.ItemData(row)));
}

}  // namespace vardolin
