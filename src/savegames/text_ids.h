#pragma once
// Numbers of the texts the savegame and screenshot stores use. Every id here has an English
// wording in resources/english.trc. Ids marked "fragment" are path fragments: a folder fragment
// begins with a backslash.

#include <cstdint>

namespace vardolin::text {

inline constexpr std::int32_t SlotNameSelection = 2395;     // same as 2406
inline constexpr std::int32_t SlotNameShow = 2421;          // same as 2406

// The savegame panel of the main window.
inline constexpr std::int32_t SavegameNoneSelected = 2396;
inline constexpr std::int32_t DeleteSavegameQuestion = 2390;  // the row text and "] ?" follow
inline constexpr std::int32_t RestoreNeedsArchived = 2392;
inline constexpr std::int32_t SavegameNoteTitle = 2393;
inline constexpr std::int32_t ArchiveSavegamesDone = 1844;
inline constexpr std::int32_t RestoreSavegamesDone = 1961;
inline constexpr std::int32_t SaveSavegameTitle = 2377;
inline constexpr std::int32_t SaveSavegameFilterZip = 1897;   // "Zip files|*.zip"
inline constexpr std::int32_t SaveSavegameFilterAll = 2378;   // "All files|*.*"
inline constexpr std::int32_t SaveSavegameZipExtension = 2957;  // ".zip", compared to the name's end
inline constexpr std::int32_t SaveSavegameZipLater = 5927;
inline constexpr std::int32_t SavegamePropertiesNoImage = 2371;
inline constexpr std::int32_t SavegamePropertiesImageDate = 2372;  // the image's date follows
inline constexpr std::int32_t SavegamePropertiesNoNote = 2373;
inline constexpr std::int32_t SavegamePropertiesFile = 2374;  // the savegame's path follows

// Searching the notes of the archived savegames.
inline constexpr std::int32_t FindPreviousNoteEmptyList = 2363;
inline constexpr std::int32_t FindNoteEmptyList = 2364;
inline constexpr std::int32_t FindNotePrompt = 2365;
inline constexpr std::int32_t FindNoteTitle = 2366;
inline constexpr std::int32_t FindNextNoteEmptyList = 2367;
inline constexpr std::int32_t FindNoteNotFound = 2401;

// Captions of the savegame panel.
inline constexpr std::int32_t CaptionLabelSaveGameTomb = 5921;
inline constexpr std::int32_t CaptionLabelSaveGameArchiviati = 5922;
inline constexpr std::int32_t CaptionLabelNoteSaveGame = 5923;
inline constexpr std::int32_t CaptionPulRestoreSaveGame = 5924;
inline constexpr std::int32_t CaptionPulDeleteSavegame = 5925;
inline constexpr std::int32_t CaptionPulArchiviaSavegames = 5926;

}  // namespace vardolin::text
