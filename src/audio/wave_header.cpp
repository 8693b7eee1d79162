#include "audio/wave_header.h"

#include <algorithm>
#include <cctype>
#include <fstream>

#include "audio/text_ids.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace {

bool AllDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return std::isdigit(static_cast<unsigned char>(c)); });
}

}  // namespace

WaveHeader ParseWaveHeader(std::string_view b) {
  WaveHeader h;
  h.IsWave = b.size() >= 12 && b.substr(0, 4) == "RIFF" && b.substr(8, 4) == "WAVE";
  ByteReader in(b, 20);
  h.FormatTag = in.I16();
  h.Channels = in.I16();
  h.SampleRate = in.I32();
  h.ByteRate = in.I32();
  h.BlockAlign = in.I16();
  h.BitsPerSample = in.I16();
  return h;
}

bool ReadWaveHeader(const std::filesystem::path& path, WaveHeader& header) {
  std::ifstream in(ResolveCase(path), std::ios::binary);
  if (!in) return false;
  char bytes[36] = {};
  in.read(bytes, sizeof bytes);
  header = ParseWaveHeader(std::string_view(bytes, static_cast<std::size_t>(in.gcount())));
  return true;
}

bool IsStandardWave(const std::filesystem::path& path, WaveHeader* out) {
  WaveHeader h;
  if (!ReadWaveHeader(path, h)) return false;
  if (out) *out = h;
  return h.SampleRate == 44100 && h.Channels == 2 && h.BitsPerSample == 16 && h.FormatTag == 1;
}

int ClassifyWave(const Program& program, const WaveHeader& h, int target, std::string& description,
                 int& kind) {
  using namespace wave_kind;
  if (!h.IsWave) {
    description = program.GetText(text::NotAWave);
    kind = kOther;
    return -1;
  }
  const std::int32_t type = h.BitsPerSample == 4 ? text::WaveType4Bit
                            : h.FormatTag == 1   ? text::WaveTypePcm
                                                 : text::WaveTypeOther;
  const std::string channels = h.Channels == 1   ? program.GetText(text::WaveChannelMono)
                               : h.Channels == 2 ? program.GetText(text::WaveChannelStereo)
                                                 : std::string(" ");
  description =
      program.GetText(type) + " " + std::to_string(h.SampleRate) +
      program.GetText(text::WaveRateAndBits, {std::to_string(h.BitsPerSample) + " " + channels});
  if (h.SampleRate == 44100 && h.Channels == 2 && h.BitsPerSample == 4)
    kind = kMusic;
  else if (h.SampleRate == 22050 && h.Channels == 1 && h.BitsPerSample == 16)
    kind = kSample;
  else if (h.SampleRate == 44100 && h.Channels == 2 && h.BitsPerSample == 16)
    kind = kStandard;
  else
    kind = h.FormatTag == 1 ? kOtherPcm : kOther;
  if (kind == kOther) return -1;
  if (kind == target) return 0;
  if (target == kMp3) return 5;
  static constexpr int kSteps[4][3] = {{0, 2, 4}, {1, 0, -1}, {3, -1, 0}, {3, -1, 4}};
  if (target < 1 || target > 3) return -1;
  return kSteps[kind - 1][target - 1];
}

int ClassifyWave(const Program& program, const std::filesystem::path& path, int target,
                 std::string& description, int& kind) {
  WaveHeader h;
  ReadWaveHeader(path, h);
  return ClassifyWave(program, h, target, description, kind);
}

bool NeedsWaveConversion(Program& program, const std::filesystem::path& path, bool& refused) {
  refused = false;
  const std::string full = path.string();
  const std::string base = ExtractBaseName(full);
  const std::string wav = program.GetText(text::WaveExtension);
  if (full.size() >= wav.size() && EqualsNoCase(full.substr(full.size() - wav.size()), wav)) {
    WaveHeader h;
    ReadWaveHeader(path, h);
    if (h.BitsPerSample != 4) return true;
    if (!AllDigits(base)) {
      AskUser(program,
              program.GetText(text::WaveNotMusic, {ExtractFileName(full), "\r\n", "\r\n\r\n"}),
              msg::kWarning);
      refused = true;
    }
    return false;
  }
  return !AllDigits(base);
}

std::string WaveListText(const Program& program, const WaveHeader& h) {
  if (!h.IsWave) return program.GetText(text::AudioRowNotAWave);
  const std::string channels = program.GetText(h.Channels == 1   ? text::WaveChannelMono
                                               : h.Channels == 2 ? text::WaveChannelStereo
                                                                 : text::WaveTypeOther);
  return program.GetText(text::AudioRowWave,
                         {std::to_string(h.BitsPerSample), channels, std::to_string(h.SampleRate)});
}

std::string TargetName(const Program& program, int target) {
  switch (target) {
    case wave_kind::kStandard:
      return "44100 stereo 16 bits";
    case wave_kind::kMusic:
      return "44100 stereo 4 bits";
    case wave_kind::kSample:
      return "22050 mono 16 bits";
    case wave_kind::kMp3: {
      const EncoderSettings& e = program.encoder;
      std::string name = "Mp3 ";
      if (e.Mp3Frequency != 0) name += std::to_string(e.Mp3Frequency) + " ";
      return name + std::to_string(e.Mp3BitRate) + " Kbps " +
             (e.Mp3Channels == 1 ? "Mono" : "Stereo");
    }
  }
  return {};
}

}  // namespace vardolin
