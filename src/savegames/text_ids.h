#pragma once
// Numbers of the texts of the savegame and screenshot stores. Every id here has an English
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

// The screenshot store and panel. The shot folder has one fragment per place of use; all say
// the same. So do the no-image pictures behind the base level's folder and those behind the
// program's folder.
inline constexpr std::int32_t ShotFolderLoad = 1553;        // fragment
inline constexpr std::int32_t ShotMaskJpeg = 1554;          // fragment "\*.jpg"
inline constexpr std::int32_t ShotMaskBmp = 1555;           // fragment "\*.bmp"
inline constexpr std::int32_t ShotDefaultExtension = 1602;  // ".jpg"
inline constexpr std::int32_t ShotFolderFreeName = 1603;    // fragment, same as 1553
inline constexpr std::int32_t ShotFolderAdd = 1841;         // fragment, same as 1553
inline constexpr std::int32_t ShotFolderCapture = 1996;     // fragment, same as 1553
inline constexpr std::int32_t ShotFolderChoose = 2381;      // fragment, same as 1553
inline constexpr std::int32_t NoImageOfBaseLevel = 1111;    // fragment behind level 0's folder
inline constexpr std::int32_t NoImageForEditor = 1994;      // fragment, same as 1111
inline constexpr std::int32_t NoImageOfBaseLevel2 = 1995;   // fragment, same as 1111
inline constexpr std::int32_t NoImageZoom = 2360;           // fragment behind the program's folder
inline constexpr std::int32_t NoImageForClipboard = 2361;   // fragment, same as 2360
inline constexpr std::int32_t NoImageSavegame = 2389;       // fragment, same as 2360
inline constexpr std::int32_t NoImageSavegameLoad = 2412;   // fragment, same as 2360
inline constexpr std::int32_t NoImageSavegameNone = 2420;   // fragment, same as 2360
inline constexpr std::int32_t NoImageSavegameTie = 2423;    // fragment, same as 2360
inline constexpr std::int32_t NoImageFileName = 2379;       // the no-image file's bare name
inline constexpr std::int32_t ShotMissing1 = 1112;          // ~1 the path
inline constexpr std::int32_t ShotMissing2 = 1113;
inline constexpr std::int32_t AddShotTitle = 1839;
inline constexpr std::int32_t AddShotFilter = 1840;
inline constexpr std::int32_t AddShotExists = 1842;   // ~1 name, ~2 and ~3 two CR LF each
inline constexpr std::int32_t AddShotRenamed = 1843;  // ~1 the new name
inline constexpr std::int32_t ResizeNoShot = 1853;
inline constexpr std::int32_t DeleteShotNone = 1879;
inline constexpr std::int32_t DeleteShotQuestion = 1880;  // the quoted path follows
inline constexpr std::int32_t RenameShotNone = 1957;
inline constexpr std::int32_t RenameShotPrompt = 1958;
inline constexpr std::int32_t RenameShotTitle = 1959;
inline constexpr std::int32_t SaveShotNone = 1964;
inline constexpr std::int32_t SaveShotTitle = 1965;
inline constexpr std::int32_t SaveShotJpegExtension = 1966;  // ".jpg", compared to the name's end
inline constexpr std::int32_t SaveShotFilterJpeg = 1967;
inline constexpr std::int32_t SaveShotFilterBmp = 1968;
inline constexpr std::int32_t SaveShotFailed = 1969;          // ~1 the destination
inline constexpr std::int32_t CopyPathDone = 2362;            // ~1 the path between CR LF
inline constexpr std::int32_t GraphicsProgramMissing = 2370;  // ~1 CR LF
inline constexpr std::int32_t ShotPropertiesNone = 2375;
inline constexpr std::int32_t ShotProperties = 2376;      // ~1 path, ~2 date, ~3 size, ~4 width
inline constexpr std::int32_t ChooseImageNoShots = 2380;  // ~1 CR LF
inline constexpr std::int32_t ChooseImageTitle = 2382;
inline constexpr std::int32_t ChooseImageFilter = 2383;
inline constexpr std::int32_t ChooseImageStepSeconds = 2384;  // interval name: "s" for seconds
inline constexpr std::int32_t TieIntervalSeconds = 2422;      // interval name: "s" for seconds
inline constexpr std::int32_t ResizedPathCopied = 2475;       // ~1 the quoted path and CR LF
inline constexpr std::int32_t RenameShotFailed = 5779;        // ~1 the new name

