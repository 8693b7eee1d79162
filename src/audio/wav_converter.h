#pragma once
// The wave converter: reads any wave (or other file libsndfile knows) and writes one of the
// game's forms. The 4-bit form is Microsoft ADPCM in a WAV container, which is what the game's
// `audio` folder reads; rates are changed with libsamplerate.

#include <filesystem>
#include <string>
#include <string_view>

namespace vardolin {

// Modes, as the conversion steps number them:
// 1 and 3 to 44100 Hz 16 bit stereo, 2 to 44100 Hz 4 bit stereo, 4 to 22050 Hz 16 bit mono.
// True when `target` was written whole; else `message` says why and no target is left.
bool WavConverter(const std::filesystem::path& source, const std::filesystem::path& target,
                  int mode, std::string& message);

// The same from bytes in memory to bytes in memory.
bool WavConverter(std::string_view source, std::string& target, int mode, std::string& message);

}  // namespace vardolin
