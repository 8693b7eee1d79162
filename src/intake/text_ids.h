#pragma once
// Numbers of the texts that level intake uses. Every id here has an English wording in
// resources/english.trc. Ids marked "fragment" are path fragments or patterns: a folder fragment
// begins with a backslash.
// resources/english.trc. Ids marked "fragment" are path fragments: a folder fragment begins
// with a backslash.

#include <cstdint>

namespace vardolin::text {

// The list of a level's compiled level files, kept in its folder on hard disk.
inline constexpr std::int32_t LevelFileListName = 1255;      // fragment
inline constexpr std::int32_t EqualCandidatePattern = 1583;  // fragment
inline constexpr std::int32_t LevelFileListPattern = 1621;   // fragment
inline constexpr std::int32_t EqualCheckCaption = 1860;      // progress caption
inline constexpr std::int32_t EqualLevelsFound = 1863;       // ~1 ~2 names, ~3 file
inline constexpr std::int32_t EqualCheckGoesOn = 1864;       // progress caption
inline constexpr std::int32_t EqualCheckFinds = 1865;        // ~1 count, ~2 CR LF
inline constexpr std::int32_t EqualCheckNone = 1866;         // ~1 count, ~2 CR LF
inline constexpr std::int32_t InfoCopyNoCd = 1867;
inline constexpr std::int32_t InfoCopySourceFolder = 1868;  // fragment, on the CD
inline constexpr std::int32_t InfoCopyCdMissing = 1869;
inline constexpr std::int32_t InfoCopyTargetFolder = 1870;  // fragment, on hard disk
inline constexpr std::int32_t InfoCopyFailed = 1871;        // the path follows
inline constexpr std::int32_t ListsCaption = 1872;          // progress caption
inline constexpr std::int32_t ListsFileName = 1873;         // fragment, equals 1255
inline constexpr std::int32_t ListsFilesFolder = 1874;      // fragment
inline constexpr std::int32_t ListsCdMissing = 1875;
inline constexpr std::int32_t ListsPlainPattern = 1876;  // fragment
inline constexpr std::int32_t ListsExpandFailed = 1877;  // the name and "]" follow

// Wads that level sources (.tom) need.
inline constexpr std::int32_t WadExtension = 227;      // fragment
inline constexpr std::int32_t EditorWadsFolder = 228;  // fragment
inline constexpr std::int32_t WadMissing = 229;        // ~1 name
inline constexpr std::int32_t TomPattern = 662;        // fragment
inline constexpr std::int32_t TomWadsCheck = 663;
inline constexpr std::int32_t TomWadNotFound = 665;  // ~1 quoted name
inline constexpr std::int32_t RevisedWadsRefused = 667;
inline constexpr std::int32_t TomCannotCompile = 2247;  // ~1 base name
inline constexpr std::int32_t TomWadAdvice = 2267;
inline constexpr std::int32_t RevisedWadsMarkerFile = 1719;  // fragment

// Documents of a level.
inline constexpr std::int32_t DocumentPattern1 = 1720;  // fragment
inline constexpr std::int32_t DocumentPattern2 = 1721;  // fragment
inline constexpr std::int32_t DocumentPattern3 = 1722;  // fragment
inline constexpr std::int32_t DocumentPattern4 = 1723;  // fragment
inline constexpr std::int32_t DocumentPattern5 = 1724;  // fragment
inline constexpr std::int32_t NotADocument1 = 1725;     // a lower-case file name
inline constexpr std::int32_t NotADocument2 = 1726;     // a lower-case file name

// The level file name the game's own script expects.
inline constexpr std::int32_t StandardLevelWord1 = 2292;  // up to 2299, in the names' order
inline constexpr std::int32_t RenameLevelFile = 2300;     // ~1 old, ~2 CR LF, ~3 new
inline constexpr std::int32_t ChooseStandardName = 2301;
inline constexpr std::int32_t StandardNameList = 2302;  // ~1 CR LF, ~2 the list
inline constexpr std::int32_t StandardNamePrompt = 2303;

// The script and language files of a level.
inline constexpr std::int32_t LevelScriptPattern = 713;  // fragment
inline constexpr std::int32_t LevelScriptName = 714;
inline constexpr std::int32_t BackupScriptFile = 715;  // fragment
inline constexpr std::int32_t LevelScriptFile = 716;   // fragment
inline constexpr std::int32_t LevelScriptNotLanguage = 717;
inline constexpr std::int32_t BackupLanguageFiles = 718;  // fragment
inline constexpr std::int32_t BackupScriptNotLanguage = 719;
inline constexpr std::int32_t ChooseLanguageFile = 720;  // ~1 count, ~2 the list
inline constexpr std::int32_t ChooseLanguagePrompt = 721;
inline constexpr std::int32_t ScriptPathPrefix = 3000;  // fragment
inline constexpr std::int32_t ScriptOfLevel = 3105;     // fragment
inline constexpr std::int32_t FillerLevelFile = 3106;   // fragment
inline constexpr std::int32_t FillerPattern = 3107;     // fragment
inline constexpr std::int32_t FillerFolder = 3108;      // fragment
inline constexpr std::int32_t GameLevelFolder = 3109;   // fragment

// Adding a level and its properties.
inline constexpr std::int32_t FilesFolderOfLevel = 600;
inline constexpr std::int32_t LevelCdMissing = 601;
inline constexpr std::int32_t FilesFolderOnCd = 602;
inline constexpr std::int32_t CannotExpandForViewing = 603;
inline constexpr std::int32_t PropertiesSizes = 604;
inline constexpr std::int32_t MoreInfoNoneEntry = 605;
inline constexpr std::int32_t MoreInfoDefault = 606;
inline constexpr std::int32_t UncompiledPattern = 607;
inline constexpr std::int32_t FileCountLabel = 608;
inline constexpr std::int32_t PackedSuffixThree = 609;
inline constexpr std::int32_t DeletingTemporaryFolder = 610;
inline constexpr std::int32_t OnlyOneLevelOfferSites = 611;
inline constexpr std::int32_t LevelNameMissing = 613;
inline constexpr std::int32_t TomPatternInFolder = 614;
inline constexpr std::int32_t CompileTomQuestion = 615;
inline constexpr std::int32_t LevelFilePattern = 616;
inline constexpr std::int32_t PackedLevelFilePattern = 617;
inline constexpr std::int32_t LookingForEqualLevel = 619;
inline constexpr std::int32_t EqualLevelQuestion = 620;
inline constexpr std::int32_t LevelPlayFolder = 621;
inline constexpr std::int32_t SavegamePattern = 622;
inline constexpr std::int32_t SavegamePatternDeleted = 623;
inline constexpr std::int32_t LevelShotFolder = 624;
inline constexpr std::int32_t StoredFilesFolder = 627;
inline constexpr std::int32_t StoringPacked = 628;
inline constexpr std::int32_t StorePlainQuestion = 629;
inline constexpr std::int32_t CopyingFiles = 630;
inline constexpr std::int32_t StoringPlain = 631;
inline constexpr std::int32_t StoreKeptOldFiles = 9302;  // ~1 the store's folder
inline constexpr std::int32_t UserSizeFolder1 = 632;
inline constexpr std::int32_t UserSizeFolder2 = 633;
inline constexpr std::int32_t UserSizeFolder3 = 634;
inline constexpr std::int32_t RemovingTemporaryFolder = 635;
inline constexpr std::int32_t NoFileChosen = 636;
inline constexpr std::int32_t RemoveFileQuestion = 637;
inline constexpr std::int32_t NoArchiveOpen = 1114;
inline constexpr std::int32_t CannotMakeLevelFolders = 1115;
inline constexpr std::int32_t NewLevelEmptiedFolder = 1116;
inline constexpr std::int32_t RemovingLevelFolders = 1117;
inline constexpr std::int32_t CannotDeleteLevelFolder = 1118;
inline constexpr std::int32_t AddFolderCaption = 1169;
inline constexpr std::int32_t AddFolderDefault = 1170;
inline constexpr std::int32_t ReadingFolder = 1171;
inline constexpr std::int32_t TakeSubfoldersQuestion = 1172;
inline constexpr std::int32_t FileNotAddedFromFolder = 1173;
inline constexpr std::int32_t OneKindTitle = 1174;
inline constexpr std::int32_t OneKindFilter = 1175;
inline constexpr std::int32_t LoadDirDefault = 1178;
inline constexpr std::int32_t ZipExtensionDialog = 1179;
inline constexpr std::int32_t UnpackingZipLabel = 1180;
inline constexpr std::int32_t CopyingFileLabel = 1181;
inline constexpr std::int32_t FileNotAdded = 1182;
inline constexpr std::int32_t NeverPacked1 = 1239;
inline constexpr std::int32_t NeverPacked2 = 1240;
inline constexpr std::int32_t NeverPacked3 = 1241;
inline constexpr std::int32_t StoredFolder = 1242;
inline constexpr std::int32_t StoringBaseLevel = 1243;
inline constexpr std::int32_t LoadBitmapInFolder = 1247;
inline constexpr std::int32_t ConvertingLoadPicture = 1248;
inline constexpr std::int32_t LoadBitmapSource = 1249;
inline constexpr std::int32_t LoadJpegTarget = 1250;
inline constexpr std::int32_t LoadBitmapDeleted = 1251;
inline constexpr std::int32_t PackingFile = 1252;
inline constexpr std::int32_t CopyingPackedFiles = 1254;
inline constexpr std::int32_t ExpandingForViewing = 1301;
inline constexpr std::int32_t ViewFolder = 1302;
inline constexpr std::int32_t CannotExpandForView = 1303;
inline constexpr std::int32_t UnpackingArchiveNamed = 1467;
inline constexpr std::int32_t UnpackingZipDirect = 1558;
inline constexpr std::int32_t UnpackFolder = 1559;
inline constexpr std::int32_t UnpackingZipTemp = 1560;
inline constexpr std::int32_t CopyingUnpacked = 1561;
inline constexpr std::int32_t CopyingNamedFile = 1562;
inline constexpr std::int32_t ZipPatternInFolder = 2254;
inline constexpr std::int32_t JunkFile1 = 2256;
inline constexpr std::int32_t JunkFile2 = 2257;
inline constexpr std::int32_t NoLevelFile = 2304;
inline constexpr std::int32_t LevelFileNameUnsettled = 2305;
inline constexpr std::int32_t StandardNameNoteQuestion = 2306;
inline constexpr std::int32_t PlaysAsNote = 2307;
inline constexpr std::int32_t AllFilesFilter = 2966;
inline constexpr std::int32_t AddFileTitle = 2967;
inline constexpr std::int32_t OtherArchiveExtensionsDialog = 2968;
inline constexpr std::int32_t UnpackingArchiveLabel = 2969;
inline constexpr std::int32_t ZipExtension = 2971;
inline constexpr std::int32_t UnpackedExtensions = 2972;
inline constexpr std::int32_t OtherArchiveExtensions = 2973;
inline constexpr std::int32_t UnpackingArchiveDirect = 2974;
inline constexpr std::int32_t UnpackingArchiveTemp = 2975;
inline constexpr std::int32_t TravellingProgram = 3102;
inline constexpr std::int32_t EditorTravellingProgram = 3103;
inline constexpr std::int32_t ShotPattern = 3110;
inline constexpr std::int32_t PackageFilter = 3156;
inline constexpr std::int32_t CannotCompileTomYet = 8652;
// The level info file.
inline constexpr std::int32_t InfoFileMissing = 1390;       // ~1 = the path
inline constexpr std::int32_t InfoFileOpenFailed = 1391;    // the path follows
inline constexpr std::int32_t InfoFileFixedFailed = 1392;   // the path follows
inline constexpr std::int32_t InfoFileEntryFailed = 1393;   // the path follows
inline constexpr std::int32_t InfoFileCreateFailed = 1394;  // the path follows
inline constexpr std::int32_t InfoFileWriteFixed = 1395;    // the path follows
inline constexpr std::int32_t InfoFileWriteEntry = 1396;    // the path follows

// Self-installing programs.
inline constexpr std::int32_t SelfInstallerMagic = 3005;   // seven characters
inline constexpr std::int32_t InstallerOwnFile1 = 3111;    // 3111 to 3115: the installer's own
inline constexpr std::int32_t InstallerOwnFile5 = 3115;    // files, names without a folder
inline constexpr std::int32_t InstallerUnsafeName = 8600;  // ~1 = the program, ~2 = the name
inline constexpr std::int32_t InstallerDamaged = 8601;     // ~1 = the program
inline constexpr std::int32_t UnpackedCopyFailed = 8604;   // ~1 = the level's folder

// Install scripts.
inline constexpr std::int32_t ScriptMainSection = 3006;
inline constexpr std::int32_t ScriptKeySection = 3007;
inline constexpr std::int32_t DefaultAngkorWadsUrl = 3008;
inline constexpr std::int32_t DefaultNewWadsUrl = 3009;
inline constexpr std::int32_t DefaultRevisedWadsUrl = 3010;
inline constexpr std::int32_t ScriptNewTrleYes = 3011;
inline constexpr std::int32_t ScriptBackupYes = 3012;
inline constexpr std::int32_t ScriptClosingTagStart = 3018;

// Packed level archives: creating, adding, replacing, removing, taking out.
inline constexpr std::int32_t StoreFolderName = 3022;  // fragment
inline constexpr std::int32_t ArchiveCreateFailed = 3023;
inline constexpr std::int32_t ArchiveBackupPrefix = 3024;  // fragment, the file name follows
inline constexpr std::int32_t ArchiveAddMissingSource = 3025;
inline constexpr std::int32_t ArchiveAddTemp = 3026;  // fragment
inline constexpr std::int32_t ArchiveAddOpenFailed = 3027;
inline constexpr std::int32_t ArchiveAddCopyFailed = 3028;
inline constexpr std::int32_t ArchiveAddRenameFailed = 3029;
inline constexpr std::int32_t ArchiveReplaceNotFound = 3030;  // ~1 = CR LF and the name
inline constexpr std::int32_t ArchiveReplaceMissingSource = 3031;
inline constexpr std::int32_t ArchiveReplaceTemp = 3032;  // fragment
inline constexpr std::int32_t ArchiveReplaceOpenFailed = 3033;
inline constexpr std::int32_t ArchiveReplaceCopyFailed = 3034;
inline constexpr std::int32_t ArchiveReplaceRenameFailed = 3035;
inline constexpr std::int32_t ArchiveCheckLength = 3036;
inline constexpr std::int32_t ArchiveCheckNoStore = 3037;
inline constexpr std::int32_t ArchiveCheckMissingFile = 3038;
inline constexpr std::int32_t ArchiveCheckDate = 3039;
inline constexpr std::int32_t ArchiveCheckSize = 3040;
inline constexpr std::int32_t ArchiveTakeNotFound = 3041;
inline constexpr std::int32_t ArchiveTakeNotWritten = 3042;
inline constexpr std::int32_t ArchiveRemoveNotFound = 3043;  // ~1 = CR LF and the name
inline constexpr std::int32_t ArchiveRemoveTemp = 3044;      // fragment
inline constexpr std::int32_t ArchiveRemoveOpenFailed = 3045;
inline constexpr std::int32_t ArchiveRemoveCopyFailed = 3046;
inline constexpr std::int32_t ArchiveRemoveRenameFailed = 3047;
inline constexpr std::int32_t ArchiveTakeAllNoFolder = 3048;
inline constexpr std::int32_t GameSoundFolderEnd = 3049;  // six characters
inline constexpr std::int32_t GameFolderMark = 3050;      // fragment
inline constexpr std::int32_t GameAudioFolder = 3053;     // fragment, the name follows
inline constexpr std::int32_t GameSampleExtension1 = 3054;
inline constexpr std::int32_t GameSampleExtension2 = 3055;
inline constexpr std::int32_t GameSampleFolder = 3056;  // fragment, the name follows
inline constexpr std::int32_t StoreFileMissing = 3060;  // ~1 = the name
inline constexpr std::int32_t GameAudioFolderOut = 3061;
inline constexpr std::int32_t GameSampleExtensionOut1 = 3062;
inline constexpr std::int32_t GameSampleExtensionOut2 = 3063;
inline constexpr std::int32_t GameSampleFolderOut = 3064;
inline constexpr std::int32_t ArchiveNotExternal = 3067;
inline constexpr std::int32_t ArchiveMoveInFailed = 3068;  // the error follows
inline constexpr std::int32_t ArchiveAlreadyExternal = 3069;
inline constexpr std::int32_t MoveOutFolderName = 3070;  // fragment
inline constexpr std::int32_t ArchiveAddFolderMissing = 3071;
inline constexpr std::int32_t ArchiveAddFolderEmpty = 3072;

// Packed level archives: the directory.
inline constexpr std::int32_t DirectoryOpenFailed = 3073;
inline constexpr std::int32_t DirectoryWriteHead = 3074;
inline constexpr std::int32_t DirectoryWriteName = 3075;
inline constexpr std::int32_t DirectoryWriteSize = 3076;
inline constexpr std::int32_t DirectoryWriteDate = 3077;
inline constexpr std::int32_t DirectoryWriteAdded = 3078;
inline constexpr std::int32_t DirectoryMissing = 3079;
inline constexpr std::int32_t DirectoryUnopenable = 3080;
inline constexpr std::int32_t DirectoryStoreFolder = 3081;
inline constexpr std::int32_t DirectoryName = 3082;
inline constexpr std::int32_t DirectorySize = 3083;
inline constexpr std::int32_t DirectoryFileDate = 3084;
inline constexpr std::int32_t DirectoryAddedDate = 3085;
inline constexpr std::int32_t ArchiveUnsafeName = 8602;  // ~1 = the name
inline constexpr std::int32_t ArchiveEntryPastEnd = 8603;
inline constexpr std::int32_t ArchiveNameTaken = 8605;  // ~1 = the name

// Kinds of file inside a packed level.
inline constexpr std::int32_t AudioTrackExtension1 = 3086;
inline constexpr std::int32_t AudioTrackExtension2 = 3087;
inline constexpr std::int32_t SavegameBaseName = 3088;
inline constexpr std::int32_t PackageSignature = 3090;  // three characters
inline constexpr std::int32_t HeaderStringFailed = 3091;
inline constexpr std::int32_t HeaderNameFailed = 3092;
inline constexpr std::int32_t HeaderReadFailed = 3093;
inline constexpr std::int32_t WorkingExtensionFirst = 3116;  // 3116 to 3128
inline constexpr std::int32_t WorkingExtensionLast = 3128;
inline constexpr std::int32_t PackedLevelFile = 3129;    // fragment
inline constexpr std::int32_t PackageHeaderFile = 3130;  // fragment
inline constexpr std::int32_t WorkingName1 = 3131;
inline constexpr std::int32_t WorkingName2 = 3132;
inline constexpr std::int32_t WorkingName3 = 3133;
inline constexpr std::int32_t WorkingBaseName = 3134;
inline constexpr std::int32_t KeptExtension = 3135;
inline constexpr std::int32_t ExpandingPackedLevel = 3136;
inline constexpr std::int32_t PackedLevelLeftover = 3137;  // fragment
inline constexpr std::int32_t KeptNumberedName = 3138;     // ~1 = 0 to 11

// What a level info file or install script asks of the level.
inline constexpr std::int32_t LevelInfoFile = 645;
inline constexpr std::int32_t TomToCompile = 646;
inline constexpr std::int32_t ListedWadFolder = 647;
inline constexpr std::int32_t RevisedWadsWord = 648;
inline constexpr std::int32_t WadsNotGiven = 649;
inline constexpr std::int32_t ImportingWads = 650;
inline constexpr std::int32_t ApplyingCopies = 651;
inline constexpr std::int32_t ApplyingCopy = 652;
inline constexpr std::int32_t FetchingMedia = 653;
inline constexpr std::int32_t MediaCdFolder = 654;
inline constexpr std::int32_t MediaCdMissing = 655;
inline constexpr std::int32_t InsertMediaCd = 656;
inline constexpr std::int32_t GoOnLookingForCd = 657;
inline constexpr std::int32_t MediaCdUnknown = 658;
inline constexpr std::int32_t EditorMediaFolder = 659;
inline constexpr std::int32_t CopyingMedia = 660;
inline constexpr std::int32_t MediaStillMissing = 661;
inline constexpr std::int32_t ListedFileGoOn = 670;
inline constexpr std::int32_t AskHaveFile = 673;
inline constexpr std::int32_t AskDownloadFile = 674;
inline constexpr std::int32_t DirectDownloadExtension = 675;
inline constexpr std::int32_t DownloadFailedOpenPage = 677;
inline constexpr std::int32_t DownloadInBrowser = 678;
inline constexpr std::int32_t AfterBrowserDownload = 679;
inline constexpr std::int32_t NeededFileFilter = 680;
inline constexpr std::int32_t NeededFileTitle = 681;
inline constexpr std::int32_t TomLinkWadsFolder = 1663;
inline constexpr std::int32_t ListedFileMissing = 2233;
inline constexpr std::int32_t ListedFileSizeDiffers = 2234;
inline constexpr std::int32_t KnownPatchQuestion = 2236;
inline constexpr std::int32_t PatchNotDownloaded = 2237;
inline constexpr std::int32_t PatchZipExtension = 2238;
inline constexpr std::int32_t PatchNotUnpacked = 2239;
inline constexpr std::int32_t PatchFolder = 2240;
inline constexpr std::int32_t InstallScriptFile = 3104;

// A level's audio on its way into the store.
inline constexpr std::int32_t WaveExtension = 642;
inline constexpr std::int32_t MusicNotConverted = 643;
inline constexpr std::int32_t SamplesNotConverted = 644;
inline constexpr std::int32_t WavesToMp3Pattern = 1244;
inline constexpr std::int32_t WavesToMp3Failed = 1245;
inline constexpr std::int32_t StoreWavesAsTheyAre = 1246;

// Setup programs that levels bring.
inline constexpr std::int32_t SetupLevelPattern = 695;
inline constexpr std::int32_t SetupProgramPattern = 696;
inline constexpr std::int32_t SetupOwnGame = 697;
inline constexpr std::int32_t SetupAsk = 698;
inline constexpr std::int32_t SetupStarting = 699;
inline constexpr std::int32_t SetupCollectFolder = 700;
inline constexpr std::int32_t SetupFailed = 701;
inline constexpr std::int32_t SetupFailedClean = 702;
inline constexpr std::int32_t SetupEmptying = 704;
inline constexpr std::int32_t SetupCopying = 705;
inline constexpr std::int32_t SetupLeftover = 706;
inline constexpr std::int32_t SetupCleaning = 707;
inline constexpr std::int32_t SetupResetting = 1374;
inline constexpr std::int32_t SetupNotFound = 1375;
inline constexpr std::int32_t SetupDetected = 1376;
inline constexpr std::int32_t SetupRunning = 1377;
inline constexpr std::int32_t SetupNotStarted = 1378;
inline constexpr std::int32_t SetupFinishFirst = 1379;
inline constexpr std::int32_t SetupIntoEditor = 1380;
inline constexpr std::int32_t SetupIntoEditor2 = 1381;
inline constexpr std::int32_t SetupComparing = 1382;
inline constexpr std::int32_t SetupCollecting = 1383;
inline constexpr std::int32_t SetupKeptExtension = 1384;
inline constexpr std::int32_t SetupPartialBackup = 1385;
inline constexpr std::int32_t SetupLevelFile1 = 1386;
inline constexpr std::int32_t SetupLevelFile2 = 1387;
inline constexpr std::int32_t SetupNoLevel = 1388;
inline constexpr std::int32_t SetupCollected = 1389;
inline constexpr std::int32_t SetupJunk1 = 1658;
inline constexpr std::int32_t SetupJunk2 = 1659;
inline constexpr std::int32_t SetupJunk3 = 1660;
inline constexpr std::int32_t SetupLinkPattern = 1661;
inline constexpr std::int32_t SetupLinkCompanion = 1662;
inline constexpr std::int32_t SetupKindUnknown = 1668;
inline constexpr std::int32_t SetupNotScanned = 1669;
inline constexpr std::int32_t SetupMark1 = 1670;
inline constexpr std::int32_t SetupKind1 = 1671;
inline constexpr std::int32_t SetupDestination1 = 1672;
inline constexpr std::int32_t SetupKind2 = 1673;
inline constexpr std::int32_t SetupDestination2 = 1674;
inline constexpr std::int32_t SetupMark3 = 1675;
inline constexpr std::int32_t SetupDestination3 = 1676;
inline constexpr std::int32_t SetupKind3 = 1677;
inline constexpr std::int32_t SetupMark4 = 1678;
inline constexpr std::int32_t SetupKind4 = 1679;
inline constexpr std::int32_t SetupDestination4 = 1680;
inline constexpr std::int32_t SetupNever1 = 2976;
inline constexpr std::int32_t SetupNever2 = 2977;
inline constexpr std::int32_t SetupNever3 = 2978;
inline constexpr std::int32_t SetupStopped = 8570;

// A level leaves the archive as a zip that adding a level takes in again.
inline constexpr std::int32_t ExportNoSelection = 1881;
inline constexpr std::int32_t ExportFolder = 1882;  // fragment, behind the program's folder
inline constexpr std::int32_t ExportCaption = 1883;
inline constexpr std::int32_t ExportFilesFolder = 1884;  // fragment, equals 1127
inline constexpr std::int32_t ExportCdMissing = 1885;
inline constexpr std::int32_t ExportExpandFailed = 1886;
inline constexpr std::int32_t ExportSavegamesFolder = 1887;  // fragment, equals 1546
inline constexpr std::int32_t ExportSavegamePattern = 1888;
inline constexpr std::int32_t ExportShotsFolder = 1889;   // fragment, equals 1548
inline constexpr std::int32_t ExportShotMaskJpeg = 1890;  // fragment
inline constexpr std::int32_t ExportShotMaskBmp = 1891;   // fragment
inline constexpr std::int32_t ExportShotsQuestion = 1892;
inline constexpr std::int32_t ExportCopyingShots = 1893;
inline constexpr std::int32_t ExportInfoFile = 1894;  // fragment, equals 645
inline constexpr std::int32_t ExportZipEnding = 1895;
inline constexpr std::int32_t ExportZipTitle = 1896;
inline constexpr std::int32_t ExportZipFilter = 1897;
inline constexpr std::int32_t ExportDropTemporary = 1898;
inline constexpr std::int32_t ExportCancelled = 1899;
inline constexpr std::int32_t ExportZipping = 1900;  // the zip's path follows
inline constexpr std::int32_t ExportZipFailed = 1901;
inline constexpr std::int32_t ExportDeleteTemporary = 1902;
inline constexpr std::int32_t ExportDeleteFolder = 1903;
inline constexpr std::int32_t ExportDone = 1904;          // the zip's path follows
inline constexpr std::int32_t ExportFilesMissing = 9403;  // the files follow, one a line

// Dialog_Autore: who made a level and how to reach them.
inline constexpr std::int32_t AutoreCaption = 233;
inline constexpr std::int32_t AutoreCancel = 234;
inline constexpr std::int32_t AutoreOk = 235;
inline constexpr std::int32_t AutoreFrameEmail = 236;
inline constexpr std::int32_t AutoreSendMail = 237;
inline constexpr std::int32_t AutoreNewEmail = 238;
inline constexpr std::int32_t AutoreDelEmail = 239;
inline constexpr std::int32_t AutoreChangeEmail = 240;
inline constexpr std::int32_t AutoreFrameSite = 241;
inline constexpr std::int32_t AutoreModSito = 242;
inline constexpr std::int32_t AutoreDelSito = 243;
inline constexpr std::int32_t AutoreNewSito = 244;
inline constexpr std::int32_t AutoreGoSito = 245;
inline constexpr std::int32_t AutoreFrameNote = 246;
inline constexpr std::int32_t AutoreFrameName = 247;
inline constexpr std::int32_t AutoreChangeEmailTitle = 248;
inline constexpr std::int32_t AutoreNoSite = 249;
inline constexpr std::int32_t AutoreChangeSiteTitle = 250;
inline constexpr std::int32_t AutoreNewSiteTitle = 251;
inline constexpr std::int32_t AutoreNewEmailTitle = 252;
inline constexpr std::int32_t AutoreEmailsTooLong = 253;
inline constexpr std::int32_t AutoreSitesTooLong = 254;
inline constexpr std::int32_t AutoreNameTooLong = 255;
inline constexpr std::int32_t AutoreNoteTooLong = 256;
inline constexpr std::int32_t AutoreMailPrefix = 257;      // "mailto:"
inline constexpr std::int32_t AutoreNoMailProgram = 9500;  // ~1 = the address
inline constexpr std::int32_t AutoreNotAnEmail = 9502;     // ~1 = what was typed
inline constexpr std::int32_t AutoreNotASite = 9503;       // ~1 = what was typed
inline constexpr std::int32_t AutoreNoRowToChange = 258;
inline constexpr std::int32_t AutoreInputPrompt = 259;
inline constexpr std::int32_t AutoreNoRowToDelete = 260;

// The player's language forced on a level, and taken back.
inline constexpr std::int32_t LanguageBackupMarker = 1400;  // fragment, MUST equal 1418 and 1423
inline constexpr std::int32_t LanguageBackupMissingSet = 1401;
inline constexpr std::int32_t LanguageMyPattern = 1402;  // fragment "\*.dat"
inline constexpr std::int32_t LanguageMyScript = 1403;   // "script.dat"
inline constexpr std::int32_t LanguageMineNotFound = 1404;
inline constexpr std::int32_t LanguageAlreadyMine = 1405;
inline constexpr std::int32_t LanguageSetPattern = 1406;  // fragment "\*.ori": 1413 behind
inline constexpr std::int32_t LanguageAlreadySet = 1407;
inline constexpr std::int32_t LanguageLevelPattern = 1408;  // fragment "\*.dat"
inline constexpr std::int32_t LanguageLevelScript = 1409;   // "script.dat"
inline constexpr std::int32_t LanguageLevelHasNone = 1410;
inline constexpr std::int32_t LanguageRenamePattern = 1411;  // fragment "\*.dat"
inline constexpr std::int32_t LanguageRenameScript = 1412;   // "script.dat"
inline constexpr std::int32_t LanguageSuffix = 1413;         // ".ori", four characters
inline constexpr std::int32_t LanguageRenameFailed = 1415;   // old and new name follow
inline constexpr std::int32_t LanguageNothingRenamed = 1416;
inline constexpr std::int32_t LanguageCopyFailed = 1417;  // the file and folder follow
inline constexpr std::int32_t LanguageBackupMarkerRestore = 1418;
inline constexpr std::int32_t LanguageBackupMissingRestore = 1419;
inline constexpr std::int32_t LanguageRestorePattern = 1420;  // fragment "\*.ori"
inline constexpr std::int32_t LanguageNeverSet = 1421;
inline constexpr std::int32_t LanguageRestoreRenameFailed = 1422;  // the name follows
inline constexpr std::int32_t LanguageBackupMarkerAll = 1423;
inline constexpr std::int32_t LanguageAllNoBackup = 1424;
inline constexpr std::int32_t LanguageSetBaseLevel = 1425;
inline constexpr std::int32_t LanguageFilesFolder = 1426;  // fragment "\files"
inline constexpr std::int32_t LanguageSetFailed = 1427;    // the reason follows
inline constexpr std::int32_t LanguageSetDone = 1428;
inline constexpr std::int32_t LanguageSetAllBusy = 1429;
inline constexpr std::int32_t LanguageSetAllDone = 1430;  // ~1 changed, ~2 line end, ~3 not
inline constexpr std::int32_t LanguageRestoreBaseLevel = 1431;
inline constexpr std::int32_t LanguageRestoreFilesFolder = 1432;  // fragment, MUST equal 1426
inline constexpr std::int32_t LanguageRestoreFailed = 1433;       // the reason follows
inline constexpr std::int32_t LanguageRestoreDone = 1434;
inline constexpr std::int32_t LanguageRestoreAllBusy = 1435;
inline constexpr std::int32_t LanguageRestoreAllDone = 1436;  // ~1 changed
inline constexpr std::int32_t LanguageFormFailed = 671;       // the reason follows
inline constexpr std::int32_t LanguageFormDone = 672;
inline constexpr std::int32_t LanguageNoLevelSet = 1970;
inline constexpr std::int32_t LanguageNoLevelRestore = 1960;

// Dialog_CercaLivelli, the zip search.
inline constexpr std::int32_t SearchHelp = 2502;
inline constexpr std::int32_t SearchInsideZips = 2503;
inline constexpr std::int32_t SearchAll = 2504;
inline constexpr std::int32_t SearchLastFiles = 2505;
inline constexpr std::int32_t SearchCancel = 2506;
inline constexpr std::int32_t SearchAddLevel = 2507;
inline constexpr std::int32_t SearchFoundFrame = 2508;
inline constexpr std::int32_t SearchRename = 2509;
inline constexpr std::int32_t SearchCopy = 2510;
inline constexpr std::int32_t SearchDelete = 2511;
inline constexpr std::int32_t SearchOpen = 2512;
inline constexpr std::int32_t SearchInFound = 2513;
inline constexpr std::int32_t SearchByName = 2514;
inline constexpr std::int32_t SearchBrowse = 2515;
inline constexpr std::int32_t SearchKindLabel = 2516;
inline constexpr std::int32_t SearchFolderLabel = 2517;
inline constexpr std::int32_t SearchKindPackages = 2518;
inline constexpr std::int32_t SearchKindPrograms = 2519;
inline constexpr std::int32_t SearchKindAll = 2520;
inline constexpr std::int32_t SearchAge24Hours = 2521;
inline constexpr std::int32_t SearchAgeWeek = 2522;
inline constexpr std::int32_t SearchAgeMonth = 2523;
inline constexpr std::int32_t SearchDefaultUnset = 2524;
inline constexpr std::int32_t SearchDateFormat = 2525;
inline constexpr std::int32_t SearchCopyNoSelection = 2526;
inline constexpr std::int32_t SearchCopyTitle = 2527;
inline constexpr std::int32_t SearchCopyFilter = 2528;
inline constexpr std::int32_t SearchDeleteNoSelection = 2529;
inline constexpr std::int32_t SearchDeleteAsk = 2530;
inline constexpr std::int32_t SearchAddNoSelection = 2531;
inline constexpr std::int32_t SearchOpenNoSelection = 2532;
inline constexpr std::int32_t SearchRenameNoSelection = 2533;
inline constexpr std::int32_t SearchRenamePrompt = 2534;
inline constexpr std::int32_t SearchRenameTitle = 2535;
inline constexpr std::int32_t SearchRenameFailed = 2536;
inline constexpr std::int32_t SearchChooseFolder = 2537;
inline constexpr std::int32_t SearchFindEmpty = 2538;
inline constexpr std::int32_t SearchFindNoList = 2539;
inline constexpr std::int32_t SearchFindNone = 2540;
inline constexpr std::int32_t SearchNoFolder = 2541;
inline constexpr std::int32_t SearchDefaultUnset2 = 2542;
inline constexpr std::int32_t SearchNoWords = 2543;
inline constexpr std::int32_t SearchInterval24 = 2544;
inline constexpr std::int32_t SearchInterval7 = 2545;
inline constexpr std::int32_t SearchInterval1 = 2546;
inline constexpr std::int32_t SearchReading = 2547;
inline constexpr std::int32_t SearchSearching = 2548;
inline constexpr std::int32_t SearchKindPackageExt1 = 2549;
inline constexpr std::int32_t SearchKindPackageExt2 = 2550;
inline constexpr std::int32_t SearchKindProgramExt = 2551;
inline constexpr std::int32_t SearchZipExt = 2552;
inline constexpr std::int32_t SearchFoundCount = 2553;
inline constexpr std::int32_t SearchNothingFound = 2554;
inline constexpr std::int32_t SearchCaption = 9620;
inline constexpr std::int32_t SearchStop = 9621;

// The wad import: where each file goes, the report, the merge of the editor's script.
inline constexpr std::int32_t WadImportFolder = 116;  // fragment
inline constexpr std::int32_t WadCloseCaption = 117;
inline constexpr std::int32_t WadResetFailed = 118;  // ~1 CR LF
inline constexpr std::int32_t WadCancelAfterFile = 119;
inline constexpr std::int32_t WadCancelAfterFolder = 120;
inline constexpr std::int32_t WadMirrorLevels = 121;  // fragment, below the editor backup
inline constexpr std::int32_t WadLevelPattern = 122;  // pattern
inline constexpr std::int32_t WadMergeFolder = 123;   // fragment
inline constexpr std::int32_t WadSorting = 124;
inline constexpr std::int32_t WadMapExt = 125;
inline constexpr std::int32_t WadSetFolder = 126;  // fragment, "\..."
inline constexpr std::int32_t WadProjectExt = 127;
inline constexpr std::int32_t WadTextureExt = 128;
inline constexpr std::int32_t WadTextureOwnerExt = 129;
inline constexpr std::int32_t WadProjectOwnExt = 130;
inline constexpr std::int32_t WadProjectFolder = 131;  // fragment, the name follows
inline constexpr std::int32_t WadTextureProjectExt = 132;
inline constexpr std::int32_t WadTextureFolder = 133;  // fragment, the name follows
inline constexpr std::int32_t WadScriptPieceExt = 134;
inline constexpr std::int32_t WadScriptName = 135;
inline constexpr std::int32_t WadEnglishName = 136;
inline constexpr std::int32_t WadLanguageExt = 137;
inline constexpr std::int32_t WadLanguageSiblingExt = 138;
inline constexpr std::int32_t WadReportToMerge = 139;
inline constexpr std::int32_t WadReportMergeOk = 140;
inline constexpr std::int32_t WadReportMergeFailed = 141;
inline constexpr std::int32_t WadLoadPictureName = 142;
inline constexpr std::int32_t WadLoadPictureFolder = 143;  // fragment
inline constexpr std::int32_t WadSoundExt = 144;
inline constexpr std::int32_t WadSampleFolder = 145;  // fragment
inline constexpr std::int32_t WadMusicFolder = 146;   // fragment
inline constexpr std::int32_t WadRootEnding = 147;    // the last two characters
inline constexpr std::int32_t WadQuietExt = 148;
inline constexpr std::int32_t WadReportUnused = 149;
inline constexpr std::int32_t WadTouchingExt = 150;
inline constexpr std::int32_t WadTouchedMapExt = 151;
inline constexpr std::int32_t WadEditorMaps = 152;  // fragment
inline constexpr std::int32_t WadCompiling = 153;
inline constexpr std::int32_t WadCompiledExt = 154;
inline constexpr std::int32_t WadEditorLevels = 155;        // fragment
inline constexpr std::int32_t WadEditorMapsCompiled = 156;  // fragment
inline constexpr std::int32_t WadReportNotCompiled = 157;
inline constexpr std::int32_t WadReportCompiled = 158;
inline constexpr std::int32_t WadMirrorCompiled = 159;  // fragment, below the editor backup
inline constexpr std::int32_t WadReportToMirror = 160;
inline constexpr std::int32_t WadReportMirrorOk = 161;
inline constexpr std::int32_t WadReportMirrorFailed = 162;
inline constexpr std::int32_t WadReadyLevelFolder = 163;    // fragment
inline constexpr std::int32_t WadScriptLevels = 164;        // fragment
inline constexpr std::int32_t WadScriptLevelPattern = 165;  // pattern
inline constexpr std::int32_t WadMerging = 166;
inline constexpr std::int32_t WadLanguagePattern = 167;  // pattern
inline constexpr std::int32_t WadNotALanguage = 168;
inline constexpr std::int32_t WadScriptFolder = 169;    // fragment
inline constexpr std::int32_t WadImportScript = 170;    // fragment
inline constexpr std::int32_t WadImportNames = 171;     // fragment
inline constexpr std::int32_t WadNothingToMerge = 172;  // ~1 CR LF
inline constexpr std::int32_t WadMirrorScript = 173;    // fragment
inline constexpr std::int32_t WadLanguageFileExt = 174;
inline constexpr std::int32_t WadEditorScript = 175;  // fragment
inline constexpr std::int32_t WadEnglish = 176;
inline constexpr std::int32_t WadEditorEnglish = 177;  // fragment
inline constexpr std::int32_t WadNoBlock = 178;        // ~1 file
inline constexpr std::int32_t WadNoName = 179;         // ~1 name
inline constexpr std::int32_t WadScriptOut = 180;      // fragment
inline constexpr std::int32_t WadScriptNotWritten = 181;
inline constexpr std::int32_t WadLanguageOutExt = 182;
inline constexpr std::int32_t WadLanguageNotWritten = 183;  // ~1 language
inline constexpr std::int32_t WadEnglishOut = 184;          // fragment
inline constexpr std::int32_t WadEnglishNotWritten = 185;
inline constexpr std::int32_t WadScriptInstalled = 192;  // fragment
inline constexpr std::int32_t WadLanguageInstalledExt = 193;
inline constexpr std::int32_t WadMirrorScriptAfter = 194;  // fragment
inline constexpr std::int32_t WadReportEnd = 195;
inline constexpr std::int32_t WadFinished = 196;
inline constexpr std::int32_t WadCloseAfterImport = 197;
inline constexpr std::int32_t WadLabelAfterImport = 198;
inline constexpr std::int32_t WadNothingToPrint = 199;
inline constexpr std::int32_t LevelNameEmpty = 777;
inline constexpr std::int32_t WadReportMirror = 1577;
inline constexpr std::int32_t WadReportMirrorCopied = 1578;
inline constexpr std::int32_t WadReportMirrorNotCopied = 1579;
inline constexpr std::int32_t WadReportEditor = 1580;
inline constexpr std::int32_t WadReportEditorCopied = 1581;
inline constexpr std::int32_t WadReportEditorNotCopied = 1582;
inline constexpr std::int32_t WadDownloadNewPrompt = 3142;
inline constexpr std::int32_t WadDownloadRevisedPrompt = 3143;
inline constexpr std::int32_t NeedNewWad = 692;  // ~1 name, ~2 ".wad", ~3 address
inline constexpr std::int32_t NewWadsNotGiven = 693;
inline constexpr std::int32_t NeedRevisedWads = 711;      // ~1 address
inline constexpr std::int32_t AddWadsCaption = 9850;      // up to 9859, the controls
inline constexpr std::int32_t ScambiaNomiCaption = 9860;  // up to 9865, the controls

// The editor's script and language texts.
inline constexpr std::int32_t LanguageSectionStart = 1635;
inline constexpr std::int32_t LanguageSectionEnd = 1636;
inline constexpr std::int32_t ScriptBlockMarker = 1637;
inline constexpr std::int32_t ScriptNameKey = 1638;
inline constexpr std::int32_t ScriptNameSkip = 1639;
inline constexpr std::int32_t ScriptFileKey = 1640;
inline constexpr std::int32_t ScriptLevelExtension = 1641;

}  // namespace vardolin::text
