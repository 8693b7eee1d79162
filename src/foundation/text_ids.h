#pragma once
// Numbers of the texts the foundation uses. Every id here has an English wording in
// resources/english.trc; a test checks that.

#include <cstdint>

namespace vardolin::text {

// Settings and the program's own files.
inline constexpr std::int32_t SettingsFileName = 1089;  // "Vardolin.prf"

// Shared dialogs.
inline constexpr std::int32_t ProgramTitle = 2478;  // default title of a message box
inline constexpr std::int32_t MsgBoxTitle = 2945;
inline constexpr std::int32_t MsgBoxAbort = 2946;
inline constexpr std::int32_t MsgBoxRetry = 2947;
inline constexpr std::int32_t MsgBoxNo = 2948;
inline constexpr std::int32_t MsgBoxYes = 2949;
inline constexpr std::int32_t MsgBoxCancel = 2950;
inline constexpr std::int32_t MsgBoxOk = 2951;

// Folder chooser, progress window, splash.
inline constexpr std::int32_t GetDirTitle = 440;
inline constexpr std::int32_t GetDirOk = 441;
inline constexpr std::int32_t GetDirCancel = 442;
inline constexpr std::int32_t GetDirNewFolder = 443;
inline constexpr std::int32_t DriveNotReady = 444;
inline constexpr std::int32_t NewFolderNameEmpty = 445;
inline constexpr std::int32_t NewFolderExists = 446;   // ~1 the quoted path
inline constexpr std::int32_t NewFolderFailed = 5090;  // ~1 the quoted path
inline constexpr std::int32_t MsgBoxIgnore = 5091;     // the box has no text of its own for it
inline constexpr std::int32_t ProgressCaption = 1556;
inline constexpr std::int32_t SplashVersion = 2265;
inline constexpr std::int32_t SplashLine1 = 2230;
inline constexpr std::int32_t SplashLine2 = 2231;

}  // namespace vardolin::text
