#include "play/game_launch.h"

#include <cerrno>
#include <optional>

#include "foundation/platform/linux_platform.h"
#include "foundation/ports/platform.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/native_programs.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/active_level.h"
#include "play/text_ids.h"

namespace vardolin {

namespace fs = std::filesystem;

namespace {

StartRequest Request(const fs::path& program_file, const std::string& words) {
  StartRequest request;
  request.program = program_file;
  request.arguments = SplitCommandWords(words);
  request.working_folder = program_file.parent_path();
  return request;
}

// A game program that came with a level starts only through Wine. A native one runs only when
// the home allows its very bytes (the stand-ins of the demo and the tests): a shell script a
// package named tomb4.exe would otherwise run in the editor folder with the user's rights.
bool MayStart(Program& program, const fs::path& file) {
  if (IsWindowsProgram(file) || IsAllowedNativeProgram(program.Home(), ResolveCase(file)))
    return true;
  WriteLog(program, "Not started: " + file.string() +
                        " is no Windows program, and the home doesn't allow it to run natively (" +
                        AllowedProgramsFile(program.Home()).string() + ")");
  return false;
}

}  // namespace

const std::vector<std::string>& MediaHelperFiles() {
  static const std::vector<std::string> names = {"Tomb_Logger.exe", "EnumVideoMode.exe",
                                                 "TOMBKEY.VXD"};
  return names;
}

fs::path GameProgramPath(const Program& program) {
  return JoinFragment(EditorFolderPath(program), program.GetText(text::GameProgramPath));
}

fs::path MediaPlayerPath(const Program& program) {
  return JoinFragment(EditorFolderPath(program), program.GetText(text::MediaPlayerPath));
}

bool IsMediaLevel(Program& program, fs::path& folder) {
  if (folder.empty()) folder = EditorFolderPath(program);
  return !ListFiles(folder, WithoutLeadingSeparators(program.GetText(text::MediaLevelPattern)))
              .empty();
}

void PrepareMediaPlay(Program& program) {
  const fs::path editor = EditorFolderPath(program);
  const std::string player = ExtractFileName(program.GetText(text::MediaPlayerPath));
  CopyFileOver(program.Home() / player, editor / player);
  fs::path folder = editor;
  if (!IsMediaLevel(program, folder)) return;
  if (FileExists(JoinFragment(editor, program.GetText(text::MediaHelpersNotNeeded)))) return;
  // A level may bring its own helper, in the root or in its store; ours only fills the gap.
  const fs::path store = JoinFragment(editor, program.GetText(text::CleanedFolder1));
  for (const std::string& helper : MediaHelperFiles()) {
    if (FileExists(editor / helper) || FileExists(JoinFragment(store, helper))) continue;
    CopyFileOver(program.Home() / helper, editor / helper);
  }
}

bool LaunchMediaPlayer(Program& program, const std::string& command_line) {
  const fs::path player =
      JoinFragment(EditorFolderPath(program), program.GetText(text::MediaPlayerStartPath));
  if (!MayStart(program, player)) return false;
  std::optional<Process> started = program.platform().Start(Request(player, command_line));
  if (!started || !started->Valid()) return false;
  program.MediaProcess = *started;
  return true;
}

bool LaunchGame(Program& program, const std::string& parameters) {
  const fs::path game = GameProgramPath(program);
  WriteLog(program, "Create process for tom4: " + game.string());
  if (!MayStart(program, game)) return false;
  errno = 0;
  std::optional<Process> started = program.platform().Start(Request(game, parameters));
  if (!started || !started->Valid()) {
    const int code = errno;
    WriteLog(program, "Error code: " + std::to_string(code));
    return false;
  }
  program.GameProcess = *started;
  return true;
}

void Beep(Program& program, int frequency_hz, int milliseconds) {
  if (program.prefs.SoundDisabled()) return;
  program.platform().Beep(frequency_hz, milliseconds);
}

}  // namespace vardolin
