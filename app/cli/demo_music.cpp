#include "demo_music.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "audio/dialog_converti_mp3.h"
#include "audio/wave_header.h"
#include "demo_files.h"
#include "foundation/program.h"
#include "foundation/services/binary_io.h"
#include "foundation/services/files.h"

namespace vardolin {
namespace fs = std::filesystem;

std::string DemoTune() {
  constexpr std::uint32_t kRate = 44100, kFrames = kRate * 3;
  ByteWriter pcm;
  for (std::uint32_t i = 0; i < kFrames; ++i) {
    const double t = static_cast<double>(i) / kRate;
    const double pitch = i < kFrames / 2 ? 659.25 : 440.0;
    const auto sample = static_cast<std::int16_t>(8000 * std::sin(2 * M_PI * pitch * t));
    pcm.I16(sample);
    pcm.I16(sample);
  }
  const auto size = static_cast<std::uint32_t>(pcm.Size());
  ByteWriter wave;
  wave.Raw("RIFF");
  wave.U32(36 + size);
  wave.Raw("WAVEfmt ");
  wave.U32(16);
  wave.U16(1);  // PCM
  wave.U16(2);  // stereo
  wave.U32(kRate);
  wave.U32(kRate * 4);
  wave.U16(4);
  wave.U16(16);
  wave.Raw("data");
  wave.U32(size);
  wave.Raw(pcm.Bytes());
  return wave.Take();
}

bool WriteDemoMusic(Program& program, const fs::path& files) {
  const fs::path wave = files / "045.wav";
  WriteBytes(wave, DemoTune());
  std::string why;
  const bool ok = RunAudioConversion(program, {wave}, files, wave_kind::kMp3, why);
  DeleteFileForced(wave);
  return ok && FileExists(files / "045.mp3");
}

}  // namespace vardolin
