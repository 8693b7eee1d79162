#pragma once
// Numbers of the texts that adding a level and its properties use. Every id here has an English
// wording in resources/english.trc; those that hold a name or a pattern say so.

#include <cstdint>

namespace vardolin::text {

inline constexpr std::int32_t FilesFolderOfLevel = 600;
inline constexpr std::int32_t LevelCdMissing = 601;
inline constexpr std::int32_t FilesFolderOnCd = 602;
inline constexpr std::int32_t CannotExpandForViewing = 603;
inline constexpr std::int32_t PropertiesSizes = 604;
inline constexpr std::int32_t MoreInfoNoneEntry = 605;
inline constexpr std::int32_t MoreInfoDefault = 606;
inline constexpr std::int32_t TomPattern = 607;
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
inline constexpr std::int32_t SetupProgramWaits = 8650;
inline constexpr std::int32_t AudioStoredAsCame = 8651;
inline constexpr std::int32_t CannotCompileTomYet = 8652;

}  // namespace vardolin::text
