#pragma once
// Numbers of the texts that finding and checking the level editor uses. Every id here has an
// English wording in resources/english.trc. Ids marked "fragment" are file names or path
// fragments (a folder fragment begins with a backslash).

#include <cstdint>

namespace vardolin::text {

// The two files that make a folder the editor's. Neither is the game: a level's installer may
// take tomb4.exe away, and the folder is still the editor's.
inline constexpr std::int32_t EditorMarkerFile1 = 1344;     // fragment "\tom2pc.exe"
inline constexpr std::int32_t EditorMarker1Missing = 1345;  // the folder follows
inline constexpr std::int32_t EditorFolderNotChosen = 9507;
inline constexpr std::int32_t EditorMarkerFile2 = 1346;     // fragment "\winroomedit.exe"
inline constexpr std::int32_t EditorMarker2Missing = 1347;  // ~1 the folder
// The room editor's file name as its App Paths value holds it.
inline constexpr std::int32_t RoomEditorFileName = 1630;  // fragment "winroomedit.exe"

// Dialog_TrovaTrle.
inline constexpr std::int32_t AskOpenEditorSites = 916;  // for the list of web sites
inline constexpr std::int32_t NoEditorInfo = 917;        // ~1 a line break
inline constexpr std::int32_t FindEditorBrowseTitle = 918;
inline constexpr std::int32_t InstallFolderTitle = 1746;
inline constexpr std::int32_t InstallFolderStart = 1747;
inline constexpr std::int32_t InstallFolderFailed = 1748;
inline constexpr std::int32_t InstallFolderDone = 1749;
inline constexpr std::int32_t InstallNoEditorInFolder = 9202;  // ~1 the folder in quotes

// Dialog_TipoExe.
inline constexpr std::int32_t SetupFolderTitle = 901;
inline constexpr std::int32_t SetupFolderNotChosen = 902;
inline constexpr std::int32_t SetupDestinationOther = 903;  // a destination kind, not a path
inline constexpr std::int32_t SetupDestinationTrle = 904;   // a destination kind: equals 1380

// Captions of the forms.
inline constexpr std::int32_t TrovaTrleCaption = 5640;
inline constexpr std::int32_t TrovaTrleBrowse = 5641;
inline constexpr std::int32_t TrovaTrleOk = 5642;
inline constexpr std::int32_t TrovaTrleCancel = 5643;
inline constexpr std::int32_t TrovaTrleInstallCompressed = 5644;
inline constexpr std::int32_t TrovaTrleInstallCd = 5645;
inline constexpr std::int32_t TrovaTrleHelp = 5646;
inline constexpr std::int32_t TipoExeCaption = 5650;
inline constexpr std::int32_t TipoExeWarning = 5651;
inline constexpr std::int32_t TipoExeTrle = 5652;
inline constexpr std::int32_t TipoExeOtherFolder = 5653;
inline constexpr std::int32_t TipoExeHelp = 5654;

// The game's setup mode (mnu_SetupTrle).
inline constexpr std::int32_t SetupTrleParameter = 2388;  // the game's command-line parameter
inline constexpr std::int32_t SetupTrleWarning = 2500;    // ~1 to ~4 CR LF, ~5 two CR LF

// Comparing editor folders (Dialog_CompareTrle).
inline constexpr std::int32_t FullLeftOut1 = 280;  // extensions the full comparison leaves out
inline constexpr std::int32_t FullLeftOut2 = 281;
inline constexpr std::int32_t FullLeftOut3 = 282;
inline constexpr std::int32_t CompactLeftOut1 = 283;  // the same for the compact one's root
inline constexpr std::int32_t CompactLeftOut2 = 284;
inline constexpr std::int32_t CompactLeftOut3 = 285;
inline constexpr std::int32_t CompactWadsPattern = 286;  // fragment: folder and mask
inline constexpr std::int32_t CompactWadsFolder = 287;   // fragment
inline constexpr std::int32_t CompactDataPattern = 288;  // fragment: folder and mask
inline constexpr std::int32_t CompactDataFolder = 289;   // fragment
inline constexpr std::int32_t CompareTargetTitle = 290;
inline constexpr std::int32_t CompareTargetNeeds = 291;    // fragment: a sub-folder
inline constexpr std::int32_t CompareTargetRefused = 292;  // ~1 CR LF
inline constexpr std::int32_t CompareNothingToPrint = 293;
inline constexpr std::int32_t CompareReportTitle = 294;
inline constexpr std::int32_t CompareReportSource = 295;
inline constexpr std::int32_t CompareReportTarget = 296;
inline constexpr std::int32_t CompareCopied = 297;
inline constexpr std::int32_t CompareSourceTitle = 298;
inline constexpr std::int32_t CompareSourceNeeds = 299;    // fragment: a sub-folder
inline constexpr std::int32_t CompareSourceRefused = 300;  // ~1 CR LF
inline constexpr std::int32_t CompareOkMark = 301;         // the first five characters of the tag
inline constexpr std::int32_t CompareSummary = 302;
inline constexpr std::int32_t CompareCountOk = 303;
inline constexpr std::int32_t CompareCountNew = 304;
inline constexpr std::int32_t CompareCountMissing = 305;
inline constexpr std::int32_t CompareCountChanged = 306;
inline constexpr std::int32_t CompareCaption = 8551;
inline constexpr std::int32_t CompareTargetFrame = 8552;
inline constexpr std::int32_t CompareKindFrame = 8553;
inline constexpr std::int32_t CompareSourceFrame = 8554;
inline constexpr std::int32_t CompareBrowse = 8555;
inline constexpr std::int32_t CompareCompact = 8556;
inline constexpr std::int32_t CompareFull = 8557;
inline constexpr std::int32_t CompareHideOk = 8558;
inline constexpr std::int32_t CompareRun = 8559;
inline constexpr std::int32_t ComparePrint = 8560;
inline constexpr std::int32_t CompareCopy = 8561;
inline constexpr std::int32_t CompareClose = 8562;

// Installing the level editor.
inline constexpr std::int32_t InstallLanguageFirst = 486;
inline constexpr std::int32_t InstallLanguageLast = 491;
inline constexpr std::int32_t InstallZipTitle = 492;
inline constexpr std::int32_t InstallZipFilter = 493;
inline constexpr std::int32_t InstallNoRowChosen = 495;
inline constexpr std::int32_t InstallGivenUp = 496;
inline constexpr std::int32_t RemovingFolders = 1331;
inline constexpr std::int32_t InstallLittleRoom = 1333;
inline constexpr std::int32_t InstallEstimateError = 1457;
inline constexpr std::int32_t InstallGoOn = 1458;
inline constexpr std::int32_t InstallMeasuring = 1459;
inline constexpr std::int32_t InstallAskOtherDrive = 1461;
inline constexpr std::int32_t InstallNoRoom = 1462;
inline constexpr std::int32_t InstallNoDrive = 1463;
inline constexpr std::int32_t InstallCopyTarget = 1464;
inline constexpr std::int32_t InstallNoZips = 1465;
inline constexpr std::int32_t InstallAskStart = 1466;
inline constexpr std::int32_t InstallUnpacking = 1467;
inline constexpr std::int32_t InstallZipFailed = 1468;
inline constexpr std::int32_t InstallCheckingZips = 1469;
inline constexpr std::int32_t InstallZipList = 1470;
inline constexpr std::int32_t InstallFolderName = 1471;
inline constexpr std::int32_t InstallWrongFolder = 1472;
inline constexpr std::int32_t InstallCopying = 1473;
inline constexpr std::int32_t InstallCopyFailed = 1474;
inline constexpr std::int32_t InstallAttributes = 1475;
inline constexpr std::int32_t InstallAttributesCommand = 1476;
inline constexpr std::int32_t InstallAttributesTail = 1477;
inline constexpr std::int32_t InstallMenus = 1478;
inline constexpr std::int32_t InstallMenuRootFailed = 1479;
inline constexpr std::int32_t InstallMenuFailed = 1480;
inline constexpr std::int32_t InstallDocsMenuFailed = 1481;
inline constexpr std::int32_t InstallWebMenuFailed = 1482;
inline constexpr std::int32_t InstallToolsMenuFailed = 1483;
inline constexpr std::int32_t InstallMenuRoot = 1484;
inline constexpr std::int32_t InstallTarget = 1485;
inline constexpr std::int32_t InstallGameProgram = 1486;
inline constexpr std::int32_t InstallSetupProgram = 1487;
inline constexpr std::int32_t InstallSetupArguments = 1488;
inline constexpr std::int32_t InstallManualFolder = 1489;
inline constexpr std::int32_t InstallManualMask = 1490;
inline constexpr std::int32_t InstallManualAnyFolder = 1491;
inline constexpr std::int32_t InstallRoomEditor = 1492;
inline constexpr std::int32_t InstallConverter = 1493;
inline constexpr std::int32_t InstallWebLink1 = 1494;
inline constexpr std::int32_t InstallWebLink2 = 1495;
inline constexpr std::int32_t InstallSplash = 1496;
inline constexpr std::int32_t InstallSplashFailed = 1497;
inline constexpr std::int32_t InstallOtherSplashes = 1498;
inline constexpr std::int32_t InstallManualsFolder = 1499;
inline constexpr std::int32_t InstallManualsMask = 1500;
inline constexpr std::int32_t InstallLanguageFolder = 1501;
inline constexpr std::int32_t InstallLanguageFailed = 1502;
inline constexpr std::int32_t InstallScriptSource = 1503;
inline constexpr std::int32_t InstallScriptTarget = 1504;
inline constexpr std::int32_t InstallScriptFailed = 1505;
inline constexpr std::int32_t InstallMusic = 1506;
inline constexpr std::int32_t InstallMusicSource = 1507;
inline constexpr std::int32_t InstallMusicMask = 1508;
inline constexpr std::int32_t InstallMusicTarget = 1509;
inline constexpr std::int32_t InstallMusicFailed = 1510;
inline constexpr std::int32_t InstallMusicCleaning = 1511;
inline constexpr std::int32_t InstallMusicCleanFolder = 1512;
inline constexpr std::int32_t InstallMusicCleanMask = 1513;
inline constexpr std::int32_t InstallSamples = 1514;
inline constexpr std::int32_t InstallSamplesSource = 1515;
inline constexpr std::int32_t InstallSamplesMask = 1516;
inline constexpr std::int32_t InstallSamplesTarget = 1517;
inline constexpr std::int32_t InstallSamplesFailed = 1518;
inline constexpr std::int32_t InstallSamplesCleaning = 1519;
inline constexpr std::int32_t InstallSamplesCleanFolder = 1520;
inline constexpr std::int32_t InstallSamplesCleanMask = 1521;
inline constexpr std::int32_t InstallDemos = 1522;
inline constexpr std::int32_t InstallDemosFolder = 1523;
inline constexpr std::int32_t InstallDemosMask = 1524;
inline constexpr std::int32_t InstallDemoFailed = 1525;
inline constexpr std::int32_t InstallRegistering = 1526;
inline constexpr std::int32_t InstallRegisteredFile = 1527;
inline constexpr std::int32_t InstallNotRegistered = 1528;
inline constexpr std::int32_t InstallChecking = 1529;
inline constexpr std::int32_t InstallFileList = 1530;
inline constexpr std::int32_t InstallNoErrors = 1531;
inline constexpr std::int32_t InstallErrors = 1532;
inline constexpr std::int32_t InstallDone = 1533;
inline constexpr std::int32_t InstallFinished = 1534;
inline constexpr std::int32_t InstallListMissing = 1535;
inline constexpr std::int32_t InstallListMore = 1536;
inline constexpr std::int32_t InstallFilesMissing = 1537;
inline constexpr std::int32_t InstallComprInfo = 1848;
inline constexpr std::int32_t InstallReplaceAsk = 1849;
inline constexpr std::int32_t InstallFolderInfo = 1850;
inline constexpr std::int32_t InstallFolderProgress = 1851;
inline constexpr std::int32_t InstallRoomDetail = 2279;
inline constexpr std::int32_t InstallRoomDrive = 2476;
inline constexpr std::int32_t InstallPart1 = 2938;
inline constexpr std::int32_t InstallPart2 = 2939;
inline constexpr std::int32_t InstallPart3 = 2940;
inline constexpr std::int32_t InstallPart4 = 2941;
inline constexpr std::int32_t InstallPart5 = 2942;
inline constexpr std::int32_t InstallaCaption = 8563;
inline constexpr std::int32_t InstallaAdd = 8564;
inline constexpr std::int32_t InstallaRemove = 8565;
inline constexpr std::int32_t InstallaInstall = 8566;
inline constexpr std::int32_t InstallaCancel = 8567;
inline constexpr std::int32_t InstallaHelp = 8568;
inline constexpr std::int32_t InstallaLanguage = 8569;

// The converter of level sources (tom2pc.exe) and its watch.
inline constexpr std::int32_t WadSetSideExtension1 = 1563;      // fragment ".txt"
inline constexpr std::int32_t WadSetSideExtension2 = 1564;      // fragment ".tga"
inline constexpr std::int32_t WadSetMainExtension1 = 1565;      // fragment ".wad"
inline constexpr std::int32_t WadSetMainExtension2 = 1566;      // fragment ".was"
inline constexpr std::int32_t ConverterOutputFolder = 1575;     // fragment "\data"
inline constexpr std::int32_t ConverterWorkExtension = 1576;    // fragment ".tmp"
inline constexpr std::int32_t ConverterOutputExtension = 2557;  // fragment ".tr4"
inline constexpr std::int32_t ConverterStuck = 2558;            // ~1 line ends
inline constexpr std::int32_t ConverterKeepPartial = 2559;      // ~1 name, ~2 size
inline constexpr std::int32_t ConverterWindowTitle = 2560;
inline constexpr std::int32_t ConverterFailedRetry = 2561;  // ~1 name, ~2 line end
inline constexpr std::int32_t ConverterCommand = 2639;      // fragment and fixed arguments

}  // namespace vardolin::text
