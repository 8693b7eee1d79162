#include "audio/audio_tools.h"

#include <algorithm>
#include <cstdlib>

#include "audio/mp3_duration.h"
#include "audio/text_ids.h"
#include "audio/wave_header.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/text_scan.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

void ResetBar(AudioToolState& state) {
  if (state.bar) state.bar->SetValue(0);
}

// Line handlers; true goes on. The decoder's lines carry its running time at fixed places
// (" mm:ss" behind an hour field), the encoder's a percentage as "(nn%)". Each is first called
// with an empty line and -1 to set up.
bool GestioneMadPlay(Program& program, AudioToolState& state, const std::string& BufLinea,
                     double Valore) {
  if (Valore == -1) {
    ResetBar(state);
    state.minutes = state.seconds = -1;
    return true;
  }
  if (BufLinea.size() >= 9 && BufLinea[3] == ':' && BufLinea[6] == ':') {
    std::size_t pos = 4;
    const int minutes = std::atoi(NextNumberInText(BufLinea, pos).c_str());
    pos = 7;
    const int seconds = std::atoi(NextNumberInText(BufLinea, pos).c_str());
    if (minutes != state.minutes || seconds != state.seconds) {
      state.minutes = minutes;
      state.seconds = seconds;
      if (state.bar) SetProgressPercent(*state.bar, Valore, minutes * 60.0 + seconds);
    }
  }
  program.ui().DoEvents();
  return true;
}

bool GestioneLame(Program& program, AudioToolState& state, const std::string& BufLinea,
                  double Valore) {
  if (Valore == -1) {
    ResetBar(state);
    return true;
  }
  const std::size_t open = BufLinea.find('(');
  if (open != std::string::npos && BufLinea.find("%)") != std::string::npos) {
    std::size_t pos = open + 1;
    const std::string percent = NextNumberInText(BufLinea, pos);
    if (state.bar && !percent.empty())
      SetProgressPercent(*state.bar, 100, std::atoi(percent.c_str()));
  }
  program.ui().DoEvents();
  return true;
}

using LineHandler = bool (*)(Program&, AudioToolState&, const std::string&, double);

// False, with text 2266 as the error, when the tool couldn't be started, and with text 8463 when
// it ran past `time_limit` seconds and was ended.
bool RunAudioTool(Program& program, AudioToolState& state, const fs::path& tool,
                  const std::vector<std::string>& arguments, LineHandler handler, double value,
                  int time_limit) {
  state.last_line.clear();
  handler(program, state, {}, -1);
  StartRequest request{tool, arguments, program.Home(), true};
  request.capture_errors = true;
  // A tool that hangs would hold the whole program.
  request.time_limit_seconds = time_limit;
  state.exit_code = program.platform().RunCapturing(request, [&](const std::string& line) {
    if (!line.empty()) state.last_line = line;
    return handler(program, state, line, value);
  });
  if (state.exit_code == kRunTimedOut) {
    state.error =
        program.GetText(text::ToolTimedOut, {tool.filename().string(), std::to_string(time_limit)});
    return false;
  }
  if (state.exit_code == -1 && state.last_line.empty()) {
    state.error = program.GetText(text::ToolNotStarted) + tool.string();
    return false;
  }
  return true;
}

}  // namespace

int AudioToolTimeLimit(const fs::path& source, double audio_seconds) {
  std::error_code ec;
  const std::uintmax_t size = fs::file_size(ResolveCase(source), ec);
  const double bytes = ec ? 0 : static_cast<double>(size);
  // The length estimate can be far too short (a large tag hides the first frame), while the
  // size always holds: both tools get through far more than 64 KB of their input a second.
  return 30 + static_cast<int>(std::max(2 * audio_seconds, bytes / 65536));
}

fs::path FindAudioTool(const Program& program, std::int32_t id) {
  const std::string fragment = program.GetText(id);
  const fs::path own = ResolveCase(JoinFragment(program.Home(), fragment));
  if (FileExists(own)) return own;
  return FindExecutable(ExtractFileName(WithoutLeadingSeparators(fragment)));
}

bool DecodeMp3ToWave(Program& program, AudioToolState& state, const fs::path& source,
                     const fs::path& target) {
  state.error.clear();
  state.last_line.clear();
  if (!FileExists(source)) {
    state.error = program.GetText(text::DecoderNoSource, {source.string()});
    return false;
  }
  const fs::path decoder = FindAudioTool(program, text::DecoderProgram);
  if (decoder.empty()) {
    state.error = program.GetText(text::DecoderMissing, {program.Home().string()});
    return false;
  }
  const double seconds = Mp3DurationSeconds(source);
  const fs::path output = JoinFragment(program.Home(), program.GetText(text::DecoderOutput));
  DeleteFileForced(output);
  std::vector<std::string> arguments{ResolveCase(source).string()};
  for (std::string& w : SplitCommandWords(program.GetText(text::DecoderOptions)))
    arguments.push_back(std::move(w));
  if (arguments.size() > 1) arguments.back() += output.string();
  if (!RunAudioTool(program, state, decoder, arguments, GestioneMadPlay, seconds,
                    state.time_limit ? state.time_limit : AudioToolTimeLimit(source, seconds)))
    return false;
  ResetBar(state);
  if (state.exit_code != 0 || !FileExists(output)) {
    DeleteFileForced(output);
    state.error = state.last_line;
    return false;
  }
  if (!MoveFileOver(output, target)) {
    DeleteFileForced(output);
    state.error = program.GetText(text::DecoderCopyFailed, {target.string()});
    return false;
  }
  return FileExists(target);
}

bool EncodeWaveToMp3(Program& program, AudioToolState& state, const fs::path& source,
                     const fs::path& target) {
  state.error.clear();
  state.last_line.clear();
  const fs::path encoder = FindAudioTool(program, text::EncoderProgram);
  if (encoder.empty()) {
    state.error = program.GetText(text::EncoderMissing, {program.Home().string(), "\r\n"});
    return false;
  }
  if (!IsStandardWave(source)) {
    state.error = program.GetText(text::EncoderNotStandard, {source.filename().string()});
    return false;
  }
  const EncoderSettings& e = program.encoder;
  std::string options = program.GetText(text::EncoderBitRate) + std::to_string(e.Mp3BitRate);
  options += e.Mp3Channels == 1 ? program.GetText(text::EncoderMonoOption) : " ";
  if (e.Mp3Frequency != 0)
    options += program.GetText(text::EncoderRateOption) + std::to_string(e.Mp3Frequency) + " ";
  std::vector<std::string> arguments = SplitCommandWords(options);
  arguments.push_back(ResolveCase(source).string());
  arguments.push_back(target.string());
  DeleteFileForced(target);
  if (!RunAudioTool(program, state, encoder, arguments, GestioneLame, 100,
                    state.time_limit ? state.time_limit : AudioToolTimeLimit(source, 0)))
    return false;
  ResetBar(state);
  if (state.exit_code != 0 || !FileExists(target)) {
    DeleteFileForced(target);
    state.error = state.last_line;
    return false;
  }
  return true;
}

}  // namespace vardolin
