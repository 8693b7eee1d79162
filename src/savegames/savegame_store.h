#pragma once
// A level's savegames beside the game's single set of 15 slots: where they lie, how one
// savegame is copied, moved or deleted together with its note, and how a folder of slots is
// renumbered. The whole-set operations (archive, restore) are in savegame_sets.h.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;

// The game's slots are savegame.0 to savegame.14.
inline constexpr int kSavegameSlots = 15;

// The number behind the last dot of the name; 0 when that isn't a number.
std::int32_t SlotNumberOf(std::string_view path);
// The note file of a savegame: its folder and a name built from its slot number.
std::filesystem::path SavegameNoteFile(const Program& program,
                                       const std::filesystem::path& savegame);
// The file's modification time in local time, by a format of the language file: dd, mm, yyyy,
// yy for the date, hh, nn, ss for the time; "mm" right behind an hour means minutes.
std::string FormatFileDate(const std::filesystem::path& file, const std::string& format);
// A save number right-aligned in 4 places, as rows and mails show it.
std::string SaveNumberField(std::int32_t number);
// The row text of both savegame lists: save number right-aligned in 4 places, the title, and
// the file's date in brackets.
std::string SavegameListCaption(const Program& program, const std::filesystem::path& savegame);

// Copies (or, with `remove_source`, moves) a savegame and its note file. The copy lands under
// a temporary name first, so a crash never leaves half a savegame under a savegame's name. A
// source without a note copies none, and a note that stands at the destination stays. False
// when the savegame could not be copied; the source then stays.
bool CopySavegame(const Program& program, const std::filesystem::path& source,
                  const std::filesystem::path& destination, bool remove_source);
// The same for the store's own moves between its folders, where a note at the destination can
// only be left from a savegame that no longer stands there: a source without a note takes it
// away, so that it never passes to another savegame.
bool PlaceSavegame(const Program& program, const std::filesystem::path& source,
                   const std::filesystem::path& destination, bool remove_source);
// Deletes a savegame and its note file; true when both are gone.
bool DeleteSavegame(const Program& program, const std::filesystem::path& savegame);

// Folders of a level. The slot folder is the editor folder while the level is the active one,
// else its play folder; empty when the level has no folder (a catalogue without a store).
std::filesystem::path SlotFolder(Program& program, std::int32_t code);
std::filesystem::path ArchiveRoot(Program& program, std::int32_t code);
std::filesystem::path ArchiveSetFolder(Program& program, std::int32_t code, std::int32_t set);
// The first set number, counting from 1, whose folder doesn't exist.
std::int32_t NextArchiveSet(Program& program, std::int32_t code);
// The folder through which the operations move savegames, in the program's folder.
std::filesystem::path SavegameWorkFolder(const Program& program);

// The savegame files of a folder, in the file system's order.
std::vector<std::filesystem::path> ListSavegames(const Program& program,
                                                 const std::filesystem::path& folder);
// Every archived savegame of the level: the files under its archive root whose path holds the
// archived-savegame mark, in the order of the walk.
std::vector<std::filesystem::path> ListArchivedSavegames(Program& program, std::int32_t code);

// Renumbers the savegames of a folder from 0, oldest (lowest save number) first, each note
// going with its savegame. True when the folder ends renumbered.
bool CompactSlots(Program& program, const std::filesystem::path& folder);

}  // namespace vardolin
