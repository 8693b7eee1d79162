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
inline constexpr std::int32_t EditorInstallNotAvailable = 5647;
inline constexpr std::int32_t TipoExeCaption = 5650;
inline constexpr std::int32_t TipoExeWarning = 5651;
inline constexpr std::int32_t TipoExeTrle = 5652;
inline constexpr std::int32_t TipoExeOtherFolder = 5653;
inline constexpr std::int32_t TipoExeHelp = 5654;

// The game's setup mode (mnu_SetupTrle).
inline constexpr std::int32_t SetupTrleParameter = 2388;  // the game's command-line parameter
inline constexpr std::int32_t SetupTrleWarning = 2500;    // ~1 to ~4 CR LF, ~5 two CR LF

}  // namespace vardolin::text
