#pragma once
// Numbers of the texts that level intake uses. Every id here has an English wording in
// resources/english.trc. Ids marked "fragment" are path fragments: a folder fragment begins
// with a backslash.

#include <cstdint>

namespace vardolin::text {

// The level info file.
inline constexpr std::int32_t InfoFileMissing = 1390;       // ~1 = the path
inline constexpr std::int32_t InfoFileOpenFailed = 1391;    // the path follows
inline constexpr std::int32_t InfoFileFixedFailed = 1392;   // the path follows
inline constexpr std::int32_t InfoFileEntryFailed = 1393;   // the path follows
inline constexpr std::int32_t InfoFileCreateFailed = 1394;  // the path follows
inline constexpr std::int32_t InfoFileWriteFixed = 1395;    // the path follows
inline constexpr std::int32_t InfoFileWriteEntry = 1396;    // the path follows

// Self-installing programs.
inline constexpr std::int32_t CopyingUnpackedFiles = 630;
inline constexpr std::int32_t UnpackingZip = 1467;         // ~1 = the zip's name
inline constexpr std::int32_t ZipPattern = 2254;           // fragment
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

}  // namespace vardolin::text
