#pragma once
// Numbers of the texts the savegame and screenshot stores use. Every id here has an English
// wording in resources/english.trc. Ids marked "fragment" are path fragments: a folder fragment
// begins with a backslash.

#include <cstdint>

namespace vardolin::text {

// The savegame store. Each place of use has its own id; ids that name the same thing hold the
// same text.
inline constexpr std::int32_t UnreadableSavegameTitle = 1696;
inline constexpr std::int32_t SlotFolderPanel = 1683;         // fragment, same as 1125
inline constexpr std::int32_t SlotFolderArchive = 1697;       // fragment, same as 1125
inline constexpr std::int32_t SlotFolderRestore = 2415;       // fragment, same as 1125
inline constexpr std::int32_t ArchiveRootArchive = 1685;      // fragment, same as 1547
inline constexpr std::int32_t ArchiveRootRestore = 1699;      // fragment, same as 1547
inline constexpr std::int32_t ArchiveRootPanel = 2413;        // fragment, same as 1547
inline constexpr std::int32_t ArchiveSetProbe = 1686;         // fragment, the set number follows
inline constexpr std::int32_t ArchiveSetMake = 1688;          // fragment, same as 1686
inline constexpr std::int32_t ArchiveSetRestoreProbe = 1700;  // fragment, same as 1686
inline constexpr std::int32_t ArchiveSetRestore = 1701;       // fragment, same as 1686
inline constexpr std::int32_t ArchiveSetAnyFile = 1702;       // fragment: mask of any file
inline constexpr std::int32_t WorkFolderArchive = 2405;    // fragment behind the program's folder
inline constexpr std::int32_t WorkFolderRestore = 1704;    // fragment, same as 2405
inline constexpr std::int32_t WorkFolderCompact = 2427;    // fragment, same as 2405
inline constexpr std::int32_t SavegameMaskPanel = 1684;    // mask of savegame files
inline constexpr std::int32_t SavegameMaskArchive = 1698;  // same as 1684
inline constexpr std::int32_t SavegameMaskRestoreSet = 1703;    // same as 1684
inline constexpr std::int32_t SavegameMaskRestoreWork = 1705;   // same as 1684
inline constexpr std::int32_t SavegameMaskRestoreSlots = 1707;  // same as 1684
inline constexpr std::int32_t SavegameMaskRestoreOne = 2397;    // same as 1684
inline constexpr std::int32_t SavegameMaskCompact = 2399;       // same as 1684
inline constexpr std::int32_t SavegameMaskList = 2417;          // same as 1684
inline constexpr std::int32_t SavegameMaskRecover = 2426;       // same as 1684
inline constexpr std::int32_t SlotNameArchiveSet = 2406;    // fragment "\savegame.", slot follows
inline constexpr std::int32_t SlotNameArchiveSlots = 2407;  // same as 2406
inline constexpr std::int32_t SlotNameRestoreWork = 1706;   // same as 2406
inline constexpr std::int32_t SlotNameRestoreSlots = 1708;  // same as 2406
inline constexpr std::int32_t SlotNameSelection = 2395;     // same as 2406
inline constexpr std::int32_t SlotNameRestoreOne = 2400;    // same as 2406
inline constexpr std::int32_t SlotNameShow = 2421;          // same as 2406
inline constexpr std::int32_t NoteFileCopyFrom = 1710;      // fragment, ~1 the slot number
inline constexpr std::int32_t NoteFileCopyTo = 1711;        // same as 1710
inline constexpr std::int32_t NoteFileDelete = 1716;        // same as 1710
inline constexpr std::int32_t NoteFileName = 2419;          // same as 1710
inline constexpr std::int32_t SavegameDateFormat = 2418;    // the date in a row text
inline constexpr std::int32_t RestoreOneSlotsFull = 2398;   // ~1 line break
inline constexpr std::int32_t SavegameWorkJournal = 5860;   // fragment: the work folder's journal

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
