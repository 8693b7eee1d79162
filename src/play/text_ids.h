#pragma once
// Numbers of the texts the play subsystem uses. Every id here has an English wording in
// resources/english.trc. Ids marked "fragment" are path fragments.

#include <cstdint>

namespace vardolin::text {

// The marker of the level that stands in the editor folder.
inline constexpr std::int32_t ActiveLevelFileName = 1124;  // fragment, same as 1183 and 1573
inline constexpr std::int32_t ActiveLevelCodeKey = 1192;   // same as 1133 and 1574

// Activation: the marker's fields and notice.
inline constexpr std::int32_t MarkerNotice1 = 1130;
inline constexpr std::int32_t MarkerNotice2 = 1131;
inline constexpr std::int32_t MarkerNotice3 = 1132;
inline constexpr std::int32_t MarkerCodeKey = 1133;  // same as 1192 and 1574
inline constexpr std::int32_t MarkerNameKey = 1134;
inline constexpr std::int32_t MarkerReplacedKey = 1149;  // same as 1214
inline constexpr std::int32_t MarkerFilesKey = 1150;     // same as 1209
inline constexpr std::int32_t MarkerFilesReadKey = 1209;
inline constexpr std::int32_t MarkerReplacedReadKey = 1214;
// The marker's last line: how far the level's coming or going got, for the next run after a kill.
inline constexpr std::int32_t MarkerStateKey = 9303;
inline constexpr std::int32_t MarkerStateComplete = 9304;
inline constexpr std::int32_t MarkerStateLeaving = 9305;
inline constexpr std::int32_t MarkerFileNameWrite = 1183;  // fragment

// Activation: folders and patterns (fragments).
inline constexpr std::int32_t PlayFolderBaseCopy = 1125;
inline constexpr std::int32_t PlayFolderIn = 1126;
inline constexpr std::int32_t PlayFilesFolder = 1127;
inline constexpr std::int32_t LanguagePattern = 1145;
inline constexpr std::int32_t ScriptNameLanguageStep = 1146;
inline constexpr std::int32_t LanguageExtension = 1147;
inline constexpr std::int32_t ScriptNameLanguageStep2 = 1148;
inline constexpr std::int32_t PlayFolderBaseOut = 1184;
inline constexpr std::int32_t BasePlayKeep1 = 1185;
inline constexpr std::int32_t BasePlayDelete1 = 1186;
inline constexpr std::int32_t BasePlayKeep2 = 1187;
inline constexpr std::int32_t BasePlayDelete2 = 1188;
inline constexpr std::int32_t BasePlayKeep3 = 1189;
inline constexpr std::int32_t BasePlayDelete3 = 1190;
inline constexpr std::int32_t PlayFolderOut = 1198;
inline constexpr std::int32_t LevelPlayFolder1 = 1200;
inline constexpr std::int32_t LevelPlayKeep1 = 1201;
inline constexpr std::int32_t LevelPlayDelete1 = 1202;
inline constexpr std::int32_t LevelPlayFolder2 = 1203;
inline constexpr std::int32_t LevelPlayKeep2 = 1204;
inline constexpr std::int32_t LevelPlayDelete2 = 1205;
inline constexpr std::int32_t LevelPlayFolder3 = 1206;
inline constexpr std::int32_t LevelPlayKeep3 = 1207;
inline constexpr std::int32_t LevelPlayDelete3 = 1208;
inline constexpr std::int32_t AudioFolderPrefix = 1211;
inline constexpr std::int32_t CompleteLevelFile = 2488;
inline constexpr std::int32_t MediaFilesFolder = 2970;
inline constexpr std::int32_t KeptRootExtension = 2979;
inline constexpr std::int32_t CleanedFolder1 = 2980;
inline constexpr std::int32_t CleanedFolder2 = 2981;
inline constexpr std::int32_t CleanedFolder3 = 2982;
inline constexpr std::int32_t CleanedFolder4 = 3157;
inline constexpr std::int32_t BasicFileFrom1 = 2988;
inline constexpr std::int32_t BasicFileTo1 = 2989;
inline constexpr std::int32_t BasicFileFrom2 = 2990;
inline constexpr std::int32_t BasicFileTo2 = 2991;
inline constexpr std::int32_t BasicFilesPattern = 2992;
inline constexpr std::int32_t SavegamePattern = 2993;
inline constexpr std::int32_t ScriptPattern = 2994;
inline constexpr std::int32_t ScriptName = 2995;
inline constexpr std::int32_t ScriptFromBackup = 2996;
inline constexpr std::int32_t ScriptToEditor = 2997;
inline constexpr std::int32_t BackupLanguagePattern = 2998;
inline constexpr std::int32_t BackupScriptName = 2999;

// Activation: messages.
inline constexpr std::int32_t LevelCdRefused = 1128;
inline constexpr std::int32_t MarkerNotCreated = 1129;
inline constexpr std::int32_t LevelFilesNotReady = 1135;  // ~1 the files folder
inline constexpr std::int32_t CopyingLevelCaption = 1144;
inline constexpr std::int32_t ActiveFolderGone = 1193;
inline constexpr std::int32_t MarkerWithoutLevel = 1197;
inline constexpr std::int32_t PlayFilesNotSaved = 1199;
inline constexpr std::int32_t RemovingLevelCaption = 1210;
inline constexpr std::int32_t LevelFileNotDeleted = 1213;
inline constexpr std::int32_t RestoringEditorCaption = 1215;
inline constexpr std::int32_t LevelIncompleteAsk = 2489;  // ~1, ~2 CR LF, ~3 what is missing
inline constexpr std::int32_t RepairNotAvailable = 8310;
inline constexpr std::int32_t EditorFolderInUse = 8341;
inline constexpr std::int32_t LevelFileNotCopied = 8343;  // ~1 the level's file, ~2 its target

// Game launch: paths behind the editor folder and patterns (fragments).
inline constexpr std::int32_t MediaPlayerPath = 2958;  // same as 3003
inline constexpr std::int32_t MediaPlayerCommandLine = 2960;
inline constexpr std::int32_t MediaPlayerStartPath = 3003;  // same as 2958
inline constexpr std::int32_t MediaLevelPattern = 3001;
inline constexpr std::int32_t MediaHelpersNotNeeded = 3002;  // a file that marks it
inline constexpr std::int32_t GameProgramPath = 3089;

// Game launch: messages.
inline constexpr std::int32_t PlayNoLevelChosen = 1980;
inline constexpr std::int32_t PlayLevelNotSet = 1981;
inline constexpr std::int32_t GameNotStarted = 2391;
inline constexpr std::int32_t MediaPlayerMissing = 2959;     // ~1 its file name
inline constexpr std::int32_t MediaPlayerNotStarted = 2962;  // the path follows

// The engine patch.
inline constexpr std::int32_t EnginePatchMark = 3019;          // bytes only a patched file holds
inline constexpr std::int32_t EnginePatchAlreadyDone = 3020;   // ~1 the file
inline constexpr std::int32_t EnginePatchUnknownBuild = 3021;  // ~1 the file
inline constexpr std::int32_t EnginePatchBackupGame = 3099;    // fragment behind the backup
inline constexpr std::int32_t EnginePatchEditorGame = 3100;    // fragment behind the editor folder
inline constexpr std::int32_t EnginePatchDone = 3101;
inline constexpr std::int32_t EnginePatchNotWritten = 8550;  // ~1 the file

// Restoring the editor configuration: Dialog_Restore.
inline constexpr std::int32_t RestoreCaption = 762;
inline constexpr std::int32_t RestoreFast = 763;
inline constexpr std::int32_t RestoreFastNote = 764;
inline constexpr std::int32_t RestoreFull = 765;
inline constexpr std::int32_t RestoreFullNote = 766;
inline constexpr std::int32_t RestoreCancel = 767;
inline constexpr std::int32_t RestoreChoose = 768;
inline constexpr std::int32_t RestoreFastFailed = 769;
inline constexpr std::int32_t RestoreFastDone = 770;

// Restoring the editor configuration: the full restore.
inline constexpr std::int32_t RestoreStarting = 1437;
inline constexpr std::int32_t RestoreCleaning = 1438;
inline constexpr std::int32_t RestoreLevelFolder1 = 1442;   // fragment
inline constexpr std::int32_t RestoreLevelPattern1 = 1443;  // pattern
inline constexpr std::int32_t RestoreLevelFolder2 = 1444;   // fragment
inline constexpr std::int32_t RestoreLevelPattern2 = 1445;  // pattern
inline constexpr std::int32_t RestoreRootTarget = 1446;     // fragment
inline constexpr std::int32_t RestoreDataSource = 1447;     // fragment
inline constexpr std::int32_t RestoreDataTarget = 1448;     // fragment
inline constexpr std::int32_t RestoreFolderBusy = 1450;     // ~1 the folder
inline constexpr std::int32_t RestoreFolderFailed = 1451;   // ~1 the folder
inline constexpr std::int32_t RestoreRefreshing = 1452;
inline constexpr std::int32_t RestoreDone = 1453;  // ~1 where the user's files went, or ""
inline constexpr std::int32_t RestoreAsk = 1454;
inline constexpr std::int32_t RestoreLanguagePattern = 1402;  // fragment "\*.dat"
inline constexpr std::int32_t RestoreLanguageScript = 1403;
inline constexpr std::int32_t UpgradeRestoreAsk = 3158;  // ~1 CR LF
inline constexpr std::int32_t UpgradeRestoreProgress = 3159;
inline constexpr std::int32_t SetAsideFolder = 9700;  // fragment, ~1 the date and time
inline constexpr std::int32_t SetAsideNotice = 9701;  // ~1 the folder
inline constexpr std::int32_t RestoreJournal = 9702;  // fragment: a restore under way
inline constexpr std::int32_t StandardFilesMissing1 = 9703;
inline constexpr std::int32_t StandardFilesMissing2 = 9704;  // the path follows
inline constexpr std::int32_t StandardFilesBusy = 9705;
inline constexpr std::int32_t StandardFilesFolder = 9706;  // fragment

}  // namespace vardolin::text
