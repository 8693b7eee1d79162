#pragma once
// The head of a wave file as the converter reads it, and what it makes of it: which of the
// game's forms a wave has, and which conversion step brings it to the form asked for.
// The format block is read from its usual fixed place; chunks aren't walked, so a wave with
// other chunks before its format reads as whatever lies there.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

class Program;

struct WaveHeader {
  std::int16_t FormatTag = 0;
  std::int16_t Channels = 0;
  std::int32_t SampleRate = 0;
  std::int32_t ByteRate = 0;
  std::int16_t BlockAlign = 0;
  std::int16_t BitsPerSample = 0;
  // "RIFF" and "WAVE" stand where a wave has them; the fields of anything else mean nothing.
  bool IsWave = true;
};

// The forms of a wave, and the forms asked for (TipoAudio): the same numbers.
namespace wave_kind {
inline constexpr int kStandard = 1;  // 44100 Hz, stereo, 16 bit
inline constexpr int kMusic = 2;     // 44100 Hz, stereo, 4 bit: the game's `audio` folder
inline constexpr int kSample = 3;    // 22050 Hz, mono, 16 bit: the game's sound samples
inline constexpr int kOtherPcm = 4;  // any other wave with format tag 1
inline constexpr int kMp3 = 5;       // asked for only
inline constexpr int kOther = 6;     // any other format tag
}  // namespace wave_kind

// The fields at their fixed place in the first 36 bytes; a shorter input leaves zeros.
WaveHeader ParseWaveHeader(std::string_view first_bytes);
// The same from a file; false when it can't be read.
bool ReadWaveHeader(const std::filesystem::path& path, WaveHeader& header);

// 44100 Hz, 2 channels, 16 bit, format tag 1.
bool IsStandardWave(const std::filesystem::path& path, WaveHeader* header = nullptr);

// Classifies the wave and gives the conversion step to `target`: 0 none, 1 to 4 a mode of
// WavConverter, 5 an MP3 encoding, -1 impossible. `description` tells the form in words, or
// that the file isn't a wave at all.
int ClassifyWave(const Program& program, const WaveHeader& header, int target,
                 std::string& description, int& kind);
int ClassifyWave(const Program& program, const std::filesystem::path& path, int target,
                 std::string& description, int& kind);

// Whether a level file must be brought to one of the game's forms on intake. A 4-bit wave needs
// nothing, but when its name isn't a track number text 1456 is shown and `refused` set; other
// waves need it. Any other file needs it exactly when its base name holds a non-digit.
bool NeedsWaveConversion(Program& program, const std::filesystem::path& path, bool& refused);

// What the converter's list shows of a wave behind its size: bits, channels and rate, or that
// the file isn't a wave.
std::string WaveListText(const Program& program, const WaveHeader& header);

// The name of a form asked for, as the converter's texts show it ("44100 stereo 4 bits").
std::string TargetName(const Program& program, int target);

}  // namespace vardolin
