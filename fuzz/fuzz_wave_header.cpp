// The wave head reader: it reads a fixed place, so what follows the first 36 bytes never
// changes what it gives.

#include "audio/wave_header.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const vardolin::WaveHeader all = vardolin::ParseWaveHeader(bytes);
  const vardolin::WaveHeader head = vardolin::ParseWaveHeader(bytes.substr(0, 36));
  if (all.FormatTag != head.FormatTag || all.Channels != head.Channels ||
      all.SampleRate != head.SampleRate || all.BitsPerSample != head.BitsPerSample)
    __builtin_trap();
  return 0;
}
