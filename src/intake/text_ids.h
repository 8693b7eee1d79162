#pragma once
// Numbers of the texts that level intake uses. Every id here has an English wording in
// resources/english.trc. Ids marked "fragment" are path fragments or patterns: a folder fragment
// begins with a backslash.

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
inline constexpr std::int32_t RevisedWadsNoImport = 8400;    // ~1 the pack's file name

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

}  // namespace vardolin::text
