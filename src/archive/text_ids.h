#pragma once
// Numbers of the texts the level archive uses. Every id here has an English wording in
// resources/english.trc. Ids marked "fragment" are path fragments: a folder fragment begins
// with a backslash. The user folders 1546 to 1548 are the same folders as 1632 to 1634.

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
inline constexpr std::int32_t SizesLevelFiles = 1257;  // the level name follows
inline constexpr std::int32_t SizesLevelUser = 1258;   // the level name follows
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

}  // namespace vardolin::text
