#pragma once
// Numbers of the texts the level archive uses. Every id here has an English wording in
// resources/english.trc. Ids marked "fragment" are path fragments: a folder fragment begins
// with a backslash. The user folders 1546 to 1548 are the same folders as 1632 to 1634.
// resources/english.trc.

#include <cstdint>

namespace vardolin::text {

// Catalogue file names and dialogs.
inline constexpr std::int32_t CatalogueExtension = 1079;   // fragment
inline constexpr std::int32_t CatalogueUnreadable = 1087;  // the path follows
inline constexpr std::int32_t OpenCatalogueTitle = 1119;
inline constexpr std::int32_t OpenCatalogueFilter = 1120;
inline constexpr std::int32_t AskSaveChangedCatalogue = 1121;  // ~1 file name, ~2 CR LF
inline constexpr std::int32_t SaveCatalogueAsTitle = 1151;
inline constexpr std::int32_t SaveCatalogueAsFilter = 1152;
inline constexpr std::int32_t NewCatalogueFileName = 1681;     // fragment, ~1 a number or ""
inline constexpr std::int32_t CatalogueAutoSaveFailed = 1300;  // the path follows
inline constexpr std::int32_t CatalogueSaveFailed = 1962;      // the path follows
inline constexpr std::int32_t MainTitle = 1269;                // ~1 file name " (" count
inline constexpr std::int32_t MainTitleOneLevel = 9508;        // ~1 file name " (" count
inline constexpr std::int32_t MainTitleNoArchive = 9509;

// The main window while a game runs: the mark behind its title, its status line, and the
// question its close box asks then.
inline constexpr std::int32_t GameRunningTitleMark = 6410;
inline constexpr std::int32_t GameRunningStatus = 6411;
inline constexpr std::int32_t CloseWhileGameRuns = 6412;  // ~1 CR LF, ~2 two CR LF

// The base level's record in a new catalogue.
inline constexpr std::int32_t BaseLevelName = 1095;
inline constexpr std::int32_t BaseLevelNote = 1096;
inline constexpr std::int32_t BaseLevelAuthor = 1097;
inline constexpr std::int32_t BaseLevelSite = 1098;
inline constexpr std::int32_t BaseLevelInfoFile0 = 1099;  // fragment: first read-me tried
inline constexpr std::int32_t BaseLevelInfoFile1 = 1100;  // fragment
inline constexpr std::int32_t BaseLevelInfoFile2 = 1101;  // fragment
inline constexpr std::int32_t BaseLevelInfoFile3 = 1102;  // fragment

// Choosing the folder of a new archive.
inline constexpr std::int32_t ChooseArchiveFolderTitle = 1103;
inline constexpr std::int32_t ArchiveFolderNotMade = 1105;       // the folder follows
inline constexpr std::int32_t ProposedArchiveFolder = 1682;      // fragment
inline constexpr std::int32_t NewArchiveSubfolder = 2261;        // fragment
inline constexpr std::int32_t NewArchiveSubfolderNumber = 2262;  // fragment, a number follows
inline constexpr std::int32_t ArchiveFolderWasNotEmpty = 2263;   // ~1 the new folder

// Archive folders that vanished.
inline constexpr std::int32_t MainDirMissing = 1153;  // ~1 folder, ~2 CR LF
inline constexpr std::int32_t MainDirAskTitle = 1154;
inline constexpr std::int32_t SecondaryDirMissing = 1155;  // ~1 folder, ~2 CR LF
inline constexpr std::int32_t SecondaryDirAskTitle = 1156;

// Sizes.
inline constexpr std::int32_t SizesProgressTitle = 1256;
// Labels of the progress window, per level; a size follows the first four and 1262.
inline constexpr std::int32_t SizesLevelFiles = 1257;
inline constexpr std::int32_t SizesPlayFolder = 1258;
inline constexpr std::int32_t SizesArchivedSavegames = 1259;
inline constexpr std::int32_t SizesScreenshots = 1260;
inline constexpr std::int32_t SizesLevel = 1261;  // the level's name follows
inline constexpr std::int32_t SizesFilesOnCd = 1262;
inline constexpr std::int32_t SizesAddingUp = 1263;
inline constexpr std::int32_t SizesDone = 1264;
inline constexpr std::int32_t SizesTotalFiles = 1265;  // the size follows
inline constexpr std::int32_t SizesTotalUser = 1266;   // the size follows
inline constexpr std::int32_t SizesTotalAll = 1267;    // the size follows
inline constexpr std::int32_t SizesResultTitle = 1268;
inline constexpr std::int32_t LevelIsOnCd = 1308;  // ~1 CR LF

// Level store fragments.
inline constexpr std::int32_t UserFolderPlay = 1546;         // fragment
inline constexpr std::int32_t UserFolderSavegames = 1547;    // fragment
inline constexpr std::int32_t UserFolderScreenshots = 1548;  // fragment
inline constexpr std::int32_t FilesFolder = 1631;            // fragment
inline constexpr std::int32_t SizeFolderPlay = 1632;         // fragment, same as 1546
inline constexpr std::int32_t SizeFolderSavegames = 1633;    // fragment, same as 1547
inline constexpr std::int32_t SizeFolderScreenshots = 1634;  // fragment, same as 1548
inline constexpr std::int32_t LevelFolderPrefix = 1647;      // fragment "\LEVEL_"
// Captions of the main window: its menu entries, then its other controls.
inline constexpr std::int32_t MnuFile = 5100;
inline constexpr std::int32_t MnuNew = 5101;
inline constexpr std::int32_t MnuLoad = 5102;
inline constexpr std::int32_t MnuSave = 5103;
inline constexpr std::int32_t MnuSaveAs = 5104;
inline constexpr std::int32_t MnuExit = 5105;
inline constexpr std::int32_t MnuLevel = 5106;
inline constexpr std::int32_t MnuAddLevel = 5107;
inline constexpr std::int32_t MnuProperty = 5108;
inline constexpr std::int32_t MnuSearchLivelli = 5109;
inline constexpr std::int32_t MnuShowAutoreInfo = 5110;
inline constexpr std::int32_t MnuLanguage = 5111;
inline constexpr std::int32_t MnuSetMylanguage = 5112;
inline constexpr std::int32_t MnuRestoreLanguage = 5113;
inline constexpr std::int32_t MnuRemoveLevel = 5114;
inline constexpr std::int32_t MnuExport = 5115;
inline constexpr std::int32_t MnuShowListaUrl = 5116;
inline constexpr std::int32_t MnuSaveGames = 5117;
inline constexpr std::int32_t MnuShowSavegames = 5118;
inline constexpr std::int32_t MnuImpSavegames = 5119;
inline constexpr std::int32_t MnuImportSaveGame = 5120;
inline constexpr std::int32_t MnuImportSaveGameSingle = 5121;
inline constexpr std::int32_t MnuSearchSavegame = 5122;
inline constexpr std::int32_t MnuFindSavegameNote = 5123;
inline constexpr std::int32_t MnuFineNextSavegame = 5124;
inline constexpr std::int32_t MnuFindPreviousSavegame = 5125;
inline constexpr std::int32_t MnuMandaSavegameEmail = 5126;
inline constexpr std::int32_t MnuSendSaveGameEmail = 5127;
inline constexpr std::int32_t MnuSendSingoloSavegame = 5128;
inline constexpr std::int32_t MnuExportSavegame = 5129;
inline constexpr std::int32_t MnuBackupSavegame = 5130;
inline constexpr std::int32_t MnuRestoreSavegames = 5131;
inline constexpr std::int32_t MnuEdit = 5132;
inline constexpr std::int32_t MnuShowScreenShot = 5133;
inline constexpr std::int32_t MnuZoom = 5134;
inline constexpr std::int32_t MnuAddScreenshot = 5135;
inline constexpr std::int32_t MnuCaptureScreen = 5136;
inline constexpr std::int32_t MnuDeleteShot = 5137;
inline constexpr std::int32_t MnuRenameShot = 5138;
inline constexpr std::int32_t MnuSaveShot = 5139;
inline constexpr std::int32_t MnuResizeSave = 5140;
inline constexpr std::int32_t MnuScegliImmagine = 5141;
inline constexpr std::int32_t MnuOpenEditor = 5142;
inline constexpr std::int32_t MnuCopyPathInClip = 5143;
inline constexpr std::int32_t MnuSendScreenshotemail = 5144;
inline constexpr std::int32_t MnuPropertyScreenShot = 5145;
inline constexpr std::int32_t MnuLevelEditor = 5146;
inline constexpr std::int32_t MnuInstallTrle = 5147;
inline constexpr std::int32_t MnuInstallTrleFolder = 5148;
inline constexpr std::int32_t MnuInstallComprTrle = 5149;
inline constexpr std::int32_t MnuSetupTrle = 5150;
inline constexpr std::int32_t MnuSetOriginale = 5151;
inline constexpr std::int32_t MnuImportWads = 5152;
inline constexpr std::int32_t MnuPatchTomb4 = 5153;
inline constexpr std::int32_t MnuCompareTrle = 5154;
inline constexpr std::int32_t MnuShowUrlList = 5155;
inline constexpr std::int32_t MnuTools = 5156;
inline constexpr std::int32_t MnuConvertAudio = 5157;
inline constexpr std::int32_t MnuDecodeMp3 = 5158;
inline constexpr std::int32_t MnuEncodeMp3 = 5159;
inline constexpr std::int32_t MnuConvertWav = 5160;
inline constexpr std::int32_t MnuManutenzione = 5161;
inline constexpr std::int32_t MnuCorrectArchiveCD = 5162;
inline constexpr std::int32_t MnuCalcolaSize = 5163;
inline constexpr std::int32_t MnuMoveArc = 5164;
inline constexpr std::int32_t MnuFaiFullBackup = 5165;
inline constexpr std::int32_t MnuRecover = 5166;
inline constexpr std::int32_t MnuControllaUguali = 5167;
inline constexpr std::int32_t MnuCreaInfoTr4 = 5168;
inline constexpr std::int32_t MnuCopiaFileInfos = 5169;
inline constexpr std::int32_t MnuSetLanguageAll = 5170;
inline constexpr std::int32_t MnuRestoreAll = 5171;
inline constexpr std::int32_t MnuMoveOnCd = 5172;
inline constexpr std::int32_t MnuPref = 5173;
inline constexpr std::int32_t MnuSettings = 5174;
inline constexpr std::int32_t MnuPrefArchive = 5175;
inline constexpr std::int32_t MnuHelp = 5176;
inline constexpr std::int32_t MnuFindHelp = 5177;
inline constexpr std::int32_t MnuHelpSaveGameMan = 5178;
inline constexpr std::int32_t MnuHelpFaq = 5179;
inline constexpr std::int32_t MnuAbout = 5180;
inline constexpr std::int32_t MnuSaveGameHid = 5181;
inline constexpr std::int32_t MnuChangeImageSavegame = 5182;
inline constexpr std::int32_t MnuSaveGameHid2 = 5183;
inline constexpr std::int32_t MnuSalvaSavegame = 5184;
inline constexpr std::int32_t MnuSendSavegame = 5185;
inline constexpr std::int32_t MnuDelSavegame = 5186;
inline constexpr std::int32_t MnuPropertySavegame = 5187;
inline constexpr std::int32_t CaptionFrameLivelli = 5200;
inline constexpr std::int32_t CaptionPulSearch = 5201;
inline constexpr std::int32_t CaptionPulPrima = 5202;
inline constexpr std::int32_t CaptionPulDopo = 5203;
inline constexpr std::int32_t CaptionPulPlay = 5204;
inline constexpr std::int32_t CaptionPulMoreInfo = 5205;
inline constexpr std::int32_t CaptionPulScreenShots = 5206;
inline constexpr std::int32_t CaptionPulSaveGames = 5207;
inline constexpr std::int32_t CaptionFrameSaveGames = 5208;
inline constexpr std::int32_t CaptionFrameScreenShots = 5209;

// The level browser of the main window, its more-info file and the removal of a level.
inline constexpr std::int32_t LevelCodeNotFound = 1834;        // the code follows
inline constexpr std::int32_t LevelFolderMissing = 8342;       // ~1 the folder
inline constexpr std::int32_t CurrentSavegamesFolder = 1835;   // fragment, same as 1546
inline constexpr std::int32_t CurrentSavegamesPattern = 1836;  // fragment
inline constexpr std::int32_t InfoDirCdNote = 1837;            // the CD number follows
inline constexpr std::int32_t InfoDirSummary = 1838;        // ~1 folder and CD note, ~2 shot count
inline constexpr std::int32_t ArchivedSavegameMark = 2416;  // fragment of a file name
inline constexpr std::int32_t RemoveNoSelection = 1949;
inline constexpr std::int32_t RemoveBaseLevel = 1950;           // ~1 CR LF
inline constexpr std::int32_t RemoveLevelQuestion = 1951;       // name and " ?" follow
inline constexpr std::int32_t RemoveLevelFilesQuestion = 1952;  // the folder follows in quotes
inline constexpr std::int32_t RemoveLevelFilesWait = 1953;
inline constexpr std::int32_t RemoveLevelFilesFailed = 1954;  // the folder follows
inline constexpr std::int32_t RemoveLevelDone = 1955;
inline constexpr std::int32_t MoreInfoCodeNotFound = 1972;  // the code follows
inline constexpr std::int32_t MoreInfoNone = 1973;          // ~1 CR LF
inline constexpr std::int32_t MoreInfoFolder = 1974;        // fragment, hard disk
inline constexpr std::int32_t MoreInfoFolderCd = 1975;      // fragment, CD allowed
inline constexpr std::int32_t MoreInfoCdRefused = 1976;
inline constexpr std::int32_t MoreInfoMissing = 1977;     // ~1 the path
inline constexpr std::int32_t MoreInfoCopyFolder = 1978;  // fragment, same as 1974
inline constexpr std::int32_t MoreInfoCopyFailed = 1979;  // ~1 the found path; folder, "]" follow
inline constexpr std::int32_t SearchNotFound = 1993;
inline constexpr std::int32_t InfoPagePatternPage = 1615;  // fragment: "*" goes before
inline constexpr std::int32_t InfoPagePatternJpg = 1616;   // fragment
inline constexpr std::int32_t InfoPagePatternGif = 1617;   // fragment
inline constexpr std::int32_t InfoPagePatternPng = 1618;   // fragment
inline constexpr std::int32_t InfoPageExtension4 = 1619;   // fragment, last four chars
inline constexpr std::int32_t InfoPageExtension5 = 1620;   // fragment, last five chars

// Level store: the level's sub-folders, preparing its files for the game, deleting its tree.
inline constexpr std::int32_t PlayFolder = 1125;                 // fragment, same as 1546 and 1632
inline constexpr std::int32_t LevelSubfolderFiles = 1549;        // fragment, same as 1631
inline constexpr std::int32_t LevelSubfolderPlay = 1550;         // fragment, same as 1546
inline constexpr std::int32_t LevelSubfolderSavegames = 1551;    // fragment, same as 1547
inline constexpr std::int32_t LevelSubfolderScreenshots = 1552;  // fragment, same as 1548
inline constexpr std::int32_t PackedFilesPattern = 1225;         // fragment "\*.zl"
inline constexpr std::int32_t PreparingLevelFiles = 1226;
inline constexpr std::int32_t CopyingToTemporary = 1227;
inline constexpr std::int32_t ExpandingFile = 1228;        // ~1 the packed file's name
inline constexpr std::int32_t PackedCopiesPattern = 1230;  // fragment, same as 1225
inline constexpr std::int32_t StoredMp3Pattern = 1231;     // fragment "\*.mp3"
inline constexpr std::int32_t TemporaryMp3Pattern = 1232;  // fragment, the files converted
inline constexpr std::int32_t LevelAudioFailed = 1233;     // ~1 = the converter's reason
inline constexpr std::int32_t TemporaryMp3Copies = 1234;   // fragment, deleted afterwards
inline constexpr std::int32_t StoredLoadPicture = 1235;    // fragment "\load.jpg"
inline constexpr std::int32_t LoadPictureSource = 1236;    // fragment, same as 1235
inline constexpr std::int32_t LoadPictureBitmap = 1237;    // fragment "\load.bmp"
inline constexpr std::int32_t LoadPictureJpegCopy = 1238;  // fragment, same as 1235
inline constexpr std::int32_t DeleteTreeListing = 1327;
inline constexpr std::int32_t DeleteTreeDeleting = 1328;
inline constexpr std::int32_t TemporaryFilesFolder = 1613;  // fragment

// Level store: turning a whole level between plain and compressed form.
inline constexpr std::int32_t ConvertingLevel = 1924;       // ~1 the level's name
inline constexpr std::int32_t ConvertFilesFolder = 1925;    // fragment, same as 1631
inline constexpr std::int32_t PackPattern1 = 1930;          // fragment
inline constexpr std::int32_t PackPattern2 = 1931;          // fragment
inline constexpr std::int32_t PackPattern3 = 1932;          // fragment
inline constexpr std::int32_t PackPattern4 = 1933;          // fragment
inline constexpr std::int32_t ConvertLoadBitmap = 1945;     // fragment, same as 1237
inline constexpr std::int32_t ConvertLoadJpeg = 1946;       // fragment, same as 1235
inline constexpr std::int32_t ConvertedFilesFolder = 5347;  // fragment, beside the files folder
inline constexpr std::int32_t ReplacedFilesFolder = 5348;   // fragment, beside the files folder
inline constexpr std::int32_t ConvertFileFailed = 5349;     // ~1 file, ~2 level, ~3 reason
inline constexpr std::int32_t ConvertSwapFailed = 5350;     // ~1 level

// Level store: media levels and the repair after an upgrade.
inline constexpr std::int32_t RepairStoreCaption = 5340;  // "Repair Level Archive"
inline constexpr std::int32_t RepairStoreLabel = 5341;
inline constexpr std::int32_t MediaFilesPattern = 5342;   // fragment "\*.mcf"
inline constexpr std::int32_t ScrollMediaFile = 5343;     // "scroll.mcf", no backslash
inline constexpr std::int32_t ScrollLevelPattern = 5344;  // "scroll*.tr4", no backslash
inline constexpr std::int32_t MediaStoreFolder = 5345;    // fragment "\store"
inline constexpr std::int32_t MediaPlayFile = 5346;       // fragment "\media.mpf"
// The editor backup: confirming the editor folder, full or partial, room, progress.
inline constexpr std::int32_t ConfirmEditorLine1 = 1106;  // a CR LF follows
inline constexpr std::int32_t ConfirmEditorLine2 = 1107;  // the editor folder follows
inline constexpr std::int32_t ConfirmEditorLine3 = 1108;
inline constexpr std::int32_t EditorRefused1 = 1109;
inline constexpr std::int32_t EditorRefused2 = 1110;
inline constexpr std::int32_t AskFullBackup1 = 1270;
inline constexpr std::int32_t AskFullBackup2 = 1271;
inline constexpr std::int32_t BackupLittleRoom = 1272;     // the drive and free size follow
inline constexpr std::int32_t BackupRoomFree = 2280;       // behind the free size
inline constexpr std::int32_t FullBackupMarker1 = 1273;    // fragment: must stand in a full copy
inline constexpr std::int32_t FullBackupMarker2 = 1274;    // fragment: must stand in a full copy
inline constexpr std::int32_t BackupFolderNotMade = 1275;  // the folder follows
inline constexpr std::int32_t BackupProgressCaption = 1276;
inline constexpr std::int32_t BackupMakingFolders = 1277;
inline constexpr std::int32_t BackupSubfolderFirst = 1278;  // fragments 1278 to 1289
inline constexpr std::int32_t BackupSubfolderLast = 1289;
inline constexpr std::int32_t BackupCopyingFiles = 1290;
inline constexpr std::int32_t BackupFileSetFirst = 1291;  // fragments 1291 to 1295, then 3160
inline constexpr std::int32_t BackupFileSetLast = 1295;
inline constexpr std::int32_t BackupFileSetSixth = 3160;
inline constexpr std::int32_t BackupCopyingTree1 = 1296;
inline constexpr std::int32_t BackupTree1 = 1297;  // fragment
inline constexpr std::int32_t BackupCopyingTree2 = 1298;
inline constexpr std::int32_t BackupTree2 = 1299;          // fragment
inline constexpr std::int32_t BackupCompleteFile1 = 1610;  // fragment
inline constexpr std::int32_t BackupCompleteFile2 = 1611;  // fragment
inline constexpr std::int32_t BackupCompleteFile3 = 1612;  // fragment

// Copying a folder tree: with a bar (the editor install) and with Dialog_Progress (the rest).
inline constexpr std::int32_t TreeTargetNotMade = 1538;  // the folder follows
inline constexpr std::int32_t TreeSkipCounted = 1539;    // fragment: marks files left out
inline constexpr std::int32_t TreeFolderNotMade = 1540;  // the folder follows
inline constexpr std::int32_t TreeSkipCopied = 1541;     // fragment, same as 1539
inline constexpr std::int32_t TreeFileNotCopied = 1542;  // the quoted file name follows
inline constexpr std::int32_t CopyTargetNotMade = 1090;  // the folder follows
inline constexpr std::int32_t CopySkipCounted = 1091;    // fragment "\files\": stays on a CD
inline constexpr std::int32_t CopyFolderNotMade = 1092;  // the folder follows
inline constexpr std::int32_t CopySkipCopied = 1093;     // fragment, same as 1091
inline constexpr std::int32_t CopyFileNotCopied = 1094;  // the quoted file name follows

// Start-up's first-run dialog, Dialog_NewArc.
inline constexpr std::int32_t NewArcTitle = 5610;
inline constexpr std::int32_t NewArcMessage = 5611;
inline constexpr std::int32_t NewArcCreate = 5612;
inline constexpr std::int32_t NewArcLoad = 5613;

// The archive's properties, Dialog_PrefArc.
inline constexpr std::int32_t PrefArcSomeOnCd = 741;
inline constexpr std::int32_t PrefArcNoneOnCd = 742;
inline constexpr std::int32_t AskConvertStore = 743;
inline constexpr std::int32_t ChooseMainDirTitle = 2443;
inline constexpr std::int32_t MainDirLevelPattern = 2444;  // fragment
inline constexpr std::int32_t MainDirNoLevels = 2445;
inline constexpr std::int32_t ChooseSecondaryDirTitle = 2446;
inline constexpr std::int32_t SecondaryDirLevelPattern = 2447;  // fragment
inline constexpr std::int32_t SecondaryDirNoLevels = 2448;
inline constexpr std::int32_t PrefArcTitle = 5620;
inline constexpr std::int32_t PrefArcReferences = 5621;
inline constexpr std::int32_t PrefArcLevels = 5622;
inline constexpr std::int32_t PrefArcFullPath = 5623;
inline constexpr std::int32_t PrefArcTotCd = 5624;
inline constexpr std::int32_t PrefArcOnCd = 5625;
inline constexpr std::int32_t PrefArcFolderSize = 5626;
inline constexpr std::int32_t PrefArcSizeCd = 5627;
inline constexpr std::int32_t PrefArcSizeHd = 5628;
inline constexpr std::int32_t PrefArcMainDir = 5629;
inline constexpr std::int32_t PrefArcSecondaryDir = 5630;
inline constexpr std::int32_t PrefArcBrowse = 5631;
inline constexpr std::int32_t PrefArcCompression = 5632;
inline constexpr std::int32_t PrefArcCompress = 5633;
inline constexpr std::int32_t PrefArcWavInMp3 = 5634;
inline constexpr std::int32_t PrefArcOk = 5635;
inline constexpr std::int32_t PrefArcCancel = 5636;

// The whole-store conversion.
inline constexpr std::int32_t StoreAudioWaves = 1926;   // pattern fragment "\*.wav"
inline constexpr std::int32_t StoreAudioMp3 = 1927;     // pattern fragment "\*.mp3"
inline constexpr std::int32_t StoreAudioFolder = 1928;  // fragment below the program's folder
inline constexpr std::int32_t StoreAudioFailed = 1929;  // ~1 level, ~2 reason, ~3 two CR LF
inline constexpr std::int32_t ConversionSizes = 1947;   // ~1 before, ~2 after, ~3 CR LF
inline constexpr std::int32_t ConversionFailed = 5638;  // ~1 level, ~2 CR LF

// Archive maintenance: the full backup.
inline constexpr std::int32_t FullBackupAgain = 1905;  // ~1 CR LF, ~2 the editor folder
inline constexpr std::int32_t FullBackupDeleting = 1906;
inline constexpr std::int32_t FullBackupReplace = 1907;
inline constexpr std::int32_t FullBackupDeleting2 = 1908;
inline constexpr std::int32_t FullBackupCopying = 1909;
inline constexpr std::int32_t FullBackupFailed = 1910;  // the folder follows

// Archive maintenance: moving the archive.
inline constexpr std::int32_t MoveTitle = 1912;
inline constexpr std::int32_t MoveNoRoom = 1913;  // ~1 drive, ~2 size, ~3 CR LF
inline constexpr std::int32_t MoveCopying = 1914;
inline constexpr std::int32_t MoveCopyFailed = 1915;
inline constexpr std::int32_t MoveMakingFolders = 1916;
inline constexpr std::int32_t MoveUserFolder1 = 1917;  // fragment, same as 1632
inline constexpr std::int32_t MoveUserFolder2 = 1918;  // fragment, same as 1633
inline constexpr std::int32_t MoveUserFolder3 = 1919;  // fragment, same as 1634
inline constexpr std::int32_t MoveDeleting = 1920;
inline constexpr std::int32_t MoveDeleteFailed = 1921;  // the folder follows
inline constexpr std::int32_t MoveDone = 1922;
inline constexpr std::int32_t MoveSameFolder = 9710;    // the folder follows
inline constexpr std::int32_t MoveWithCdLevels = 1911;  // ~1, ~2 CR LF

// Archive maintenance: bringing the levels on CD onto the hard disk.
inline constexpr std::int32_t ToDiskNoRoom = 1318;  // ~1 drive, ~2 size, ~3 CR LF
inline constexpr std::int32_t ToDiskProgress = 1320;
inline constexpr std::int32_t ToDiskSourceFiles = 1321;  // fragment, same as 1631
inline constexpr std::int32_t ToDiskCdRefused = 1322;
inline constexpr std::int32_t ToDiskTargetFiles = 1323;  // fragment, same as 1631
inline constexpr std::int32_t ToDiskCopyFailed = 1324;   // the source and "]" follow

// Archive maintenance: recovering a catalogue from the level folders.
inline constexpr std::int32_t RecoverAsk = 1948;
inline constexpr std::int32_t RecoverTitle = 1353;
inline constexpr std::int32_t RecoverPattern = 1357;    // fragment
inline constexpr std::int32_t RecoverNoLevels = 1358;   // the folder follows
inline constexpr std::int32_t RecoverLevelName = 1359;  // the number follows
inline constexpr std::int32_t RecoverSkipped = 9711;    // the names follow, one a line
inline constexpr std::int32_t RecoverOnCd = 1354;
inline constexpr std::int32_t RecoverCdTitle = 1355;
inline constexpr std::int32_t RecoverCdNotFirst = 1356;  // the folder's name follows
inline constexpr std::int32_t RecoverInsertCd = 1360;    // the number follows
inline constexpr std::int32_t RecoverCdMissing = 1361;   // the folder's name follows
inline constexpr std::int32_t RecoverCdPattern = 1362;   // fragment
inline constexpr std::int32_t RecoverCdFiles = 1363;     // fragment
inline constexpr std::int32_t RecoverNextCd = 1364;      // the number and " ?" follow
inline constexpr std::int32_t RecoverDiskFiles = 1365;   // fragment
inline constexpr std::int32_t RecoverDiskData = 1366;    // pattern
inline constexpr std::int32_t RecoverDiskPacked = 1367;  // pattern

// The package of the editor's basic files, made from its backup.
inline constexpr std::int32_t StandardFilesPackage = 9707;  // fragment
inline constexpr std::int32_t StandardFilesWork = 9708;     // fragment

}  // namespace vardolin::text
