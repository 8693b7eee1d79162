#pragma once
// The audio commands of vardolin-cli: what audio files are, and converting them to the game's
// wave forms or to MP3. Exit codes as the catalogue commands give them.

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <vector>

#include "foundation/program.h"

namespace vardolin {

// One line per file: its path, its kind (mp3, or the wave kind 1 to 4 and 6) and its form in
// words; for an MP3 the estimated seconds.
int CmdAudioInfo(Program& program, const std::vector<std::filesystem::path>& files,
                 std::ostream& out, std::ostream& err);

// Converts copies of the files into `folder` (made when missing) to form `target` (1, 2, 3 or
// 5) with the given encoder settings; the sources stay as they are.
int CmdAudioConvert(Program& program, int target, const EncoderSettings& encoder,
                    const std::vector<std::filesystem::path>& files,
                    const std::filesystem::path& folder, std::ostream& out, std::ostream& err);

}  // namespace vardolin
