#pragma once
// A level's files folder as the game needs it: packed `.zl` files expanded and the loading
// picture turned into the bitmap the game reads, in a temporary folder so that the store itself
// is never touched. Also the media files a media level keeps between plays.

#include <filesystem>
#include <string_view>

namespace vardolin {

class Program;

// The program's temporary folder for a level's expanded files (text 1613).
std::filesystem::path TemporaryFilesFolder(const Program& program);

// Makes a folder that holds the level's files in their game form. True when the level can be
// copied into the editor folder: from `temporary` when that was made (the caller deletes it
// afterwards), else from `files_folder` itself. A level kept in plain form needs no temporary
// folder and leaves `temporary` empty. On failure (a damaged `.zl`, text 1229 shown) the
// temporary folder is removed, `temporary` is empty and the store is as it was.
// With `expand_audio`, MP3 files become the game's 4-bit music waves; a failed conversion shows
// text 1233 and fails as a damaged `.zl` does.
bool PrepareLevelFiles(Program& program, const std::filesystem::path& files_folder,
                       std::filesystem::path& temporary, bool expand_audio = true);

// Empties or creates the temporary folder and copies the source's files and sub-folders there.
// The temporary folder's path; empty when it couldn't be made whole.
std::filesystem::path MakeTempFiles(Program& program, const std::filesystem::path& source);

// Copies the files and sub-folders of `source` into `target` (made when missing), keeping file
// dates. Links are skipped, so nothing outside the source is ever copied. Files whose names
// match `skip_pattern` (when given) stay behind. False at the first failed copy.
bool CopyLevelTree(const std::filesystem::path& source, const std::filesystem::path& target,
                   std::string_view skip_pattern = {});

// Takes the read-only mark off each file of `folder` that matches `pattern` (files copied from a
// CD keep it). True when every matching file is writable afterwards.
bool ClearReadOnly(std::string_view pattern, const std::filesystem::path& folder);

// Saves the editor's media state into the level's files folder after a media level was played:
// each `*.mcf` of the editor folder replaces the level's file of that name, or is deleted from
// the editor when the level has none; the editor's `\store` replaces the level's; the level's
// `\media.mpf` goes when the editor has none. False when a copy or deletion failed.
bool SaveMediaFiles(Program& program, const std::filesystem::path& level_files_folder);

}  // namespace vardolin
