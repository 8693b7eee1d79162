#pragma once
// Savegames leaving the program and coming in: into a zip or a folder, into the game's slots of
// a level from a folder, a zip or a single file, and handed to the mail program. The transfers
// are plain file copies: notes stay behind.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// Zips the files under their own names; a file whose name another took already gets the next
// free number behind its stem, so that none is lost. On
// success the zip's path goes to the clipboard and the user is told; on failure the user is told
// why. A file that can't be copied for the zip is named to the user after the rest were tried,
// and no zip is written: a file that stood at `zip` stays. The work folder is gone afterwards
// either way.
bool ZipSavegames(Program& program, const std::filesystem::path& zip,
                  const std::vector<std::filesystem::path>& files, Label* label, ProgressBar* bar);

// Before an export of `files` into the zip `target` or into the folder `target`: the first file
// it would write that MayWriteExportTarget refuses (the user was told or asked why), empty when
// it may write them all. `replace_asked`: a file dialog asked about replacing the zip already.
std::filesystem::path RefusedSavegameTarget(Program& program, const std::filesystem::path& target,
                                            const std::vector<std::filesystem::path>& files,
                                            bool zip, bool replace_asked);

// Copies each file into `folder` under its own name (renumbered as in the zip when another took
// it), deleting the source right behind its copy when `delete_sources`; a file that is its own
// target stays. A failed copy is passed over and keeps its source.
void ExportSavegamesToFolder(const std::vector<std::filesystem::path>& files,
                             const std::filesystem::path& folder, bool delete_sources);

// Whether the import of `count` savegames finds room in the level's slots, archiving the oldest
// 15 first when it would not. False, after telling the user, when the slots stay too full.
bool MakeRoomForImport(Program& program, std::int32_t code, std::size_t count);

// Copies savegames into free slots of the level (savegame.N with the lowest free N). A file that
// isn't a game savegame is left out and named to the user. A file whose save number and title
// stand in the slots already would replace that savegame: the user is asked first. The number
// of savegames taken in; none, with nothing copied, when the slots stay too full.
std::optional<int> ImportSavegamesIntoSlots(Program& program, std::int32_t code,
                                            const std::vector<std::filesystem::path>& files);

// A friend's file: a zip or another archive is unpacked (names leading out of the work folder
// refused and told), a lone file taken as it is; each savegame found goes into a free slot,
// asking before the slots are archived when they are full. The number taken in; the work folder
// is gone afterwards.
int ReceiveSavegameFile(Program& program, std::int32_t code, const std::filesystem::path& file);

// The texts of a mail: the body line of one savegame, and the subject for the savegames of a
// level with that title.
std::string SavegameMailLine(const Program& program, const std::filesystem::path& savegame);
std::string SavegameMailSubject(const Program& program,
                                const std::vector<std::filesystem::path>& savegames,
                                const std::string& level_title);
// Hands the message to the desktop's mail program; on failure tells the user (no mail program).
bool SendFilesByMail(Program& program, const std::string& subject, const std::string& body,
                     const std::vector<std::filesystem::path>& files);

}  // namespace vardolin
