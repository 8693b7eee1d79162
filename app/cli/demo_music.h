#pragma once
// The demo media level's music: a short tune kept as MP3 in the level's files, as an archive
// that stores its waves as MP3 keeps it; Play turns it back into the game's 4-bit wave.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;

// Three seconds of a falling fifth as a wave file of 44100 Hz, 16 bit, stereo.
std::string DemoTune();
// Writes `045.mp3` into the files folder (encoded by the MP3 encoder); false when it can't.
bool WriteDemoMusic(Program& program, const std::filesystem::path& files);

}  // namespace vardolin
