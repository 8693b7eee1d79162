#pragma once
// The two console tools of the converter: `madplay` decodes MP3 and `lame` encodes it. Each is
// found in the program's `tools` folder first, then on PATH. Their progress lines are read as
// they come, so the label and bar that follow a tool move while it runs.

#include <filesystem>
#include <string>
#include <vector>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// What a decode or encode reports to, and what it leaves behind.
struct AudioToolState {
  Label* label = nullptr;
  ProgressBar* bar = nullptr;
  bool quiet = false;  // keeps the tool's lines out of the label
  std::string error;
  std::string last_line;
  int exit_code = -1;
  // Seconds a tool may run before it counts as hung and is ended; 0 takes a generous limit from
  // the audio's length.
  int time_limit = 0;
  int minutes = -1;  // the decoder's last time shown
  int seconds = -1;
};

// The tool's path: the program's folder + the fragment of text `id` when it stands there, else
// that name found on PATH; empty when neither.
std::filesystem::path FindAudioTool(const Program& program, std::int32_t id);

// Runs a tool and hands each line to the handler named (texts 1737 and 1745), which is first
// called with an empty line and -1 to set up. False, with text 2266 as the error, when the tool
// couldn't be started, and with text 8463 when it ran past `time_limit` seconds and was ended.
bool RunAudioTool(Program& program, AudioToolState& state, const std::filesystem::path& tool,
                  const std::vector<std::string>& arguments, const std::string& handler,
                  double value, int time_limit);

// Line handlers; true goes on. The decoder's lines carry its running time at fixed places
// (" mm:ss" behind an hour field), the encoder's a percentage as "(nn%)".
bool GestioneMadPlay(Program& program, AudioToolState& state, const std::string& BufLinea,
                     double Valore);
bool GestioneLame(Program& program, AudioToolState& state, const std::string& BufLinea,
                  double Valore);

// MP3 to a 16-bit wave at the MP3's own rate and channels. False with `state.error` set.
bool DecodeMp3ToWave(Program& program, AudioToolState& state, const std::filesystem::path& source,
                     const std::filesystem::path& target);
// A 44100 Hz 16-bit stereo wave to MP3 at the run's encoder settings.
bool EncodeWaveToMp3(Program& program, AudioToolState& state, const std::filesystem::path& source,
                     const std::filesystem::path& target);

}  // namespace vardolin
