#pragma once
// The two console tools of the converter: `madplay` decodes MP3 and `lame` encodes it. Each is
// found in the program's `tools` folder first, then on PATH. Their progress lines are read as
// they come, so the bar that follows a tool moves while it runs.

#include <filesystem>
#include <string>
#include <vector>

namespace vardolin {

class Program;
class ProgressBar;

// What a decode or encode reports to, and what it leaves behind.
struct AudioToolState {
  ProgressBar* bar = nullptr;
  std::string error;
  std::string last_line;
  int exit_code = -1;
  // Seconds a tool may run before it counts as hung and is ended; 0 takes AudioToolTimeLimit.
  int time_limit = 0;
  int minutes = -1;  // the decoder's last time shown
  int seconds = -1;
};

// The tool's path: the program's folder + the fragment of text `id` when it stands there, else
// that name found on PATH; empty when neither.
std::filesystem::path FindAudioTool(const Program& program, std::int32_t id);

// Seconds a tool may work on `source` before it counts as hung: half a minute, and more for a
// long audio (`audio_seconds`, the estimate) or a large file.
int AudioToolTimeLimit(const std::filesystem::path& source, double audio_seconds);

// MP3 to a 16-bit wave at the MP3's own rate and channels. False with `state.error` set.
bool DecodeMp3ToWave(Program& program, AudioToolState& state, const std::filesystem::path& source,
                     const std::filesystem::path& target);
// A 44100 Hz 16-bit stereo wave to MP3 at the run's encoder settings.
bool EncodeWaveToMp3(Program& program, AudioToolState& state, const std::filesystem::path& source,
                     const std::filesystem::path& target);

}  // namespace vardolin
