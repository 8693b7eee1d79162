#pragma once
// The screenshots of a level: the JPEG and BMP files of its shot folder. There is no index
// file; the order of the shots is the order of their file dates, so whoever adds a picture
// sets its date to say where it stands.

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vardolin {

class Program;

using ShotTime = std::chrono::system_clock::time_point;

// A file's modification time, which orders the shots; the epoch when it can't be read.
ShotTime ShotFileDate(const std::filesystem::path& path);

// A shot's date as the program shows it: day/month/year hours:minutes:seconds, local time.
std::string ShotDateText(ShotTime when);
// The same local time in another strftime layout, e.g. "%Y-%m-%d %H:%M:%S" for scripts.
std::string ShotDateText(ShotTime when, const char* layout);

// The shot folder of the level at catalogue index `level_index`, on hard disk. `fragment` is the
// text id of the folder's path piece at the caller's place of use (all of them say the same).
std::filesystem::path ShotFolder(Program& program, int level_index, std::int32_t fragment);
std::filesystem::path ShotFolder(Program& program, int level_index);

// A name that stands free in the level's shot folder: the counter from 1, ") ", the level's
// title with the characters a file name can't hold turned into blanks, and the extension (with
// its dot; empty for the default JPEG one). Looks like "1) My level.jpg".
std::filesystem::path NextShotFileName(Program& program, int level_index,
                                       std::string_view extension = {});

// Writes the picture `source` (BMP or JPEG) as a JPEG of `quality` (1 to 100) at `destination`,
// whatever the destination's extension. A destination that stands is deleted first, so that a
// failed conversion can't look like a success: the answer is whether the destination exists.
bool ConvertToJpeg(const std::filesystem::path& source, const std::filesystem::path& destination,
                   int quality);

// Catalogue index of the level standing in the editor folder, -1 when the catalogue lacks it.
int ActiveLevelIndex(Program& program);

// Adds the picture file `source` to the shots of the active level: converted to a JPEG of
// `quality` under NextShotFileName, its length counted to the level's user size, and its file
// dates set to `date` when one is given (else the new file's own date, now, sorts it last). The
// new shot's path, or empty when no level is active or the conversion failed. The source stays.
std::filesystem::path AddPictureToActiveLevel(Program& program, const std::filesystem::path& source,
                                              int quality,
                                              std::optional<ShotTime> date = std::nullopt);

// The index of the pair that shows the newest of `count` shots: the count, less 1 when odd.
int NewestPairIndex(int count);

}  // namespace vardolin
