#pragma once
// Numbers of the texts the foundation uses. Every id here has an English wording in
// resources/english.trc; a test checks that.

#include <cstdint>

namespace vardolin::text {

// Settings and the program's own files.
inline constexpr std::int32_t SettingsFileName = 1089;  // "Vardolin.prf"
inline constexpr std::int32_t EditorSetupFolder = 1080;
inline constexpr std::int32_t ProgramInfoSource = 1084;
inline constexpr std::int32_t ProgramInfoFolder = 1648;
inline constexpr std::int32_t ProgramInfoExtension = 1649;
inline constexpr std::int32_t ProgramFileForType = 1650;
inline constexpr std::int32_t CatalogueTypeExtension = 1652;
inline constexpr std::int32_t CatalogueTypeClass = 1653;
inline constexpr std::int32_t AppPathProgram = 2490;
inline constexpr std::int32_t AppPathRoomEditor = 2491;
inline constexpr std::int32_t RenamedFileNew = 2555;
inline constexpr std::int32_t RenamedFileOld = 2556;
inline constexpr std::int32_t SystemFileSource = 2259;
inline constexpr std::int32_t SystemFileTarget = 2260;
inline constexpr std::int32_t AppPathsKey = 1543;
inline constexpr std::int32_t AppPathsFolderKey = 1544;
inline constexpr std::int32_t AppPathsFolderValue = 1545;

// Start-up.
inline constexpr std::int32_t InstallingEditor = 1081;
inline constexpr std::int32_t EditorInstallFailed = 1082;
inline constexpr std::int32_t BaseLevelFailed = 1083;
inline constexpr std::int32_t AskOtherCatalogue = 1086;
inline constexpr std::int32_t CatalogueMissing = 1088;
inline constexpr std::int32_t SplashLine1 = 2230;
inline constexpr std::int32_t SplashLine2 = 2231;
inline constexpr std::int32_t SplashVersion = 2265;
inline constexpr std::int32_t AskRestoreEditor = 3158;
inline constexpr std::int32_t RestoringEditor = 3159;

// The base level, code 0, and what start-up copies into it from the editor folder.
inline constexpr std::int32_t BaseLevelFolder = 1622;
inline constexpr std::int32_t BaseLevelPlace1 = 1623;
inline constexpr std::int32_t BaseLevelFile1 = 1624;
inline constexpr std::int32_t BaseLevelPlace2 = 1625;
inline constexpr std::int32_t BaseLevelFile2 = 1626;
inline constexpr std::int32_t BaseLevelPlace3 = 1627;
inline constexpr std::int32_t BaseLevelFiles3 = 1628;

// Shared dialogs.
inline constexpr std::int32_t ProgramTitle = 2478;  // default title of a message box
inline constexpr std::int32_t MsgBoxTitle = 2945;
inline constexpr std::int32_t MsgBoxAbort = 2946;
inline constexpr std::int32_t MsgBoxRetry = 2947;
inline constexpr std::int32_t MsgBoxNo = 2948;
inline constexpr std::int32_t MsgBoxYes = 2949;
inline constexpr std::int32_t MsgBoxCancel = 2950;
inline constexpr std::int32_t MsgBoxOk = 2951;
inline constexpr std::int32_t ProgressCaption = 1556;
inline constexpr std::int32_t GetDirTitle = 440;
inline constexpr std::int32_t GetDirNewFolder = 441;
inline constexpr std::int32_t GetDirOk = 442;
inline constexpr std::int32_t GetDirCancel = 443;
inline constexpr std::int32_t DriveNotReady = 444;
inline constexpr std::int32_t NewFolderNameEmpty = 445;
inline constexpr std::int32_t NewFolderExists = 446;

// Dialog_Settings.
inline constexpr std::int32_t FullBackupDone = 823;
inline constexpr std::int32_t FullBackupNotDone = 824;
inline constexpr std::int32_t ChooseLoadDirTitle = 825;
inline constexpr std::int32_t ChooseEditorFolderTitle = 828;
inline constexpr std::int32_t ChooseGraphicsProgramTitle = 2424;
inline constexpr std::int32_t ProgramFileFilter = 2425;
inline constexpr std::int32_t CheckTenthsEntry = 2440;
inline constexpr std::int32_t MinutesNotNumber = 2442;
inline constexpr std::int32_t NoLanguageChosen = 3155;
// Captions of Dialog_Settings, 5000 to 5028.
inline constexpr std::int32_t SettingsTitle = 5000;
inline constexpr std::int32_t SettingsEditorPath = 5001;
inline constexpr std::int32_t SettingsBrowse = 5002;
inline constexpr std::int32_t SettingsLoadDir = 5003;
inline constexpr std::int32_t SettingsFullBackup = 5004;
inline constexpr std::int32_t SettingsCaptureFrame = 5005;
inline constexpr std::int32_t SettingsPromptCapture = 5006;
inline constexpr std::int32_t SettingsNonPrompt = 5007;
inline constexpr std::int32_t SettingsVerifyImage = 5008;
inline constexpr std::int32_t SettingsGraphicsProgram = 5009;
inline constexpr std::int32_t SettingsAdvancedFrame = 5010;
inline constexpr std::int32_t SettingsNoAutoCompile = 5011;
inline constexpr std::int32_t SettingsCheckEqual = 5012;
inline constexpr std::int32_t SettingsNoDecompress = 5013;
inline constexpr std::int32_t SettingsAutoSave = 5014;
inline constexpr std::int32_t SettingsAutoUpdateUrls = 5015;
inline constexpr std::int32_t SettingsCheckInterval = 5016;
inline constexpr std::int32_t SettingsDisableSound = 5017;
inline constexpr std::int32_t SettingsLanguage = 5018;
inline constexpr std::int32_t SettingsSavegameFrame = 5019;
inline constexpr std::int32_t SettingsArchiveSavegames = 5020;
inline constexpr std::int32_t SettingsSavegamesSuffix = 5021;
inline constexpr std::int32_t SettingsAssociate = 5022;
inline constexpr std::int32_t SettingsMinutes = 5023;
inline constexpr std::int32_t SettingsJoystickFrame = 5024;
inline constexpr std::int32_t SettingsEnableJoystick = 5025;
inline constexpr std::int32_t SettingsSetJoy = 5026;
inline constexpr std::int32_t SettingsOk = 5027;
inline constexpr std::int32_t SettingsCancel = 5028;

// Folder chooser messages and the box button that has no text of its own.
inline constexpr std::int32_t NewFolderFailed = 5090;  // ~1 the quoted path
inline constexpr std::int32_t MsgBoxIgnore = 5091;

// Start-up's own names.
inline constexpr std::int32_t BackupFolderName = 5600;  // fragment "\backup_trle"

// Where an export may write its file.
inline constexpr std::int32_t ExportTargetOwnData = 9400;  // the path follows
inline constexpr std::int32_t ExportTargetReplace = 9401;  // ~1 the file
inline constexpr std::int32_t ExportTargetLink = 9402;     // ~1 the link, ~2 where it leads
// What a run that was killed left behind, cleared by the next one (log lines, the path follows).
inline constexpr std::int32_t LeftoverRemoved = 9300;
inline constexpr std::int32_t LeftoverSwapFinished = 9301;
inline constexpr std::int32_t LeftoverLoanReturned = 9800;
inline constexpr std::int32_t LeftoverListRemoved = 9440;

// A report that the printer could not print.
inline constexpr std::int32_t PrintFailed = 9866;

}  // namespace vardolin::text
