#include "audio/audio_tools.h"

#include <unistd.h>

#include <cstdlib>
#include <sstream>

#include "audio/mp3_duration.h"
#include "audio/text_ids.h"
#include "audio/wave_header.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/text_scan.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  std::istringstream in(text);
  for (std::string w; in >> w;) words.push_back(w);
  return words;
}

void SetUp(AudioToolState& state) {
  if (!state.quiet && state.label) state.label->SetCaption({});
  if (state.bar) state.bar->SetValue(0);
}

void Finish(AudioToolState& state) {
  if (!state.quiet && state.label) state.label->SetCaption({});
  if (state.bar) state.bar->SetValue(0);
}

// The tools run many times faster than the audio plays: one that takes twice its length and
// half a minute more has hung.
int TimeLimit(double audio_seconds) {
  return 30 + static_cast<int>(2 * audio_seconds);
}

void ShowLine(Program& program, AudioToolState& state, const std::string& line) {
  if (!state.quiet && state.label) state.label->SetCaption(line);
  program.ui().DoEvents();
}

fs::path FindOnPath(const std::string& name) {
  const char* path = std::getenv("PATH");
  std::istringstream dirs(path ? path : "/usr/bin:/bin");
  for (std::string dir; std::getline(dirs, dir, ':');) {
    const fs::path candidate = fs::path(dir.empty() ? "." : dir) / name;
    if (::access(candidate.c_str(), X_OK) == 0 && !FolderExists(candidate)) return candidate;
  }
  return {};
}

}  // namespace

fs::path FindAudioTool(const Program& program, std::int32_t id) {
  const std::string fragment = program.GetText(id);
  const fs::path own = ResolveCase(JoinFragment(program.Home(), fragment));
  if (FileExists(own)) return own;
  return FindOnPath(ExtractFileName(WithoutLeadingSeparators(fragment)));
}

bool GestioneMadPlay(Program& program, AudioToolState& state, const std::string& BufLinea,
                     double Valore) {
  if (Valore == -1) {
    SetUp(state);
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
  ShowLine(program, state, BufLinea);
  return true;
}

bool GestioneLame(Program& program, AudioToolState& state, const std::string& BufLinea,
                  double Valore) {
  if (Valore == -1) {
    SetUp(state);
    return true;
  }
  const std::size_t open = BufLinea.find('(');
  if (open != std::string::npos && BufLinea.find("%)") != std::string::npos) {
    std::size_t pos = open + 1;
    const std::string percent = NextNumberInText(BufLinea, pos);
    if (state.bar && !percent.empty())
      SetProgressPercent(*state.bar, 100, std::atoi(percent.c_str()));
  }
  ShowLine(program, state, BufLinea);
  return true;
}

bool RunAudioTool(Program& program, AudioToolState& state, const fs::path& tool,
                  const std::vector<std::string>& arguments, const std::string& handler,
                  double value, int time_limit) {
  state.last_line.clear();
  auto handle = [&](const std::string& line, double v) {
    if (handler == program.GetText(text::DecoderHandler))
      return GestioneMadPlay(program, state, line, v);
    if (handler == program.GetText(text::EncoderHandler))
      return GestioneLame(program, state, line, v);
    return true;
  };
  handle({}, -1);
  StartRequest request{tool, arguments, program.Home(), true};
  request.capture_errors = true;
  // A tool that hangs would hold the whole program: coreutils' timeout ends it.
  constexpr int kTimedOut = 124, kKilled = 137;
  const fs::path timeout = FindOnPath("timeout");
  if (!timeout.empty()) {
    request.program = timeout;
    request.arguments = {"-k", "5", std::to_string(time_limit), tool.string()};
    request.arguments.insert(request.arguments.end(), arguments.begin(), arguments.end());
  }
  state.exit_code = program.platform().RunCapturing(request, [&](const std::string& line) {
    if (!line.empty()) state.last_line = line;
    return handle(line, value);
  });
  if (state.exit_code == -1 && state.last_line.empty()) {
    state.error = program.GetText(text::ToolNotStarted) + tool.string();
    return false;
  }
  if (!timeout.empty() && (state.exit_code == kTimedOut || state.exit_code == kKilled)) {
    state.error =
        program.GetText(text::ToolTimedOut, {tool.filename().string(), std::to_string(time_limit)});
    return false;
  }
  return true;
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
  for (const std::string& w : Words(program.GetText(text::DecoderOptions))) arguments.push_back(w);
  if (arguments.size() > 1) arguments.back() += output.string();
  if (!RunAudioTool(program, state, decoder, arguments, program.GetText(text::DecoderHandler),
                    seconds, state.time_limit ? state.time_limit : TimeLimit(seconds)))
    return false;
  Finish(state);
  if (state.exit_code != 0 || !FileExists(output)) {
    DeleteFileForced(output);
    state.error = state.last_line;
    return false;
  }
  const bool copied = CopyFileOver(output, target);
  DeleteFileForced(output);
  if (!copied) {
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
  std::vector<std::string> arguments = Words(options);
  arguments.push_back(ResolveCase(source).string());
  arguments.push_back(target.string());
  DeleteFileForced(target);
  std::error_code ec;
  const double seconds = static_cast<double>(fs::file_size(ResolveCase(source), ec)) / 176400;
  if (!RunAudioTool(program, state, encoder, arguments, program.GetText(text::EncoderHandler), 100,
                    state.time_limit ? state.time_limit : TimeLimit(seconds)))
    return false;
  Finish(state);
  if (state.exit_code != 0 || !FileExists(target)) {
    DeleteFileForced(target);
    state.error = state.last_line;
    return false;
  }
  return true;
}

}  // namespace vardolin
