#pragma once
// Numbers of the texts of the savegame and screenshot stores. Every id here has an English
// wording in resources/english.trc. Ids marked "fragment" are path fragments: a folder fragment
// begins with a backslash.

#include <cstdint>

namespace vardolin::text {

// The screenshot store and panel. The shot folder has one fragment per place of use; all say
// the same. So do the no-image pictures behind the base level's folder and those behind the
// program's folder.
inline constexpr std::int32_t ShotFolderLoad = 1553;        // fragment
inline constexpr std::int32_t ShotMaskJpeg = 1554;          // fragment "\*.jpg"
inline constexpr std::int32_t ShotMaskBmp = 1555;           // fragment "\*.bmp"
inline constexpr std::int32_t ShotDefaultExtension = 1602;  // ".jpg"
inline constexpr std::int32_t ShotFolderFreeName = 1603;    // fragment, same as 1553
inline constexpr std::int32_t ShotFolderAdd = 1841;         // fragment, same as 1553
inline constexpr std::int32_t ShotFolderCapture = 1996;     // fragment, same as 1553
inline constexpr std::int32_t ShotFolderChoose = 2381;      // fragment, same as 1553
inline constexpr std::int32_t NoImageOfBaseLevel = 1111;    // fragment behind level 0's folder
inline constexpr std::int32_t NoImageForEditor = 1994;      // fragment, same as 1111
inline constexpr std::int32_t NoImageOfBaseLevel2 = 1995;   // fragment, same as 1111
inline constexpr std::int32_t NoImageZoom = 2360;           // fragment behind the program's folder
inline constexpr std::int32_t NoImageForClipboard = 2361;   // fragment, same as 2360
inline constexpr std::int32_t NoImageSavegame = 2389;       // fragment, same as 2360
inline constexpr std::int32_t NoImageSavegameLoad = 2412;   // fragment, same as 2360
inline constexpr std::int32_t NoImageSavegameNone = 2420;   // fragment, same as 2360
inline constexpr std::int32_t NoImageSavegameTie = 2423;    // fragment, same as 2360
inline constexpr std::int32_t NoImageFileName = 2379;       // the no-image file's bare name
inline constexpr std::int32_t ShotMissing1 = 1112;          // ~1 the path
inline constexpr std::int32_t ShotMissing2 = 1113;
inline constexpr std::int32_t AddShotTitle = 1839;
inline constexpr std::int32_t AddShotFilter = 1840;
inline constexpr std::int32_t AddShotExists = 1842;   // ~1 name, ~2 and ~3 two CR LF each
inline constexpr std::int32_t AddShotRenamed = 1843;  // ~1 the new name
inline constexpr std::int32_t ResizeNoShot = 1853;
inline constexpr std::int32_t DeleteShotNone = 1879;
inline constexpr std::int32_t DeleteShotQuestion = 1880;  // the quoted path follows
inline constexpr std::int32_t RenameShotNone = 1957;
inline constexpr std::int32_t RenameShotPrompt = 1958;
inline constexpr std::int32_t RenameShotTitle = 1959;
inline constexpr std::int32_t SaveShotNone = 1964;
inline constexpr std::int32_t SaveShotTitle = 1965;
inline constexpr std::int32_t SaveShotJpegExtension = 1966;  // ".jpg", compared to the name's end
inline constexpr std::int32_t SaveShotFilterJpeg = 1967;
inline constexpr std::int32_t SaveShotFilterBmp = 1968;
inline constexpr std::int32_t SaveShotFailed = 1969;          // ~1 the destination
inline constexpr std::int32_t CopyPathDone = 2362;            // ~1 the path between CR LF
inline constexpr std::int32_t GraphicsProgramMissing = 2370;  // ~1 CR LF
inline constexpr std::int32_t ShotPropertiesNone = 2375;
inline constexpr std::int32_t ShotProperties = 2376;      // ~1 path, ~2 date, ~3 size, ~4 width
inline constexpr std::int32_t ChooseImageNoShots = 2380;  // ~1 CR LF
inline constexpr std::int32_t ChooseImageTitle = 2382;
inline constexpr std::int32_t ChooseImageFilter = 2383;
inline constexpr std::int32_t ChooseImageStepSeconds = 2384;  // interval name: "s" for seconds
inline constexpr std::int32_t TieIntervalSeconds = 2422;      // interval name: "s" for seconds
inline constexpr std::int32_t ResizedPathCopied = 2475;       // ~1 the quoted path and CR LF
inline constexpr std::int32_t RenameShotFailed = 5779;        // ~1 the new name

// Dialog_Resize.
inline constexpr std::int32_t ResizeRow480 = 749;  // rows 749 to 756, largest first
inline constexpr std::int32_t ResizeSaveTitle = 757;
inline constexpr std::int32_t ResizeSaveFilter = 758;
inline constexpr std::int32_t ResizeJpegExtension = 759;    // ".jpg", compared to the name's end
inline constexpr std::int32_t ResizeTemporaryBitmap = 760;  // fragment behind the program's folder
inline constexpr std::int32_t ResizeJpegFailed = 761;
inline constexpr std::int32_t ResizeQuality90 = 2310;  // rows 2310 to 2314
inline constexpr std::int32_t ResizeCaption = 5770;
inline constexpr std::int32_t ResizeLabelSize = 5771;
inline constexpr std::int32_t ResizeLabelQuality = 5772;
inline constexpr std::int32_t ResizePulSave = 5773;
inline constexpr std::int32_t ResizePulCancel = 5774;

// Dialog_ScreenShot.
inline constexpr std::int32_t ZoomCaption = 779;  // the path follows

// Captions of the screenshot panel of the main window.
inline constexpr std::int32_t CaptionPulPrimoShot = 5775;
inline constexpr std::int32_t CaptionPulPrimaScreenShot = 5776;
inline constexpr std::int32_t CaptionPulDopoScreenShot = 5777;
inline constexpr std::int32_t CaptionPulUltimoShot = 5778;

// Screen capture while the game runs, and the pictures play_the_game.exe leaves behind.
inline constexpr std::int32_t CaptureSaveFilter = 265;
inline constexpr std::int32_t CaptureNotSaved = 266;      // ~1 the path between CR LF; reason behind
inline constexpr std::int32_t CaptureHowTo = 1845;        // ~1 CR LF
inline constexpr std::int32_t MediaShotsFolder = 2963;    // fragment behind the editor folder
inline constexpr std::int32_t MediaShotsPattern = 2964;   // pattern of the files in it
inline constexpr std::int32_t CatturaCaption = 5891;
inline constexpr std::int32_t CatturaAutoSave = 5892;
inline constexpr std::int32_t CatturaPulSave = 5893;
inline constexpr std::int32_t CatturaPulCancel = 5894;

// The joystick window.
inline constexpr std::int32_t JoyPortFirst = 2627;
inline constexpr std::int32_t JoyPortSecond = 2628;
inline constexpr std::int32_t JoyPortSilent = 2629;
inline constexpr std::int32_t JoyNotAnswering = 2630;
inline constexpr std::int32_t JoyCloseButtonMissing = 2631;
inline constexpr std::int32_t JoyCaptureButtonMissing = 2632;
inline constexpr std::int32_t JoyTitle = 5960;
inline constexpr std::int32_t JoyGamePort = 5961;
inline constexpr std::int32_t JoyCloseTrle = 5962;
inline constexpr std::int32_t JoyCatturaShot = 5963;
inline constexpr std::int32_t JoyOnlyButton = 5964;
inline constexpr std::int32_t JoyOk = 5965;
inline constexpr std::int32_t JoyCancel = 5966;
inline constexpr std::int32_t JoyHelp = 5967;

}  // namespace vardolin::text
