#pragma once
// Turning a level's stored audio between the wave files the game reads and the MP3 files an
// archive with `WavInMp3` keeps instead.

#include <cstdint>
#include <string>

namespace vardolin {

class Program;

// Encodes the level's stored waves as MP3 at the run's encoder settings (`to_mp3`), or turns its
// MP3 files back into the game's 4-bit music waves. The work is done on copies in the program's
// working folder (text 1928); a result goes into the files folder before its source goes, so a
// failure or a crash leaves the level playable. True when nothing failed; else `why` says why.
bool ConvertLevelAudio(Program& program, std::int32_t code, bool to_mp3, std::string& why);

}  // namespace vardolin
