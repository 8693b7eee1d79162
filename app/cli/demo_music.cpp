#include "demo_music.h"

#include <cmath>
#include <cstdint>
#include <fstream>
#include <string>

#include "audio/dialog_converti_mp3.h"
#include "audio/wave_header.h"
#include "foundation/program.h"
#include "foundation/services/files.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

void Put(std::string& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

}  // namespace

std::string DemoTune() {
  constexpr std::uint32_t kRate = 44100, kFrames = kRate * 3;
  std::string pcm;
  for (std::uint32_t i = 0; i < kFrames; ++i) {
    const double t = static_cast<double>(i) / kRate;
    const double pitch = i < kFrames / 2 ? 659.25 : 440.0;
    const auto sample = static_cast<std::int16_t>(8000 * std::sin(2 * M_PI * pitch * t));
    Put(pcm, static_cast<std::uint16_t>(sample), 2);
    Put(pcm, static_cast<std::uint16_t>(sample), 2);
  }
  std::string wave = "RIFF";
  Put(wave, 36 + static_cast<std::uint32_t>(pcm.size()), 4);
  wave += "WAVEfmt ";
  for (std::uint32_t v : {16u, 1u | (2u << 16), kRate, kRate * 4, 4u | (16u << 16)})
    Put(wave, v, 4);
  wave += "data";
  Put(wave, static_cast<std::uint32_t>(pcm.size()), 4);
  return wave + pcm;
}

bool WriteDemoMusic(Program& program, const fs::path& files) {
  const fs::path wave = files / "045.wav";
  std::ofstream(wave, std::ios::binary) << DemoTune();
  std::string why;
  const bool ok = RunAudioConversion(program, {wave}, files, wave_kind::kMp3, why);
  DeleteFileForced(wave);
  return ok && FileExists(files / "045.mp3");
}

}  // namespace vardolin