// Dialog_Resize.
inline constexpr std::int32_t ResizeRow480 = 749;  // rows 749 to 756, largest first
inline constexpr std::int32_t ResizeSaveTitle = 757;
inline constexpr std::int32_t ResizeSaveFilter = 758;
inline constexpr std::int32_t ResizeJpegExtension = 759;    // ".jpg", compared to the name's end
inline constexpr std::int32_t ResizeTemporaryBitmap = 760;  // fragment behind the program's folder
inline constexpr std::int32_t ResizeJpegFailed = 761;
inline constexpr std::int32_t ResizeQuality90 = 2310;  // rows 2310 to 2314
inline constexpr std::int32_t ResizeCaption = 5770;
inline constexpr std::int32_t ResizeLabelSize = 5771;
inline constexpr std::int32_t ResizeLabelQuality = 5772;
inline constexpr std::int32_t ResizePulSave = 5773;
inline constexpr std::int32_t ResizePulCancel = 5774;

// Dialog_ScreenShot.
inline constexpr std::int32_t ZoomCaption = 779;  // the path follows

// Captions of the screenshot panel of the main window.
inline constexpr std::int32_t CaptionPulPrimoShot = 5775;
inline constexpr std::int32_t CaptionPulPrimaScreenShot = 5776;
inline constexpr std::int32_t CaptionPulDopoScreenShot = 5777;
inline constexpr std::int32_t CaptionPulUltimoShot = 5778;

// Screen capture while the game runs, and the pictures play_the_game.exe leaves behind.
inline constexpr std::int32_t CaptureSaveFilter = 265;
inline constexpr std::int32_t CaptureNotSaved = 266;     // ~1 the path between CR LF; reason behind
inline constexpr std::int32_t CaptureHowTo = 1845;       // ~1 CR LF
inline constexpr std::int32_t MediaShotsFolder = 2963;   // fragment behind the editor folder
inline constexpr std::int32_t MediaShotsPattern = 2964;  // pattern of the files in it
inline constexpr std::int32_t CatturaCaption = 5891;
inline constexpr std::int32_t CatturaAutoSave = 5892;
inline constexpr std::int32_t CatturaPulSave = 5893;
inline constexpr std::int32_t CatturaPulCancel = 5894;
// The savegame panel of the main window.
inline constexpr std::int32_t SavegameNoneSelected = 2396;
inline constexpr std::int32_t DeleteSavegameQuestion = 2390;  // the row text and "] ?" follow
inline constexpr std::int32_t RestoreNeedsArchived = 2392;
inline constexpr std::int32_t SavegameNoteTitle = 2393;
inline constexpr std::int32_t ArchiveSavegamesDone = 1844;
inline constexpr std::int32_t RestoreSavegamesDone = 1961;
inline constexpr std::int32_t SaveSavegameTitle = 2377;
inline constexpr std::int32_t SaveSavegameFilterZip = 1897;  // "Zip files|*.zip"
inline constexpr std::int32_t SaveSavegameFilterAll = 2378;  // "All files|*.*"
inline constexpr std::int32_t SaveSavegameZipExtension =
    2957;  // ".zip", compared to the name's end
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
inline constexpr std::int32_t CaptionPulChangeScreenshot = 5928;

