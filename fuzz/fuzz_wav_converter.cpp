// The wave converter's reader over any bytes, in each mode: a result or a message, and a result
// always has the head of the form the mode asks for.

#include "audio/wav_converter.h"
#include "audio/wave_header.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const int mode = data[0] % 4 + 1;
  std::string_view in(reinterpret_cast<const char*>(data + 1), size - 1);
  std::string out, message;
  if (!vardolin::WavConverter(in, out, mode, message)) {
    if (message.empty()) __builtin_trap();
    return 0;
  }
  const vardolin::WaveHeader h = vardolin::ParseWaveHeader(out);
  if (h.SampleRate != (mode == 4 ? 22050 : 44100) || h.Channels != (mode == 4 ? 1 : 2) ||
      h.BitsPerSample != (mode == 2 ? 4 : 16))
    __builtin_trap();
  return 0;
}
