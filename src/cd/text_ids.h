#pragma once
// Numbers of the texts that level CDs and CD images use: making them, reading levels back from
// them at run time, and the windows around both. Every id here has an English wording in
// resources/english.trc. The burn engine's own messages are fixed English and never come here.

#include <cstdint>

namespace vardolin::text {

// Making level CDs and images.
inline constexpr std::int32_t MuoviMeasuringLevels = 526;
inline constexpr std::int32_t MuoviCapacity650 = 527;
inline constexpr std::int32_t MuoviCapacity700 = 528;
inline constexpr std::int32_t MuoviCapacity4700 = 529;
inline constexpr std::int32_t MuoviSpeedSuffix = 530;
inline constexpr std::int32_t MuoviNoCapacity = 531;
inline constexpr std::int32_t MuoviNoSpeed = 532;
inline constexpr std::int32_t MuoviNoWriter = 533;
inline constexpr std::int32_t MuoviAddVardolinToo = 534;
inline constexpr std::int32_t MuoviNothingChosen = 535;
inline constexpr std::int32_t MuoviRemoveMoved = 536;
inline constexpr std::int32_t MuoviTempFolder = 541;
inline constexpr std::int32_t MuoviChooseInstaller = 542;
inline constexpr std::int32_t MuoviInstallerTitle = 543;
inline constexpr std::int32_t MuoviInstallerFilter = 544;
inline constexpr std::int32_t MuoviInstallerZip = 545;
inline constexpr std::int32_t MuoviInstallerUnzipFailed = 546;
inline constexpr std::int32_t MuoviInstallerMissing = 547;
inline constexpr std::int32_t MuoviCatalogueCopy = 548;
inline constexpr std::int32_t MuoviMeasuringEditor = 549;
inline constexpr std::int32_t MuoviCatalogueCopyFailed = 550;
inline constexpr std::int32_t MuoviStartFile = 551;
inline constexpr std::int32_t MuoviStartEditorLine = 552;
inline constexpr std::int32_t MuoviStartVardolinLine = 553;
inline constexpr std::int32_t MuoviStartArchiveLine = 554;
inline constexpr std::int32_t MuoviWriterFailed = 555;
inline constexpr std::int32_t MuoviInstallerTarget = 556;
inline constexpr std::int32_t MuoviInstallerItemFailed = 557;
inline constexpr std::int32_t MuoviEditorTarget = 558;
inline constexpr std::int32_t MuoviEditorItemFailed = 559;
inline constexpr std::int32_t MuoviStartFileItemFailed = 560;
inline constexpr std::int32_t MuoviStartProgram = 561;
inline constexpr std::int32_t MuoviAutorunFailed = 562;
inline constexpr std::int32_t MuoviCatalogueItemFailed = 563;
inline constexpr std::int32_t MuoviHowManyCds = 564;
inline constexpr std::int32_t MuoviInsertBlank = 566;
inline constexpr std::int32_t MuoviVolumeId = 567;
inline constexpr std::int32_t MuoviNothingToMove = 568;
inline constexpr std::int32_t MuoviVolumeIdShared = 569;
inline constexpr std::int32_t MuoviDone = 570;
inline constexpr std::int32_t MuoviAskVerify = 574;
inline constexpr std::int32_t MuoviVerifyKind = 575;
inline constexpr std::int32_t MuoviBurnFailed = 576;
inline constexpr std::int32_t MuoviIgnoreWithoutImage = 577;
inline constexpr std::int32_t MuoviIgnoreWithImage = 578;
inline constexpr std::int32_t MuoviRetrySlower = 579;
inline constexpr std::int32_t RemoveMovedProgress = 1309;
inline constexpr std::int32_t RemoveMovedDataFolder = 1310;
inline constexpr std::int32_t RemoveMovedPattern1 = 1311;
inline constexpr std::int32_t RemoveMovedPattern2 = 1312;
inline constexpr std::int32_t RemoveMovedCdFolder = 1313;
inline constexpr std::int32_t RemoveMovedCdRefused = 1314;
inline constexpr std::int32_t RemoveMovedNotOnCd = 1315;
inline constexpr std::int32_t MuoviFolderTitle = 2564;
inline constexpr std::int32_t MuoviNoFolder = 2565;
inline constexpr std::int32_t MuoviMeasuringFolder = 2566;
inline constexpr std::int32_t MuoviFolderTooBig = 2567;
inline constexpr std::int32_t MuoviFolderOwnCd = 2568;
inline constexpr std::int32_t MuoviSingleCd = 2569;
inline constexpr std::int32_t MuoviFolderSecondCd = 2570;
inline constexpr std::int32_t MuoviRootFolderTarget = 2571;
inline constexpr std::int32_t MuoviScanFailed = 2614;
inline constexpr std::int32_t MuoviNoWriterFound = 2615;
inline constexpr std::int32_t MuoviNoDrive = 2650;
inline constexpr std::int32_t MuoviUnpackingInstaller = 1467;
inline constexpr std::int32_t MuoviCaption = 9940;
inline constexpr std::int32_t MuoviFrameComandi = 9941;
inline constexpr std::int32_t MuoviLabelUnita = 9942;
inline constexpr std::int32_t MuoviLabelLettera = 9943;
inline constexpr std::int32_t MuoviLabelMb = 9944;
inline constexpr std::int32_t MuoviLabelSpeed = 9945;
inline constexpr std::int32_t MuoviCheckArchivio = 9946;
inline constexpr std::int32_t MuoviCheckCreaImage = 9947;
inline constexpr std::int32_t MuoviCheckVardolin = 9948;
inline constexpr std::int32_t MuoviCheckTrle = 9949;
inline constexpr std::int32_t MuoviCheckEncloseFolder = 9950;
inline constexpr std::int32_t MuoviBrowse = 9951;
inline constexpr std::int32_t MuoviStart = 9952;
inline constexpr std::int32_t MuoviStop = 9953;
inline constexpr std::int32_t MuoviCancel = 9954;
inline constexpr std::int32_t MuoviHelp = 9955;
inline constexpr std::int32_t MuoviImageRow = 9956;
inline constexpr std::int32_t MuoviImageFolderTitle = 9957;
inline constexpr std::int32_t MuoviImageExtension = 9958;
inline constexpr std::int32_t MuoviImageBroken = 9959;
inline constexpr std::int32_t MuoviImagesDone = 9960;
inline constexpr std::int32_t RemoveMovedDiffers = 9961;
inline constexpr std::int32_t MuoviWritingImage = 9962;

// Levels on CD at run time: asking for a disc or an image, setting a CD up.
inline constexpr std::int32_t InsertCdMessage = 473;
inline constexpr std::int32_t InsertCdLevelFiles = 474;  // fragment behind a level's folder
inline constexpr std::int32_t InsertCdNoDrive = 475;
inline constexpr std::int32_t InsertCdDriveGone = 476;
inline constexpr std::int32_t InsertCdNotReady = 477;
inline constexpr std::int32_t InsertCdWrongCd = 2493;
inline constexpr std::int32_t InsertCdCaption = 9970;
inline constexpr std::int32_t InsertCdLabelDrive = 9971;
inline constexpr std::int32_t InsertCdOk = 9972;
inline constexpr std::int32_t InsertCdCancel = 9973;
inline constexpr std::int32_t InsertCdImage = 9974;
inline constexpr std::int32_t InsertCdImageTitle = 9975;
inline constexpr std::int32_t InsertCdImageFilter = 9976;
inline constexpr std::int32_t CdImageUnreadable = 9977;
inline constexpr std::int32_t CdImageFetchFailed = 9978;

// Setting a CD archive up on hard disk.
inline constexpr std::int32_t SetupCdNoRoom = 842;  // ~1 drive; size and ")" follow
inline constexpr std::int32_t SetupCdCopying = 1157;
inline constexpr std::int32_t SetupCdRefused = 1158;
inline constexpr std::int32_t SetupCdOneFile = 1159;      // fragment behind the level on CD
inline constexpr std::int32_t SetupCdOneFileTo = 1160;    // fragment behind the level on disk
inline constexpr std::int32_t SetupCdUserFolder1 = 1161;  // fragment
inline constexpr std::int32_t SetupCdUserFolder2 = 1162;  // fragment
inline constexpr std::int32_t SetupCdUserFolder3 = 1163;  // fragment
inline constexpr std::int32_t SetupCdCopyFailed = 1164;   // ~1 target quoted, ~2 CR LF
inline constexpr std::int32_t SetupCdWritable = 1165;
inline constexpr std::int32_t SetupCdDone = 1168;  // ~1 catalogue quoted, ~2 CR LF
inline constexpr std::int32_t SetupCdCaption = 10000;
inline constexpr std::int32_t SetupCdTitle = 10001;
inline constexpr std::int32_t SetupCdFull = 10002;
inline constexpr std::int32_t SetupCdCompact = 10003;
inline constexpr std::int32_t SetupCdNote = 10004;
inline constexpr std::int32_t SetupCdInstall = 10005;

// Correction of a CD archive.
inline constexpr std::int32_t CorrectAsk = 2282;
inline constexpr std::int32_t CorrectDiskFiles = 2283;    // fragment behind a level's folder
inline constexpr std::int32_t CorrectDiskPattern = 2284;  // a level file in it
inline constexpr std::int32_t CorrectOnBoth = 2285;       // ~1 name, ~2 drive and CR LF
inline constexpr std::int32_t CorrectCancelled = 2286;
inline constexpr std::int32_t CorrectNowhere = 2289;  // ~1 name, ~2 CR LF
inline constexpr std::int32_t CorrectStopped = 2290;
inline constexpr std::int32_t CorrectCdCount = 2479;
inline constexpr std::int32_t CorrectCdCountTitle = 2480;
inline constexpr std::int32_t CorrectNotNumeric = 2481;
inline constexpr std::int32_t CorrectNoLevels = 2482;
inline constexpr std::int32_t CorrectReadingCd = 2483;
inline constexpr std::int32_t CorrectCdFiles = 2484;    // fragment behind a level's folder
inline constexpr std::int32_t CorrectCdPattern = 2485;  // a level file in it
inline constexpr std::int32_t CorrectChecking = 2486;
inline constexpr std::int32_t CorrectDone = 2487;  // ~1 CR LF; the count stands before

}  // namespace vardolin::text