// The joystick window.
inline constexpr std::int32_t JoyPortFirst = 2627;
inline constexpr std::int32_t JoyPortSecond = 2628;
inline constexpr std::int32_t JoyPortSilent = 2629;
inline constexpr std::int32_t JoyNotAnswering = 2630;
inline constexpr std::int32_t JoyCloseButtonMissing = 2631;
inline constexpr std::int32_t JoyCaptureButtonMissing = 2632;
inline constexpr std::int32_t JoyTitle = 5960;
inline constexpr std::int32_t JoyGamePort = 5961;
inline constexpr std::int32_t JoyCloseTrle = 5962;
inline constexpr std::int32_t JoyCatturaShot = 5963;
inline constexpr std::int32_t JoyOnlyButton = 5964;
inline constexpr std::int32_t JoyOk = 5965;
inline constexpr std::int32_t JoyCancel = 5966;
inline constexpr std::int32_t JoyHelp = 5967;

// The game's savegames in the editor folder, as the watcher counts them.
inline constexpr std::int32_t WatcherSavegamePattern = 2394;

// Savegames moved out and in: the selection dialog, zips, folders, a friend's file and mail.
inline constexpr std::int32_t ListSavegameNoLevel = 502;
inline constexpr std::int32_t ListSavegameMask = 504;       // same as 1684
inline constexpr std::int32_t ListSavegameNoneFound = 505;  // the folder follows
inline constexpr std::int32_t MailDateFormat = 506;
inline constexpr std::int32_t ListSavegameCaptionImport = 507;
inline constexpr std::int32_t ListSavegameCaptionExport = 508;
inline constexpr std::int32_t ListSavegameNoneChosen = 509;
inline constexpr std::int32_t ImportSlotMask = 510;       // same as 1684
inline constexpr std::int32_t ImportSlotMaskAgain = 511;  // same as 1684
inline constexpr std::int32_t ImportTooMany = 512;        // the number of savegames follows
inline constexpr std::int32_t ImportSlotName = 513;       // fragment "\savegame."
inline constexpr std::int32_t ExportFolderTitle = 514;
inline constexpr std::int32_t ImportFolderTitle = 1846;
inline constexpr std::int32_t ZipSavegamesZipping = 1900;  // the zip's name follows
inline constexpr std::int32_t ZipSavegamesFailed = 1901;
inline constexpr std::int32_t MailSubjectSeveral = 2249;  // behind the count
inline constexpr std::int32_t MailSubjectOne = 2250;      // ~1 the title
inline constexpr std::int32_t MailFailed = 2251;
inline constexpr std::int32_t ReceiveTitle = 2368;
inline constexpr std::int32_t ReceiveFilter = 2369;
inline constexpr std::int32_t ShotMailNoSelection = 2385;
inline constexpr std::int32_t ShotMailSubject = 2386;
inline constexpr std::int32_t ReceiveWorkFolder = 2955;   // fragment behind the program's folder
inline constexpr std::int32_t ReceiveMask = 2956;         // same as 1684
inline constexpr std::int32_t ZipSavegamesFolder = 3097;  // fragment behind the program's folder
inline constexpr std::int32_t ZipSavegamesDone = 3098;    // ~1 the path between line ends
inline constexpr std::int32_t ZipSavegamesTitle = 3147;
inline constexpr std::int32_t ZipSavegamesNotCopied = 9420;  // the files follow, a line each
inline constexpr std::int32_t ImportNotSavegames = 8750;     // the names follow, a line each
// Question, ~1 = the quoted level titles of the savegames, ~2 = the quoted level
inline constexpr std::int32_t ImportOtherLevel = 9504;
// Where the note of a savegame the game saved over is kept: a folder of the level's folder, and
// the note's name there, ~1 = the slot, ~2 = a number that makes it free.
inline constexpr std::int32_t NoteAsideFolder = 9505;  // fragment
inline constexpr std::int32_t NoteAsideName = 9506;
inline constexpr std::int32_t CaptionCheckElimina = 8751;
inline constexpr std::int32_t CaptionCheckCreaFileZip = 8752;
inline constexpr std::int32_t CaptionPulSelezionaTutti = 8753;
inline constexpr std::int32_t CaptionListSavegameOk = 8754;
inline constexpr std::int32_t CaptionListSavegameCancel = 8755;
inline constexpr std::int32_t CaptionPulExportSaveGame = 8756;
inline constexpr std::int32_t CaptionPulImportSavegame = 8757;

}  // namespace vardolin::text
