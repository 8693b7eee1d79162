#pragma once
// Numbers of the texts the web, zip and packing layer uses. Every id here has an English
// wording in resources/english.trc.

#include <cstdint>

namespace vardolin::text {

// Single-file packing.
inline constexpr std::int32_t ZipDialogCaption = 1078;  // " Zipping"
inline constexpr std::int32_t CannotExpandFile = 1229;  // ~1 = the packed file's name
// ~1 = the packed file's name, ~2 = what it expands to, ~3 = the disk's free space.
inline constexpr std::int32_t ZlNeedsMoreRoom = 9106;
inline constexpr std::int32_t PackedSuffix = 1253;  // ".zl", put behind a packed file's name

// Archives.
inline constexpr std::int32_t CannotUnpackArchive = 2255;  // shown behind the archive's name
// ~1 = the quoted archive, ~2 = what it expands to, ~3 = how many times its own size.
inline constexpr std::int32_t PackageExpandsFar = 9104;
// ~1 = the archive's name, ~2 = the entries left out, one a line.
inline constexpr std::int32_t EntriesLeftOut = 9105;
// ~1 = an archive still left in the level's folder, ~2 = how many levels deep were unpacked.
inline constexpr std::int32_t ArchivesNestedTooDeep = 9107;

// Dialog_InputTesto.
inline constexpr std::int32_t InputTestoClear = 5920;  // caption of Pul_Svuota

// Dialog_Download.
inline constexpr std::int32_t DownloadCaption = 431;
inline constexpr std::int32_t DownloadStop = 432;
inline constexpr std::int32_t DownloadPreparing = 433;   // the URL's file name follows
inline constexpr std::int32_t DownloadConnecting = 434;  // the URL's file name follows
inline constexpr std::int32_t DownloadAgent = 435;       // the name the program gives servers
inline constexpr std::int32_t DownloadProgress = 436;    // the file name and sizes follow
inline constexpr std::int32_t DownloadTimeGone = 437;    // between the time left and time gone
inline constexpr std::int32_t DownloadReceived = 438;    // the bytes so far follow
inline constexpr std::int32_t DownloadError = 439;       // the cause follows
inline constexpr std::int32_t DownloadFolder = 9102;     // fragment: where fetched files land

// Dialog_Siti: captions in the order Set_Caption_Texts takes them.
inline constexpr std::int32_t SitiCaption = 843;
inline constexpr std::int32_t SitiUpdate = 844;
inline constexpr std::int32_t SitiCopy = 845;
inline constexpr std::int32_t SitiCopyTip = 846;
inline constexpr std::int32_t SitiOk = 847;
inline constexpr std::int32_t SitiCancel = 848;
inline constexpr std::int32_t SitiRemove = 849;
inline constexpr std::int32_t SitiChange = 850;
inline constexpr std::int32_t SitiAdd = 851;
inline constexpr std::int32_t SitiGo = 852;
inline constexpr std::int32_t SitiLabel3 = 853;
inline constexpr std::int32_t SitiLabel2 = 854;
inline constexpr std::int32_t SitiLabel1 = 855;
// Category names of the URL list, types 1 to 5 and 8.
inline constexpr std::int32_t UrlKindLevels = 856;
inline constexpr std::int32_t UrlKindEditor = 857;
inline constexpr std::int32_t UrlKind3 = 858;
inline constexpr std::int32_t UrlKind4 = 859;
inline constexpr std::int32_t UrlKind5 = 860;
inline constexpr std::int32_t UrlKindPatches = 2241;
inline constexpr std::int32_t UrlListFile = 861;       // fragment: MUST equal 2235
inline constexpr std::int32_t UrlListFileAlso = 2235;  // fragment: MUST equal 861
inline constexpr std::int32_t UrlDateFormat = 862;     // strftime layout of the last update
inline constexpr std::int32_t UrlUserMark = 863;       // put before a user's own entry
inline constexpr std::int32_t UrlAddName = 864;
inline constexpr std::int32_t UrlAddNameTitle = 865;
inline constexpr std::int32_t UrlAddAddress = 866;
inline constexpr std::int32_t UrlAddAddressTitle = 867;
inline constexpr std::int32_t UrlUpdating = 868;
inline constexpr std::int32_t UrlTryAddress = 869;    // the address's number follows
inline constexpr std::int32_t UrlDownloadFile = 870;  // fragment: where an update lands
inline constexpr std::int32_t UrlListUnreadable = 871;
inline constexpr std::int32_t UrlNoSourceReached = 872;
inline constexpr std::int32_t UrlLoseChanges = 873;  // ~1 = CR LF
inline constexpr std::int32_t UrlChangeNoRow = 874;
inline constexpr std::int32_t UrlChangeName = 875;
inline constexpr std::int32_t UrlChangeNameTitle = 876;
inline constexpr std::int32_t UrlChangeAddress = 877;
inline constexpr std::int32_t UrlChangeAddressTitle = 878;
inline constexpr std::int32_t UrlCopyNoRow = 879;
inline constexpr std::int32_t UrlCopied = 880;
inline constexpr std::int32_t UrlGoNoRow = 881;
inline constexpr std::int32_t UrlListNotWritten = 882;  // the path follows
inline constexpr std::int32_t UrlRemoveNoRow = 883;
inline constexpr std::int32_t UrlRemoveAsk = 884;    // the name follows
inline constexpr std::int32_t UrlSameAddress = 885;  // ~1 name, ~2 address of the entry met
inline constexpr std::int32_t UrlSameHost = 886;     // ~1 name, ~2 address of the entry met
inline constexpr std::int32_t UrlOpenMessage = 887;  // behind a message to the users
inline constexpr std::int32_t UrlNewVersion = 888;   // ~1 version, CR LF, description
// The English phrases of level-site names, translated by the language.
inline constexpr std::int32_t UrlPhraseEnterDate = 1751;
inline constexpr std::int32_t UrlPhraseRating = 1752;
inline constexpr std::int32_t UrlPhraseKeywords = 1753;
inline constexpr std::int32_t UrlPhraseTitle = 1754;
inline constexpr std::int32_t UrlPhraseLevels = 1755;
inline constexpr std::int32_t UrlPhraseAuthor = 1756;
inline constexpr std::int32_t UrlPhraseReviews = 1757;
inline constexpr std::int32_t UrlPhraseWith = 1758;
inline constexpr std::int32_t UrlPhraseVarious = 2272;
inline constexpr std::int32_t UrlPhraseLanguage = 2273;
inline constexpr std::int32_t UrlPhraseAnd = 2276;
inline constexpr std::int32_t UrlPhraseWalkthroughs = 2277;
// The offer of an update when the list is old.
inline constexpr std::int32_t UrlUpdateInterval = 2252;  // "d", "ww", "m" or "yyyy"
inline constexpr std::int32_t UrlUpdateOffer = 2253;     // ~1 = two CR LF
// A list file that stands but can't be read: ~1 = its path, ~2 = the copy set aside.
inline constexpr std::int32_t UrlListSetAside = 9100;
inline constexpr std::int32_t UrlListReplaceUnreadable = 9101;  // Yes replaces it
// No program of the desktop opened a web address.
inline constexpr std::int32_t NoBrowserAnswered = 9501;  // ~1 = the address

// Help viewer: Dialog_Testo, Dialog_Indice.
inline constexpr std::int32_t HelpIndexCount = 466;    // the number of rows follows
inline constexpr std::int32_t HelpIndexNoRow = 467;    // Ok with no row chosen
inline constexpr std::int32_t HelpFileMissing = 1399;  // the quoted path follows
inline constexpr std::int32_t TestoCaption = 9601;
inline constexpr std::int32_t TestoFrame = 9602;
inline constexpr std::int32_t HelpFind = 9603;         // Pul_Trova, Pul_Find
inline constexpr std::int32_t HelpIndexButton = 9604;  // Pul_Index
inline constexpr std::int32_t HelpClose = 9605;        // Pul_Ok of Dialog_Testo
inline constexpr std::int32_t IndiceCaption = 9606;
inline constexpr std::int32_t IndiceMainTopics = 9607;  // Opt_Main
inline constexpr std::int32_t IndiceSubTopics = 9608;   // Opt_Sub
inline constexpr std::int32_t IndiceShow = 9609;        // Pul_Ok of Dialog_Indice

}  // namespace vardolin::text
